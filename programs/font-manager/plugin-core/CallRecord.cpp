#include "plugin-core/CallRecord.h"

#include <dlfcn.h>

namespace plugincore {

namespace {

typedef void (*JournalFunction)(const char* side, const char* operation, const char* arguments,
                                const char* result);

// The host executable exports it; any other host has none.
JournalFunction FindJournal()
{
    static const auto sJournal =
        reinterpret_cast<JournalFunction>(dlsym(RTLD_DEFAULT, "HeadlessHostJournal"));
    return sJournal;
}

std::string Print(const nlohmann::json& value)
{
    return value.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

}  // namespace

bool OSHasHostJournal() { return FindJournal() != nullptr; }

void OSWriteHostJournal(const char* operation, const nlohmann::json& arguments,
                        const nlohmann::json& result) noexcept
try {
    FindJournal()("core", operation, Print(arguments).c_str(), Print(result).c_str());
} catch (...) {
    // The journal is an aid: the call itself has been done.
}

}  // namespace plugincore
