#include "validator/random/RandomCore.h"

#include "session/SessionWords.h"

namespace headless {

namespace {

// What a function writes, which decides which keys change it.
enum class Output { kNone, kNumber, kFlag, kText, kTextAndFlag, kFonts, kMenus, kSettings };

struct CoreFunction {
    const char* name;
    Output output;
    bool canRebuild;  // it is called when PluginCore may rebuild the library menu
};

constexpr CoreFunction kAnsweredFunctions[] = {
    {"ActivateChosenFonts", Output::kNumber, false},
    {"GetIDForDocument", Output::kText, false},
    {"GetMenus", Output::kMenus, false},
    {"GetSettings", Output::kSettings, false},
    {"GetSocketPort", Output::kNumber, false},
    {"HandleCloseDocument", Output::kNone, false},
    {"HandleCreateNewDocument", Output::kText, false},
    {"HandleMenuSelection", Output::kNone, true},
    {"HandleOpenExistingDocument", Output::kFonts, false},
    {"HandleSaveDocument", Output::kNone, false},
    {"IdleEvent", Output::kNone, true},
    {"InvokeCommandDialog", Output::kTextAndFlag, false},
    {"InvokeResolveDialog", Output::kFonts, false},
    {"PluginIsEnabled", Output::kFlag, false},
    {"ProcessPanelMessages", Output::kNone, true},
    {"RegisterPlugPlug", Output::kNone, false},
    {"UpdateDocumentFontUsage", Output::kNone, false},
};

constexpr const char* kStatuses[] = {"1",         "-1",        "16777216",  "67108864",
                                     "83886080",  "117440512", "150994944", "201326592",
                                     "218103808", "285212672", "352321536"};
constexpr const char* kThrownTypes[] = {"ai::Error", "ATE::Exception", "int", "std::exception",
                                        "foreign"};

constexpr const char* kFontTexts[] = {
    R"([{"PostScriptName":"Missing-One"}])",
    R"([{"PostScriptName":"Missing-One"},{"PostScriptName":"Beta-Bold"}])",
    R"({"DocumentFonts":[{"PostScriptName":"Missing-Two"}]})",
    R"([{"PostScriptName":"Default-Regular"}])",
    R"([{"PostScriptName":"Missing-One"},{"PostScriptName":"Missing-One"}])",
    R"([])",
    R"([{"Name":"no PostScript name"}])",
    R"([{"PostScriptName":7}])",
    R"({"DocumentFonts":3})",
};
constexpr const char* kIdTexts[] = {"", "id:1", "id with spaces", "\"", "{}"};
constexpr const char* kSettingTexts[] = {
    R"({"DialogSuppression":"1"})", R"({"DialogSuppression":"2"})", R"({"DialogSuppression":2})",
    R"({"DialogSuppression":"99999999999999999999"})", R"({})"};
constexpr const char* kWrongTexts[] = {"",       "{",       "[1,2",           "null", "42",
                                       "\"text", "[1e999]", "{\"child\":{}}", "[[]]", "no JSON"};
// Invalid UTF-8, a zero byte in the middle, a cut character.
constexpr const char* kWrongBytes[] = {"FF", "5B7B0022", "C328", "EDA080", "7B22C3", "00"};

struct MenuText {
    const char* text;
    bool disables;
};

// The ids are those of the simulated PluginCore's own tree.
constexpr MenuText kMenuTexts[] = {
    {R"({"id":"root","label":"root","title":"root","checked":false,"enabled":true,"child":[]})",
     false},
    {R"({"id":"root","label":"root","title":"root","checked":false,"enabled":true,"child":[)"
     R"({"id":"select","label":"Select Library","title":"Select Library","checked":false,)"
     R"("enabled":true,"child":[{"id":"three","label":"Three","title":"Three","checked":true,)"
     R"("enabled":true,"child":[]}]}]})",
     false},
    {R"({"id":"root","label":"root","title":"root","checked":false,"enabled":true,"child":[)"
     R"({"id":"select","label":"Select Library","title":"Select Library","checked":false,)"
     R"("enabled":true,"child":[]}]})",
     false},
    {R"({"id":"root","label":"root","title":"root","checked":false,"enabled":true,"child":[)"
     R"({"id":"activate","label":"Activate Fonts","title":"Activate Fonts","checked":true,)"
     R"("enabled":false,"child":[]},{"id":"select","label":"Select Library",)"
     R"("title":"Select Library","checked":false,"enabled":false,"child":[{"id":"one",)"
     R"("label":"One","title":"One","checked":true,"enabled":false,"child":[]}]}]})",
     true},
    {R"({"id":"root","label":"root","title":"Activate Fonts"})", false},
    {R"({"id":"root","label":"root","title":"root","child":[{"title":"About","enabled":"no"}]})",
     false},
    {R"({"id":"root","label":"root","title":"root","child":[{"label":"Select Library"}]})", false},
    {R"({"child":7})", false},
    {R"([{"id":"a","label":"a","title":"","checked":false,"enabled":true,"child":[]}])", false},
};

std::string Nest(size_t depth) { return std::string(depth, '['); }

class CoreLineMaker {
public:
    explicit CoreLineMaker(RandomNumbers& random) : mRandom(random) {}

    CoreLine Make()
    {
        const CoreFunction& function = mRandom.Pick(kAnsweredFunctions);
        mLine.function = function.name;
        mLine.line = "core " + mLine.function;
        if (function.canRebuild && mRandom.Once(2)) {
            mLine.line += " rebuild";
            mLine.rebuilds = true;
        } else if (function.output == Output::kNone || mRandom.Once(3)) {
            AddFailure(function);
        } else {
            AddOutput(function.output);
        }
        AddTimes(function);
        return std::move(mLine);
    }

private:
    void AddKey(const std::string& key, const std::string& value)
    {
        mLine.line += " " + QuoteSessionWord(key + "=" + value);
    }

    // The settings are read once more at the end of the shutdown, which an exception would cut off.
    void AddFailure(const CoreFunction& function)
    {
        if (function.output != Output::kSettings && mRandom.Once(2)) {
            AddKey("throw", mRandom.Pick(kThrownTypes));
        } else {
            AddKey("status", mRandom.Pick(kStatuses));
        }
    }

    void AddOutput(Output output)
    {
        switch (output) {
            case Output::kNone:
                break;
            case Output::kNumber:
                AddKey("number", mRandom.Pick(kNumbers));
                break;
            case Output::kFlag:
                AddKey("flag", mRandom.Once(4) ? "true" : "false");
                break;
            case Output::kText:
                AddText(mRandom.Pick(kIdTexts));
                break;
            case Output::kTextAndFlag:
                AddKey("text", mRandom.Pick(kIdTexts));
                AddKey("flag", mRandom.Once(2) ? "true" : "false");
                break;
            case Output::kFonts:
                AddText(mRandom.Pick(kFontTexts));
                break;
            case Output::kSettings:
                AddText(mRandom.Pick(kSettingTexts));
                break;
            case Output::kMenus: {
                const MenuText& menus = mRandom.Pick(kMenuTexts);
                mLine.disablesItems = AddText(menus.text) && menus.disables;
                break;
            }
        }
    }

    // Adds `text`, or now and then something that isn't text of this kind. Returns whether it is
    // `text`.
    bool AddText(const std::string& text)
    {
        switch (mRandom.Below(10)) {
            case 0:
                AddKey("text", mRandom.Pick(kWrongTexts));
                return false;
            case 1:
                AddKey("hex", mRandom.Pick(kWrongBytes));
                return false;
            case 2:
                AddKey("fill", std::string(1, "x[\"{"[mRandom.Below(4)]));
                return false;
            case 3:
                AddKey("text", Nest(mRandom.Between(2, 600)));
                return false;
            case 4:
                // Never more than the capacity of any buffer: such a size is an error that only
                // PluginCore could recognize, when it gets the size back.
                AddKey("size", mRandom.Pick(kSizes));
                return false;
            default:
                AddKey("text", text);
                return true;
        }
    }

    void AddTimes(const CoreFunction& function)
    {
        // While the plug-in is disabled little happens, so it never remains so.
        const bool isLimited = function.output == Output::kFlag || mLine.rebuilds;
        if (isLimited || mRandom.Once(2)) AddKey("times", std::to_string(mRandom.Between(1, 6)));
    }

    static constexpr const char* kNumbers[] = {"0", "1", "-1", "65535", "65536", "2147483647"};
    static constexpr const char* kSizes[] = {"0", "1", "16", "255"};

    RandomNumbers& mRandom;
    CoreLine mLine;
};

}  // namespace

CoreLine MakeCoreLine(RandomNumbers& random) { return CoreLineMaker(random).Make(); }

std::string MakeFaultKind(RandomNumbers& random)
{
    if (random.Once(2)) return random.Pick(kStatuses);
    return std::string("throw:") + random.Pick(kThrownTypes);
}

}  // namespace headless
