#pragma once

#include <string>

#include "model/Host.h"
#include "model/PluginCode.h"

namespace headless {

// The text of a document that is over TextWalkLimit: 'TIME'.
constexpr AIErr kHostTakesTooLong = 0x54494D45;

// One call of a suite operation by the plug-in: collects what the journal gets, checks arguments
// and records violations. Lives during the call.
class SuiteCall {
public:
    // row, operationName   the suite and the operation; must outlive the call
    SuiteCall(Host& host, const SuiteRow& row, const char* operationName);

    // Arg and Handle add an argument to the journal's line, Out and OutHandle a result. They do
    // nothing while no journal is written.
    template <class Value>
    void Arg(const char* name, const Value& value)
    {
        if (mWanted) mArguments[name] = value;
    }
    void Handle(const char* name, const void* handle)
    {
        if (mWanted) mArguments[name] = host.handles.Describe(handle);
    }
    template <class Value>
    void Out(const char* name, const Value& value)
    {
        if (mWanted) mResults[name] = value;
    }
    void OutHandle(const char* name, const void* handle)
    {
        if (mWanted) mResults[name] = host.handles.Describe(handle);
    }

    // Records a violation and returns the status for a bad parameter.
    AIErr Refuse(BrokenRule rule, const std::string& reason);

    // Returns false, and records a violation, if a required pointer argument is null.
    bool Require(const void* pointer, const char* name);

    // See HandleRegister::Find.
    template <class Object>
    Object* Find(const void* handle)
    {
        return host.handles.Find<Object>(handle, operation);
    }

    // Returns false, and records a violation, if the plug-in hasn't acquired the suite.
    bool IsAllowed();

    // Returns true if this call shall fail, which Host::failures and Host::suiteFaults say.
    //
    // exceptionType   out: what it shall throw; empty for nothing
    bool TakeFailure(AIErr& status, std::string& exceptionType);

    // Writes the line to the journal.
    void Finish(int result);

    Host& host;
    const CallName operation;  // the suite and the operation

private:
    const SuiteRow& mRow;
    const char* const mName;  // of the operation alone
    const bool mWanted;
    nlohmann::json mArguments;  // null until there is one
    nlohmann::json mResults;
};

// Runs a suite operation: `body` gets the call and returns the status. Catches all exceptions,
// because the caller is the plug-in, and throws only those that Host::suiteFaults orders.
template <class Body>
AIErr Answer(const SuiteRow& row, const char* operation, Body body)
{
    Host* const host = Host::GetCurrent();
    if (host == nullptr) return kHostBadParameter;
    const plugin_code::Scope scope(false);
    AIErr result = kHostBadParameter;
    std::string exceptionType;
    try {
        SuiteCall call(*host, row, operation);
        host->BeginCall(operation);
        if (call.IsAllowed() && !call.TakeFailure(result, exceptionType)) result = body(call);
        call.Finish(result);
    } catch (...) {
        return kHostOutOfMemory;
    }
    if (!exceptionType.empty()) ThrowFault(exceptionType);
    return result;
}

// The plug-in's classes for strings and paths contain one pointer, a handle of the host. The host
// reads and writes this handle and never constructs or destroys such an object, because the member
// functions of the class call the suites.
template <class Wrapper>
void* GetHandle(const Wrapper& wrapper)
{
    static_assert(sizeof(Wrapper) == sizeof(void*));
    return *reinterpret_cast<void* const*>(&wrapper);
}

template <class Wrapper>
void SetHandle(Wrapper& wrapper, void* pointer)
{
    static_assert(sizeof(Wrapper) == sizeof(void*));
    *reinterpret_cast<void**>(&wrapper) = pointer;
}

// Sets the plug-in's string to a new handle and releases the one it had. An empty text is the null
// handle.
template <class Wrapper>
void PutString(SuiteCall& call, Wrapper& wrapper, const std::string& text)
{
    if (GetHandle(wrapper) != nullptr) {
        // An invalid handle is recorded as a violation, then overwritten.
        (void)call.host.handles.Release(GetHandle(wrapper), HandleType::kString, call.operation);
    }
    SetHandle(wrapper, text.empty() ? nullptr
                                    : call.host.handles.Issue(
                                          std::make_shared<StringObject>(StringObject{text})));
}

}  // namespace headless
