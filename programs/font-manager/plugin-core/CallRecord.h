#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <utility>

namespace plugincore {

// Whether the host in this process keeps a journal, and a line for it. Writing never throws; a line
// that can't be written is left out.
bool OSHasHostJournal();
void OSWriteHostJournal(const char* operation, const nlohmann::json& arguments,
                        const nlohmann::json& result) noexcept;

// One call of an export, told to the host's journal when it returns. Without a journal nothing is
// described. `describe` gives the arguments as a JSON object.
class CallRecord {
public:
    template <class Describe>
    CallRecord(const char* name, Describe describe) : mName(name)
    {
        try {
            if (OSHasHostJournal()) mArguments = describe();
        } catch (const std::exception&) {
            // A call that can't be described is told without its arguments.
            mArguments = nlohmann::json::object();
        }
    }
    CallRecord(const CallRecord&) = delete;
    CallRecord& operator=(const CallRecord&) = delete;

    unsigned int Return(unsigned int status) const
    {
        return Return(status, [] { return nlohmann::json::object(); });
    }

    // `describe` gives what went out as a JSON object.
    template <class Describe>
    unsigned int Return(unsigned int status, Describe describe) const
    {
        if (mArguments.is_null()) return status;
        try {
            nlohmann::json result = describe();
            result["status"] = status;
            OSWriteHostJournal(mName, mArguments, result);
        } catch (const std::exception&) {
            OSWriteHostJournal(mName, mArguments, status);
        }
        return status;
    }

private:
    const char* mName;
    nlohmann::json mArguments;  // null without a journal
};

// A text that may be null.
inline nlohmann::json ToRecord(const char* text)
{
    return text != nullptr ? nlohmann::json(text) : nlohmann::json();
}

}  // namespace plugincore
