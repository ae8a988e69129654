// The only file that includes Boost: it takes long to compile.
#include "plugin-core/panel/PanelClient.h"

#include <sys/socket.h>

#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/write.hpp>  // IWYU pragma: keep
#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/http/empty_body.hpp>
#include <boost/beast/http/error.hpp>
#include <boost/beast/http/message.hpp>
#include <boost/beast/http/parser.hpp>
#include <boost/beast/http/read.hpp>   // IWYU pragma: keep
#include <boost/beast/http/write.hpp>  // IWYU pragma: keep
#include <boost/beast/websocket.hpp>   // IWYU pragma: keep
#include <deque>
#include <nlohmann/json.hpp>
#include <sstream>

#include "base/JsonText.h"
#include "plugin-core/panel/PanelHttp.h"
#include "plugin-core/panel/PanelLimits.h"
#include "plugin-core/panel/PanelToken.h"

namespace net = boost::asio;
namespace beast = boost::beast;
namespace http = boost::beast::http;
namespace websocket = boost::beast::websocket;
using nlohmann::json;
using ErrorCode = boost::beast::error_code;
using Socket = boost::asio::ip::tcp::socket;

namespace plugincore {
namespace {

constexpr const char* kWelcome = "{\"ok\":true,\"protocol\":2}";
constexpr const char* kRefusal = "refused";

bool PresentsToken(const std::string& text, const std::string& token)
{
    const json value = json::parse(text, nullptr, false);
    if (!value.is_object()) return false;
    const auto member = value.find("token");
    return member != value.end() && member->is_string() &&
           IsSameToken(member->get<std::string>(), token);
}

std::string GetText(beast::string_view text) { return {text.data(), text.size()}; }

PanelHttpRequest Describe(const http::request<http::empty_body>& request)
{
    PanelHttpRequest described;
    described.method = GetText(request.method_string());
    described.target = GetText(request.target());
    for (const auto& field : request) {
        const std::string value = GetText(field.value());
        if (field.name() == http::field::host) described.hosts.push_back(value);
        if (field.name() == http::field::origin) described.origins.push_back(value);
        if (beast::iequals(field.name_string(), "X-Panel-Token")) {
            described.tokens.push_back(value);
        }
        if (field.name() == http::field::transfer_encoding ||
            (field.name() == http::field::content_length && value != "0")) {
            described.hasBody = true;
        }
    }
    described.isUpgrade = websocket::is_upgrade(request);
    return described;
}

}  // namespace

struct PanelLoop::State {
    net::io_context context{1};
};

PanelLoop::PanelLoop() : mState(std::make_unique<State>()) {}
PanelLoop::~PanelLoop() = default;

bool PanelLoop::Step()
{
    // The context stops by itself when no operation is left.
    mState->context.restart();
    return mState->context.poll_one() != 0;
}

// Lives until its last operation has ended, which may be after the client.
class PanelClient::Session : public std::enable_shared_from_this<Session> {
public:
    Session(net::io_context& loop, PanelContext& context, base::FileDescriptor socket,
            uint64_t number)
        : mContext(context), mWebSocket(loop), mNumber(number), mSince(context.now)
    {
        ErrorCode error;
        GetSocket().assign(net::ip::tcp::v4(), socket.Get(), error);
        if (error) {
            mPhase = Phase::kGone;
        } else {
            (void)socket.Release();  // the socket owns it now
        }
    }

    void ReadHeader();
    void Answer(const PanelQueue::Result& result);
    void Queue(const PanelMessage& message);
    void Reject();
    bool CheckTime();
    void Close();

private:
    friend class PanelClient;

    enum class Phase {
        kHeader,   // sends its HTTP request
        kAnswer,   // receives the answer to it
        kNew,      // a WebSocket that hasn't presented the token
        kServed,   // a WebSocket whose requests are served
        kLeaving,  // receives its last output; its input is discarded
        kGone,     // closed
    };

    Socket& GetSocket() { return mWebSocket.next_layer(); }
    bool IsWebSocket() const { return mPhase == Phase::kNew || mPhase == Phase::kServed; }

    // Calls `work` as a handler of an operation: nothing may pass through the loop to the host.
    template <class Work>
    void Handle(Work work)
    {
        if (mPhase == Phase::kGone) return;
        try {
            work();
        } catch (const std::exception&) {
            Close();
        }
    }
    // Makes a handler for an operation with bytes.
    auto Bind(void (Session::*method)(ErrorCode, size_t))
    {
        return [self = shared_from_this(), method](ErrorCode error, size_t bytes) {
            self->Handle([&] { (self.get()->*method)(error, bytes); });
        };
    }

    void SetPhase(Phase phase)
    {
        mPhase = phase;
        mSince = mContext.now;
    }
    void OnHeader(ErrorCode error, size_t bytes);
    void Route();
    void Accept();
    void OnAccepted(ErrorCode error);
    void Respond(int status, const std::string& type = {}, uint64_t size = 0,
                 int64_t faceIndex = -1);
    void SendFont(const PanelFontPiece& piece);
    void AskForFont();
    void Send();
    void OnSent(ErrorCode error, size_t bytes);
    void OnAllSent();
    void Read();
    void OnRead(ErrorCode error, size_t bytes);
    void TakeMessage();
    void Refuse(const std::string& reason, websocket::close_code code);
    void SendClose();
    void OnCloseSent(ErrorCode error, size_t bytes);
    void Discard();
    void OnDiscarded(ErrorCode error, size_t bytes);

    PanelContext& mContext;
    websocket::stream<Socket, false> mWebSocket;  // its socket alone until the handshake
    uint64_t mNumber;
    Phase mPhase = Phase::kHeader;
    int64_t mSince;  // start of the time that the phase may take
    // The parser counts the header, the buffer what is read in a step.
    http::request_parser<http::empty_body> mParser;
    beast::flat_buffer mBuffer{PanelLimits::kReadInAStep};
    std::string mFont;            // the id of the font that is being sent
    uint64_t mFontSize = 0;       // bytes; 0 until its first piece arrives
    uint64_t mFontSent = 0;       // bytes queued of it
    std::vector<char> mReceived;  // of the present step
    std::string mInput;           // the present message so far
    bool mHasToken = false;
    bool mSubscribed = false;
    bool mIsAwaitingAnswer = false;
    bool mIsReading = false;
    bool mIsSending = false;
    bool mInputEnded = false;
    websocket::close_code mCloseCode = websocket::close_code::none;  // unless refused
    std::string mCloseFrame;
    size_t mDiscarded = 0;
    std::deque<PanelMessage> mOutput;
    size_t mOutputBytes = 0;
};

void PanelClient::Session::Close()
{
    mPhase = Phase::kGone;
    ErrorCode ignored;  // the descriptor is closed all the same
    GetSocket().close(ignored);
}

void PanelClient::Session::ReadHeader()
{
    if (mPhase == Phase::kGone) return;
    mParser.header_limit(PanelLimits::kHeader);
    http::async_read_header(GetSocket(), mBuffer, mParser, Bind(&Session::OnHeader));
}

void PanelClient::Session::OnHeader(ErrorCode error, size_t)
{
    constexpr int kBadRequest = 400;
    constexpr int kTooLong = 431;
    if (mPhase != Phase::kHeader) return;  // its time has passed
    if (!error) return Route();
    if (error == http::error::header_limit || error == http::error::buffer_overflow) {
        return Respond(kTooLong);
    }
    const bool isRequest = error.category() == make_error_code(http::error::bad_method).category();
    if (!isRequest || error == http::error::end_of_stream) return Close();
    Respond(kBadRequest);
}

void PanelClient::Session::Route()
{
    constexpr int kOk = 200;
    const PanelHttpRequest request = Describe(mParser.get());
    const PanelRoute route = RoutePanelRequest(request, mContext.port, mContext.token);
    switch (route.kind) {
        case PanelRoute::Kind::kStatus:
            return Respond(route.status);
        case PanelRoute::Kind::kPage:
            Respond(kOk, std::string(route.file->contentType), route.file->body.size());
            if (mParser.get().method() == http::verb::head) return;
            return Queue(std::make_shared<const std::string>(route.file->body));
        case PanelRoute::Kind::kFont:
            SetPhase(Phase::kAnswer);
            mFont = route.font;
            mHasToken = true;
            return AskForFont();
        case PanelRoute::Kind::kSocket:
            return Accept();
    }
}

void PanelClient::Session::Respond(int status, const std::string& type, uint64_t size,
                                   int64_t faceIndex)
{
    SetPhase(Phase::kAnswer);
    http::response<http::empty_body> answer;
    answer.result(static_cast<unsigned int>(status));
    for (const auto& [name, value] : MakePanelHeaders(mContext.port)) answer.set(name, value);
    if (!type.empty()) answer.set(http::field::content_type, type);
    if (faceIndex >= 0) answer.set("X-Face-Index", std::to_string(faceIndex));
    constexpr int kNoSuchMethod = 405;
    constexpr int kUpgradeRequired = 426;
    if (status == kNoSuchMethod) answer.set(http::field::allow, "GET, HEAD");
    if (status == kUpgradeRequired) answer.set(http::field::upgrade, "websocket");
    answer.content_length(size);
    answer.keep_alive(false);
    std::ostringstream text;
    text << answer.base();
    Queue(std::make_shared<const std::string>(text.str()));
}

void PanelClient::Session::AskForFont()
{
    mIsAwaitingAnswer = true;
    PanelQueue::Request request;
    request.client = mNumber;
    request.text = mFont;
    request.isFont = true;
    request.offset = mFontSent;
    mContext.requests.push_back(std::move(request));
}

void PanelClient::Session::SendFont(const PanelFontPiece& piece)
{
    constexpr int kOk = 200;
    const bool isFirst = mFontSize == 0;
    if (isFirst && piece.status != kOk) return Respond(piece.status);
    // The header has promised another file.
    if (piece.status != kOk || (!isFirst && piece.size != mFontSize)) return Close();
    mFontSize = piece.size;
    mFontSent += piece.bytes.size();
    if (isFirst) Respond(kOk, piece.type, piece.size, piece.faceIndex);
    if (mParser.get().method() == http::verb::head) {
        mFontSent = mFontSize;
        return;
    }
    mSince = mContext.now;
    Queue(std::make_shared<const std::string>(piece.bytes));
}

void PanelClient::Session::Accept()
{
    constexpr int kBadRequest = 400;
    // A client may not send messages before the answer.
    if (mBuffer.size() != 0) return Respond(kBadRequest);
    const int64_t since = mSince;
    SetPhase(Phase::kNew);
    mSince = since;                  // the time for the header and that for the token are one
    mWebSocket.read_message_max(0);  // OnRead looks at the size, and answers before it closes
    mWebSocket.auto_fragment(false);
    mWebSocket.set_option(websocket::stream_base::decorator([this](auto& answer) {
        for (const auto& [name, value] : MakePanelHeaders(mContext.port)) answer.set(name, value);
        answer.set(http::field::server, "panel");
    }));
    // A client that has begun to close has the time of a leaving one.
    mWebSocket.control_callback([this](websocket::frame_type type, beast::string_view) {
        if (type == websocket::frame_type::close && IsWebSocket()) SetPhase(Phase::kLeaving);
    });
    mReceived.resize(PanelLimits::kReadInAStep);
    mIsSending = true;  // events have to wait for the answer
    mWebSocket.async_accept(mParser.get(), [self = shared_from_this()](ErrorCode error) {
        self->Handle([&] { self->OnAccepted(error); });
    });
}

void PanelClient::Session::OnAccepted(ErrorCode error)
{
    mIsSending = false;
    if (error) {
        SetPhase(Phase::kLeaving);
        return Discard();
    }
    mWebSocket.text(true);
    Read();
    Send();
}

void PanelClient::Session::Queue(const PanelMessage& message)
{
    if (mPhase == Phase::kGone || mCloseCode != websocket::close_code::none) return;
    mOutput.push_back(message);
    mOutputBytes += message->size();
    if (mOutputBytes > PanelLimits::kOutput) return Close();
    Send();
}

void PanelClient::Session::Send()
{
    if (mPhase == Phase::kGone || mIsSending) return;
    if (mOutput.empty()) return OnAllSent();
    mIsSending = true;
    const net::const_buffer bytes = net::buffer(*mOutput.front());
    if (mPhase == Phase::kAnswer) {
        net::async_write(GetSocket(), bytes, Bind(&Session::OnSent));
    } else {
        mWebSocket.async_write(bytes, Bind(&Session::OnSent));
    }
}

void PanelClient::Session::OnSent(ErrorCode error, size_t)
{
    mIsSending = false;
    if (error) return Close();
    mOutputBytes -= mOutput.front()->size();
    mOutput.pop_front();
    Send();
}

void PanelClient::Session::OnAllSent()
{
    if (mPhase == Phase::kAnswer) {
        if (mIsAwaitingAnswer) return;
        if (mFontSent < mFontSize) return AskForFont();
        SetPhase(Phase::kLeaving);
        return Discard();
    }
    if (mCloseCode != websocket::close_code::none) return SendClose();
    if (mInputEnded && !mIsAwaitingAnswer && mPhase != Phase::kLeaving) {
        SetPhase(Phase::kLeaving);
        return Discard();
    }
    Read();
}

// Not by Boost.Beast, which would then read frames without a limit until the client closes.
void PanelClient::Session::SendClose()
{
    constexpr unsigned int kLastFrameOfClose = 0x88;
    constexpr unsigned int kByte = 8;
    if (!mCloseFrame.empty()) return;
    const auto code = static_cast<unsigned int>(mCloseCode);
    for (const unsigned int byte : {kLastFrameOfClose, 2U, code >> kByte, code & 0xffU}) {
        mCloseFrame += static_cast<char>(byte);
    }
    ErrorCode ignored;  // if the read that waits isn't cancelled, it ends with the connection
    if (mIsReading) GetSocket().cancel(ignored);
    net::async_write(GetSocket(), net::buffer(mCloseFrame), Bind(&Session::OnCloseSent));
}

void PanelClient::Session::OnCloseSent(ErrorCode error, size_t)
{
    if (error) return Close();
    Discard();
}

// Reads no further message before all output is sent: a client that doesn't read waits, and one
// that closes its side after its last message receives all answers.
void PanelClient::Session::Read()
{
    if (!IsWebSocket() || mIsReading || mIsAwaitingAnswer || mInputEnded || !mOutput.empty()) {
        return;
    }
    mIsReading = true;
    mWebSocket.async_read_some(net::buffer(mReceived), Bind(&Session::OnRead));
}

void PanelClient::Session::OnRead(ErrorCode error, size_t bytes)
{
    mIsReading = false;
    if (mCloseCode != websocket::close_code::none) return;  // refused: SendClose has cancelled it
    if (error == net::error::eof) {
        mInputEnded = true;
        return Send();
    }
    if (error) return Close();  // Boost.Beast has sent the close frame
    mInput.append(mReceived.data(), bytes);
    if (mWebSocket.got_binary()) return Refuse({}, websocket::close_code::unknown_data);
    if (mPhase == Phase::kNew && mInput.size() > PanelLimits::kFirstMessage) {
        return Refuse(kRefusal, websocket::close_code::policy_error);
    }
    if (mInput.size() > PanelLimits::kMessage) {
        return Refuse("the message is too long", websocket::close_code::too_big);
    }
    if (!mWebSocket.is_message_done()) return Read();
    TakeMessage();
}

void PanelClient::Session::TakeMessage()
{
    const std::string message = std::exchange(mInput, {});
    if (mPhase == Phase::kServed) {
        mIsAwaitingAnswer = true;
        PanelQueue::Request request;
        request.client = mNumber;
        request.text = message;
        mContext.requests.push_back(std::move(request));
        return;
    }
    if (!PresentsToken(message, mContext.token)) {
        return Refuse(kRefusal, websocket::close_code::policy_error);
    }
    SetPhase(Phase::kServed);
    mHasToken = true;
    Queue(std::make_shared<const std::string>(kWelcome));
}

void PanelClient::Session::Refuse(const std::string& reason, websocket::close_code code)
{
    SetPhase(Phase::kLeaving);
    if (!reason.empty()) {
        Queue(std::make_shared<const std::string>(
            base::PrintJson(json::object({{"ok", false}, {"error", reason}}))));
    }
    if (mPhase == Phase::kGone) return;
    mCloseCode = code;
    Send();
}

// Waits for the client to close its side: if a connection is closed while input is unread, TCP
// resets it and the client may lose the last output. CheckTime limits the time.
void PanelClient::Session::Discard()
{
    ErrorCode ignored;  // fails only if the client has closed the connection
    GetSocket().shutdown(Socket::shutdown_send, ignored);
    mReceived.resize(PanelLimits::kReadInAStep);
    GetSocket().async_read_some(net::buffer(mReceived), Bind(&Session::OnDiscarded));
}

void PanelClient::Session::OnDiscarded(ErrorCode error, size_t bytes)
{
    mDiscarded += bytes;
    if (error || mDiscarded > PanelLimits::kDiscarded) return Close();
    GetSocket().async_read_some(net::buffer(mReceived), Bind(&Session::OnDiscarded));
}

void PanelClient::Session::Answer(const PanelQueue::Result& result)
{
    if (mPhase == Phase::kGone) return;
    mIsAwaitingAnswer = false;
    if (result.font) return SendFont(*result.font);
    mSubscribed = mSubscribed || result.subscribes;
    Queue(result.answer);
}

void PanelClient::Session::Reject()
{
    // A WebSocket gets nothing: a frame may be under way.
    constexpr std::string_view kBusy =
        "HTTP/1.1 503 Service Unavailable\r\nContent-Length: 0\r\nConnection: close\r\n\r\n";
    if (mPhase == Phase::kHeader) {
        (void)send(GetSocket().native_handle(), kBusy.data(), kBusy.size(),
                   MSG_DONTWAIT | MSG_NOSIGNAL);  // best effort
    }
    Close();
}

bool PanelClient::Session::CheckTime()
{
    constexpr int kTimeout = 408;
    const int64_t passed = mContext.now - mSince;
    if (mPhase == Phase::kHeader && passed >= PanelLimits::kTokenMilliseconds) {
        Respond(kTimeout);
    } else if (mPhase == Phase::kNew && passed >= PanelLimits::kTokenMilliseconds) {
        Refuse(kRefusal, websocket::close_code::policy_error);
    } else if ((mPhase == Phase::kAnswer && passed >= PanelLimits::kAnswerMilliseconds) ||
               (mPhase == Phase::kLeaving && passed >= PanelLimits::kFarewellMilliseconds)) {
        Close();
    }
    return mPhase != Phase::kGone;
}

PanelClient::PanelClient(PanelLoop& loop, PanelContext& context, base::FileDescriptor socket,
                         uint64_t number)
    : mSession(std::make_shared<Session>(loop.mState->context, context, std::move(socket), number))
{
    mSession->ReadHeader();
}

PanelClient::~PanelClient()
{
    if (mSession) mSession->Close();
}

PanelClient::PanelClient(PanelClient&&) noexcept = default;

void PanelClient::Answer(const PanelQueue::Result& result)
{
    mSession->Handle([&] { mSession->Answer(result); });
}

void PanelClient::Queue(const PanelMessage& message)
{
    mSession->Handle([&] { mSession->Queue(message); });
}

void PanelClient::Reject() { mSession->Reject(); }
bool PanelClient::CheckTime() { return mSession->CheckTime(); }
uint64_t PanelClient::GetNumber() const { return mSession->mNumber; }
bool PanelClient::HasToken() const
{
    const Session::Phase phase = mSession->mPhase;
    return mSession->mHasToken &&
           (phase == Session::Phase::kServed || phase == Session::Phase::kAnswer);
}

bool PanelClient::IsSubscriber() const
{
    return mSession->mPhase == Session::Phase::kServed && mSession->mSubscribed;
}

}  // namespace plugincore
