#include <algorithm>
#include <cstring>

#include "suites/SuiteCall.h"
#include "suites/SuiteTable.h"
#include "suites/SuiteTables.h"
#include "suites/TextObjects.h"

namespace headless {

namespace {

const SuiteRow& kFontSuite = *FindSuiteRow("AI Font Suite");

AIErr GetDefaultFontForScript(AIFaceScript script, AIFontKey* key)
{
    return Answer(kFontSuite, "GetDefaultFontForScript", [&](SuiteCall& call) {
        call.Arg("script", script);
        if (!call.Require(key, "key")) return kHostBadParameter;
        const std::string& name = call.host.fonts.GetDefaultName(script);
        if (name.empty()) return kHostBadParameter;
        *key = call.host.fonts.GetKey(name);
        call.OutHandle("key", *key);
        return kHostSuccess;
    });
}

AIErr GetPostScriptFontName(AIFontKey key, char* buffer, short bufferSize)
{
    return Answer(kFontSuite, "GetPostScriptFontName", [&](SuiteCall& call) {
        call.Handle("key", key);
        call.Arg("bufferSize", bufferSize);
        // Without any font there is no key that the plug-in could ask about. That is no violation.
        if (key == nullptr && call.host.fonts.GetDefaultName(HostFonts::kSystemScript).empty()) {
            return kHostBadParameter;
        }
        const auto* const font = call.Find<FontKeyObject>(key);
        if (font == nullptr || !call.Require(buffer, "buffer")) return kHostBadParameter;
        if (bufferSize <= 0) return call.Refuse(kBadArgument, "the buffer size is not positive");
        const size_t length =
            std::min(font->postScriptName.size(), static_cast<size_t>(bufferSize) - 1);
        std::memcpy(buffer, font->postScriptName.data(), length);
        buffer[length] = '\0';
        call.Out("name", static_cast<const char*>(buffer));
        return kHostSuccess;
    });
}

AIErr FontKeyFromFontRef(ATE::_Font* font, AIFontKey* key)
{
    return Answer(kFontSuite, "FontKeyFromFontRef", [&](SuiteCall& call) {
        call.Handle("font", font);
        const auto* const object = call.Find<FontRef>(font);
        if (object == nullptr || !call.Require(key, "key")) return kHostBadParameter;
        // A mixed text range has the null font, which has no key. That is no violation.
        if (object->postScriptName.empty()) return kHostBadParameter;
        *key = call.host.fonts.GetKey(object->postScriptName);
        call.OutHandle("key", *key);
        return kHostSuccess;
    });
}

}  // namespace

const AIFontSuite kFontsTable = {GetDefaultFontForScript, GetPostScriptFontName,
                                 FontKeyFromFontRef};

}  // namespace headless
