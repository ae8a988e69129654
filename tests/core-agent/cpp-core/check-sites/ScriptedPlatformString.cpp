#include "ScriptedPlatformString.h"

#include "GPlatformString.h"

namespace {

typedef ScriptedPlatformString::Step Step;

class ScriptedString : public GPlatformString {
public:
    std::string GetExpandedFileSystemRepresentation() const override
    {
        ScriptedPlatformString& script = ScriptedPlatformString::Current();
        script.calls.emplace_back("expand");
        if (script.expansion == Step::kThrows) throw GPlatformException(script.description);
        return script.expanded;
    }
};

std::unique_ptr<GPlatformString> Make(const std::string& call, Step step)
{
    ScriptedPlatformString& script = ScriptedPlatformString::Current();
    script.calls.push_back(call);
    if (step == Step::kThrows) throw GPlatformException(script.description);
    if (step == Step::kReturnsNull) return nullptr;
    return std::make_unique<ScriptedString>();
}

}  // namespace

ScriptedPlatformString& ScriptedPlatformString::Current()
{
    static ScriptedPlatformString script;
    return script;
}

std::unique_ptr<GPlatformString> GPlatformString::MakeFromUTF8(const char* text)
{
    return Make(std::string("utf8 ") + text, ScriptedPlatformString::Current().utf8);
}

std::unique_ptr<GPlatformString> GPlatformString::MakeFromMacRoman(const char* text)
{
    return Make(std::string("MacRoman ") + text, ScriptedPlatformString::Current().macRoman);
}
