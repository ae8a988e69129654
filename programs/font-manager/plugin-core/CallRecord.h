#pragma once

#include <nlohmann/json.hpp>

namespace plugincore {

// Whether the program of this process exports a journal, as headless-host does for its tests.
bool OSHasHostJournal();

// Appends a call to the journal, which must exist. A record that can't be written is dropped.
void OSWriteHostJournal(const char* operation, const nlohmann::json& arguments,
                        const nlohmann::json& result) noexcept;

// Records one call of an export in the host's journal when the call returns. Does nothing without a
// journal. No member throws.
class CallRecord {
public:
    // name      the export; has to outlive this object
    // describe  returns the arguments as a JSON object; only called if there is a journal
    template <class Describe>
    CallRecord(const char* name, Describe describe) : mName(name)
    {
        try {
            if (OSHasHostJournal()) mArguments = describe();
        } catch (const std::exception&) {
            // The call itself matters more than its record.
            mArguments = nlohmann::json::object();
        }
    }
    CallRecord(const CallRecord&) = delete;
    CallRecord& operator=(const CallRecord&) = delete;

    // Records the status and returns it.
    unsigned int Return(unsigned int status) const
    {
        return Return(status, [] { return nlohmann::json::object(); });
    }

    // The same with results: `describe` returns them as a JSON object.
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

// The text as JSON; null for a null pointer.
inline nlohmann::json ToRecord(const char* text)
{
    return text != nullptr ? nlohmann::json(text) : nlohmann::json();
}

}  // namespace plugincore
