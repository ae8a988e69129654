#include "panel/PanelConnection.h"

#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/beast/core/buffers_to_string.hpp>
#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/websocket.hpp>  // IWYU pragma: keep
#include <chrono>
#include <deque>

namespace net = boost::asio;
namespace beast = boost::beast;
namespace websocket = boost::beast::websocket;
using ErrorCode = boost::beast::error_code;

namespace headless {

namespace {

constexpr std::size_t kMostInAStep = std::size_t{64} << 10U;  // bytes to mask and send

}  // namespace

// The handlers refer to this object. They are called by Pump alone, and deleted with the context.
class PanelConnection::Socket {
public:
    explicit Socket(int port) : mName("127.0.0.1:" + std::to_string(port))
    {
        mStream.read_message_max(kMaximumBuffer);
        mStream.auto_fragment(false);
        mStream.write_buffer_bytes(kMostInAStep);
        const net::ip::tcp::endpoint server(net::ip::address_v4::loopback(),
                                            static_cast<unsigned short>(port));
        mStream.next_layer().async_connect(server, [this](ErrorCode error) {
            if (error) return Fail(error);
            mStream.async_handshake(mAnswer, mName, "/socket",
                                    [this](ErrorCode code) { OnOpen(code); });
        });
    }

    void Queue(const std::string& message)
    {
        mOutput.push_back(message);
        Send();
    }

    void Pump(int milliseconds)
    {
        mContext.restart();  // it stops when no operation is left
        if (mContext.poll() != 0 || milliseconds == 0) return;
        (void)mContext.run_one_for(std::chrono::milliseconds(milliseconds));
        (void)mContext.poll();  // both numbers of steps don't matter
    }

    std::optional<std::string> Take()
    {
        if (mInput.empty()) return std::nullopt;
        std::string message = std::move(mInput.front());
        mInput.pop_front();
        mInputBytes -= message.size();
        return message;
    }

    const std::string& GetError() const { return mError; }

private:
    void OnOpen(ErrorCode error)
    {
        if (error == websocket::error::upgrade_declined) {
            return Fail("the server refuses a WebSocket: HTTP status " +
                        std::to_string(mAnswer.result_int()));
        }
        if (error) return Fail(error);
        mIsOpen = true;
        mStream.text(true);
        Receive();
        Send();
    }

    void Send()
    {
        if (!mIsOpen || mIsSending || mOutput.empty() || !mError.empty()) return;
        mIsSending = true;
        // A failure shows in the read that waits, after messages that may explain it.
        mStream.async_write(net::buffer(mOutput.front()), [this](ErrorCode error, std::size_t) {
            mIsSending = false;
            if (error) return;
            mOutput.pop_front();
            Send();
        });
    }

    void Receive()
    {
        mStream.async_read(mBuffer, [this](ErrorCode error, std::size_t) {
            if (error) return Fail(error);
            mInput.push_back(beast::buffers_to_string(mBuffer.data()));
            mInputBytes += mInput.back().size();
            mBuffer.consume(mBuffer.size());
            if (mInputBytes > kMaximumBuffer) {
                mInput.clear();
                return Fail("the answer is too long");
            }
            Receive();
        });
    }

    void Fail(ErrorCode error)
    {
        if (error == websocket::error::message_too_big) return Fail("the answer is too long");
        const bool isEnd = error == websocket::error::closed || error == net::error::eof ||
                           error == beast::http::error::end_of_stream;
        if (!isEnd) return Fail(error.message());
        Fail(mBuffer.size() == 0 ? "the connection was closed"
                                 : "the connection was closed in the middle of a message");
    }
    void Fail(const std::string& reason) { mError = mName + ": " + reason; }

    net::io_context mContext{1};
    websocket::stream<net::ip::tcp::socket, false> mStream{mContext};
    std::string mName;
    websocket::response_type mAnswer;  // to the handshake
    beast::flat_buffer mBuffer;
    std::deque<std::string> mInput;
    std::size_t mInputBytes = 0;
    std::deque<std::string> mOutput;
    bool mIsOpen = false;
    bool mIsSending = false;
    std::string mError;
};

PanelConnection::PanelConnection(std::unique_ptr<Socket> socket) : mSocket(std::move(socket)) {}
PanelConnection::~PanelConnection() = default;

std::unique_ptr<PanelConnection> PanelConnection::Open(int port, std::string& error)
{
    try {
        return std::unique_ptr<PanelConnection>(
            new PanelConnection(std::make_unique<Socket>(port)));
    } catch (const std::exception& exception) {
        error = "127.0.0.1:" + std::to_string(port) + ": " + exception.what();
        return nullptr;
    }
}

void PanelConnection::Queue(const std::string& message) { mSocket->Queue(message); }
void PanelConnection::Pump(int milliseconds) { mSocket->Pump(milliseconds); }
std::optional<std::string> PanelConnection::TakeMessage() { return mSocket->Take(); }
const std::string& PanelConnection::GetError() const { return mSocket->GetError(); }

}  // namespace headless
