#pragma once

#include <string>

#include "model/Host.h"
#include "suites/SuiteTable.h"

namespace headless {

// One call of a suite by the guest, on its way to the journal.
class SuiteCall {
public:
    SuiteCall(Host& host, const SuiteRow& row, const char* operationName);

    // What goes to the journal; nothing is made while no journal is written.
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

    // An error of the guest in this call.
    AIErr Refuse(const std::string& reason);

    // Whether a pointer that the guest gives to be filled or read is there; else an error.
    bool Require(const void* pointer, const char* name);

    template <class Object>
    Object* Find(const void* handle)
    {
        return host.handles.Find<Object>(handle, operation);
    }

    // False, and an error, if the guest doesn't hold the suite it calls.
    bool IsAllowed();
    void Finish(int result);

    Host& host;
    const std::string operation;  // the suite and the operation, as errors name it

private:
    const SuiteRow& mRow;
    const bool mWanted;
    nlohmann::json mArguments = nlohmann::json::object();
    nlohmann::json mResults = nlohmann::json::object();
};

// Runs a suite operation. Nothing is thrown out of it: it is called from the guest.
template <class Body>
AIErr Answer(const SuiteRow& row, const char* operation, Body body) noexcept
{
    Host* const host = Host::GetCurrent();
    if (host == nullptr) return kHostBadParameter;
    try {
        SuiteCall call(*host, row, operation);
        const AIErr result = call.IsAllowed() ? body(call) : kHostBadParameter;
        call.Finish(result);
        return result;
    } catch (...) {
        return kHostOutOfMemory;
    }
}

// The wrappers of strings and paths are one pointer each; the host works on that pointer and never
// makes or destroys a wrapper, whose members belong to the guest.
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

// Puts a new string into the guest's wrapper; what it held is given back. An empty text is the null
// string.
template <class Wrapper>
void PutString(SuiteCall& call, Wrapper& wrapper, const std::string& text)
{
    if (GetHandle(wrapper) != nullptr) {
        // A slot with rubbish in it is reported by the register and then overwritten.
        (void)call.host.handles.Release(GetHandle(wrapper), HandleType::kString, call.operation);
    }
    SetHandle(wrapper, text.empty() ? nullptr
                                    : call.host.handles.Issue(
                                          std::make_shared<StringObject>(StringObject{text})));
}

}  // namespace headless
