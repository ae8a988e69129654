#include "plugin-core/CallRecord.h"

#include <dlfcn.h>

#include "base/JsonText.h"

namespace plugincore {

namespace {

typedef void (*JournalFunction)(const char* side, const char* operation, const char* arguments,
                                const char* result);

// Looked up by name: PluginCore must load into hosts that don't export it.
JournalFunction FindJournal()
{
    static const auto sJournal =
        reinterpret_cast<JournalFunction>(dlsym(RTLD_DEFAULT, "HeadlessHostJournal"));
    return sJournal;
}

}  // namespace

bool OSHasHostJournal() { return FindJournal() != nullptr; }

void OSWriteHostJournal(const char* operation, const nlohmann::json& arguments,
                        const nlohmann::json& result) noexcept
{
    try {
        FindJournal()("core", operation, base::PrintJson(arguments).c_str(),
                      base::PrintJson(result).c_str());
    } catch (...) {
        // The call has been done; only its record is lost.
    }
}

}  // namespace plugincore
