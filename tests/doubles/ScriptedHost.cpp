#include "ScriptedHost.h"

#include <algorithm>
#include <stdexcept>

#include "ScriptedHostSuites.h"

namespace {

ScriptedHost* gCurrent = nullptr;

SPPluginRef Self() { return reinterpret_cast<SPPluginRef>(0x5E1F0); }

bool BeginsWith(const std::string& text, const std::string& beginning)
{
    return text.compare(0, beginning.size(), beginning) == 0;
}

}  // namespace

ScriptedFileFormatMessage::ScriptedFileFormatMessage(SPMessageData head, const std::string& path)
{
    record.d = head;
    if (!path.empty()) PathSlot(record.filePath) = ScriptedHost::Current().NewHandle();
    if (!path.empty()) ScriptedHost::Current().paths[PathSlot(record.filePath)] = path;
}

ScriptedFileFormatMessage::~ScriptedFileFormatMessage()
{
    ScriptedHost::Current().paths.erase(PathSlot(record.filePath));
    PathSlot(record.filePath) = nullptr;
}

ScriptedHost::ScriptedHost() { gCurrent = this; }

ScriptedHost::~ScriptedHost()
{
    if (gCurrent == this) gCurrent = nullptr;
}

ScriptedHost& ScriptedHost::Current()
{
    if (gCurrent == nullptr) throw std::logic_error("a host function was called without a host");
    return *gCurrent;
}

ScriptedDocument& ScriptedHost::AddDocument(const std::string& path)
{
    documents.emplace_back();
    documents.back().path = path;
    currentDocument = static_cast<int>(documents.size()) - 1;
    return documents.back();
}

_t_AIDocument* ScriptedHost::DocumentHandle(int index) const
{
    return reinterpret_cast<_t_AIDocument*>(0xD0000 + static_cast<std::size_t>(index) * 16);
}

const ScriptedDocument* ScriptedHost::Document() const
{
    if (currentDocument < 0) return nullptr;
    return &documents.at(static_cast<std::size_t>(currentDocument));
}

AINotifierHandle ScriptedHost::NotifierHandle(const std::string& type) const
{
    for (const ScriptedNotifier& notifier : notifiers) {
        if (notifier.type == type) return notifier.handle;
    }
    return nullptr;
}

void ScriptedHost::FailCall(const std::string& operation, int nth, AIErr code)
{
    mFailures.push_back({operation, nth, code});
}

void ScriptedHost::GiveNull(const std::string& operation) { mNulls.push_back(operation); }

bool ScriptedHost::GivesNull(const std::string& operation) const
{
    return std::find(mNulls.begin(), mNulls.end(), operation) != mNulls.end();
}

void ScriptedHost::OnCall(const std::string& operation, std::function<void()> action)
{
    mActions.emplace(operation, std::move(action));
}

void ScriptedHost::RefuseSuite(const std::string& name, int version, AIErr code)
{
    mRefused[{name, version}] = code;
}

void ScriptedHost::AllowSuite(const std::string& name, int version)
{
    mRefused.erase({name, version});
}

std::vector<std::string> ScriptedHost::Calls(const std::string& beginning) const
{
    std::vector<std::string> calls;
    std::copy_if(mCalls.begin(), mCalls.end(), std::back_inserter(calls),
                 [&](const std::string& call) { return BeginsWith(call, beginning); });
    return calls;
}

std::size_t ScriptedHost::CountCalls(const std::string& beginning) const
{
    return Calls(beginning).size();
}

AIErr ScriptedHost::Record(const std::string& operation, const std::string& arguments)
{
    mCalls.push_back(operation + "(" + arguments + ")");
    const auto range = mActions.equal_range(operation);
    std::vector<std::function<void()>> actions;
    for (auto each = range.first; each != range.second; ++each) actions.push_back(each->second);
    for (const auto& action : actions) action();
    AIErr result = kHostSuccess;
    for (Failure& failure : mFailures) {
        if (failure.operation != operation) continue;
        if (failure.nth == 0) result = failure.code;
        if (failure.nth > 0 && --failure.nth == 0) {
            result = failure.code;
            failure.nth = -1;
        }
    }
    return result;
}

AIErr ScriptedHost::Fault(const std::string& text)
{
    mFaults.push_back(text);
    return kHostBadParameter;
}

void* ScriptedHost::NewHandle()
{
    mNextHandle += 16;
    return reinterpret_cast<void*>(mNextHandle);
}

AIErr ScriptedHost::Acquire(const char* name, int version, void** slot)
{
    const AIErr failed =
        Record("SPBasicSuite.AcquireSuite", Quoted(name) + ", " + std::to_string(version));
    if (failed != kHostSuccess) return failed;
    const auto refused = mRefused.find({name, version});
    if (refused != mRefused.end()) return refused->second;
    void* const suite = SuiteNamed(name, version);
    if (suite == nullptr) {
        return Fault("no suite " + Quoted(name) + " of version " + std::to_string(version));
    }
    ++mSuiteReferences[{name, version}];
    *slot = suite;
    return kHostSuccess;
}

AIErr ScriptedHost::ReleaseOne(const char* name, int version)
{
    const AIErr failed =
        Record("SPBasicSuite.ReleaseSuite", Quoted(name) + ", " + std::to_string(version));
    if (failed != kHostSuccess) return failed;
    int& count = mSuiteReferences[{name, version}];
    if (count == 0) return Fault("released once too often: " + Quoted(name));
    --count;
    return kHostSuccess;
}

int ScriptedHost::SuiteReferences(const std::string& name, int version) const
{
    const auto found = mSuiteReferences.find({name, version});
    return found == mSuiteReferences.end() ? 0 : found->second;
}

int ScriptedHost::SuiteReferences() const
{
    int sum = 0;
    for (const auto& entry : mSuiteReferences) sum += entry.second;
    return sum;
}

SPMessageData ScriptedHost::Head() { return {0x53504368, Self(), globals, Basic()}; }

SPInterfaceMessage ScriptedHost::InterfaceMessage() { return {Head()}; }

AINotifierMessage ScriptedHost::NotifierMessage(const std::string& type, void* notifyData)
{
    mNotifierTypes.push_back(type);
    return {Head(), NotifierHandle(type), mNotifierTypes.back().data(), notifyData};
}

AIMenuMessage ScriptedHost::MenuMessage(AIMenuItemHandle item) { return {Head(), item}; }

AITimerMessage ScriptedHost::TimerMessage() { return {Head()}; }

ScriptedFileFormatMessage ScriptedHost::FileFormatMessage(const std::string& path)
{
    return ScriptedFileFormatMessage(Head(), path);
}

std::string Quoted(const char* text)
{
    return text == nullptr ? "(null)" : "\"" + std::string(text) + "\"";
}
