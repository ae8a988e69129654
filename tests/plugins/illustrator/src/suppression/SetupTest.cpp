#include <algorithm>

#include "SuppressionFixture.h"

namespace {

const char* const kEmptyFile =
    "DialogSuppression completely disabled by existence of empty DialogSuppression.tmp";
const char* const kListed = "Suppressing only dialogs listed in DialogSuppression.tmp";

// The inputs of a setup, and its results.
struct SetupRow {
    const char* name;
    const char* overrideLines;  // null: no file
    const char* settings;
    unsigned int settingsStatus;
    bool enabled;
    bool hooked;
    std::vector<std::string> hints;
    const char* trace;  // null: no trace about suppression
};

class SetupInputs : public testing::TestWithParam<SetupRow> {};

TEST_P(SetupInputs, DetermineTheHookAndTheHints)
{
    InFreshProcess([] {
        const SetupRow& row = GetParam();
        SuppressionFixture suppression;
        if (row.overrideLines != nullptr) suppression.WriteOverride(row.overrideLines);
        suppression.core->settings = row.settings;
        suppression.core->statuses["GetSettings"] = row.settingsStatus;

        SetupIllustratorDialogSuppression(row.enabled);

        EXPECT_EQ(row.hooked, suppression.Slot() != suppression.ownSession);
        EXPECT_EQ(HintTracesOf(row.hints), HintTraces());
        const std::vector<std::string> called = suppression.core->CalledNames();
        EXPECT_EQ(row.overrideLines == nullptr ? 1 : 0,
                  std::count(called.begin(), called.end(), "GetSettings"));
        std::vector<std::string> reasons;
        for (const std::string& text : TraceTexts()) {
            if (text == kEmptyFile || text == kListed ||
                text.rfind("DialogSuppression overridden", 0) == 0) {
                reasons.push_back(text);
            }
        }
        EXPECT_EQ(
            row.trace == nullptr ? std::vector<std::string>() : std::vector<std::string>{row.trace},
            reasons);
        EXPECT_EQ(
            "Entering SetupIllustratorDialogSuppression(" + std::to_string(int{row.enabled}) + ")",
            Traces().front().text);
        EXPECT_EQ(1, Traces().front().indentChange);
        EXPECT_EQ(
            "Exiting SetupIllustratorDialogSuppression(" + std::to_string(int{row.hooked}) + ")",
            Traces().back().text);
        EXPECT_EQ(-1, Traces().back().indentChange);
    });
}

const char* const kNoSettings = "{}";
const std::vector<std::string> kNone;
const std::vector<std::string> kLines = {"Fonts", "Schriften"};

INSTANTIATE_TEST_SUITE_P(
    Setup, SetupInputs,
    testing::Values(
        SetupRow{"NoFileNoKeyEnabled", nullptr, kNoSettings, 0, true, true, kBuiltInHints, nullptr},
        SetupRow{"NoFileNoKeyDisabled", nullptr, kNoSettings, 0, false, false, kBuiltInHints,
                 nullptr},
        SetupRow{"NoFileZero", nullptr, R"({"DialogSuppression":"0"})", 0, true, true,
                 kBuiltInHints, nullptr},
        SetupRow{"NoFileOne", nullptr, R"({"DialogSuppression":"1"})", 0, true, true, kBuiltInHints,
                 nullptr},
        SetupRow{"NoFileOneDisabled", nullptr, R"({"DialogSuppression":"1"})", 0, false, false,
                 kBuiltInHints, nullptr},
        SetupRow{"NoFileNegative", nullptr, R"({"DialogSuppression":"-7"})", 0, true, true,
                 kBuiltInHints, nullptr},
        SetupRow{"NoFileNoNumber", nullptr, R"({"DialogSuppression":"twelve"})", 0, true, true,
                 kBuiltInHints, nullptr},
        SetupRow{"NoFileBareNumber", nullptr, R"({"DialogSuppression":2})", 0, true, true,
                 kBuiltInHints, nullptr},
        SetupRow{"NoFileRubbish", nullptr, "rubbish", 0, true, true, kBuiltInHints, nullptr},
        SetupRow{"NoFileFailedRead", nullptr, R"({"DialogSuppression":"2"})", 0x15000000, true,
                 true, kBuiltInHints, nullptr},
        SetupRow{"NoFileTwo", nullptr, R"({"DialogSuppression":"2"})", 0, true, false, kNone,
                 "DialogSuppression overridden by preference value 2"},
        SetupRow{"NoFileTwoDisabled", nullptr, R"({"DialogSuppression":"2"})", 0, false, false,
                 kNone, "DialogSuppression overridden by preference value 2"},
        SetupRow{"NoFileMany", nullptr, R"({"DialogSuppression":"99"})", 0, true, false, kNone,
                 "DialogSuppression overridden by preference value 99"},
        SetupRow{"EmptyFile", "", R"({"DialogSuppression":"2"})", 0, true, false, kNone,
                 kEmptyFile},
        SetupRow{"EmptyFileDisabled", "", kNoSettings, 0, false, false, kNone, kEmptyFile},
        SetupRow{"FileWithLines", "Fonts\nSchriften\n", R"({"DialogSuppression":"2"})", 0, true,
                 true, kLines, kListed},
        SetupRow{"FileWithLinesDisabled", "Fonts\nSchriften\n", kNoSettings, 0, false, false,
                 kLines, kListed},
        SetupRow{"FileWithAnEmptyLine", "\n", kNoSettings, 0, true, true, {""}, kListed}),
    [](const testing::TestParamInfo<SetupRow>& row) { return std::string(row.param.name); });

TEST(Setup, ReadsTheSettingsIntoABufferOf8192Bytes)
{
    InFreshProcess([] {
        SuppressionFixture suppression;
        std::size_t size = 0;
        static std::size_t* const seen = &size;
        suppression.core.Loader().pfGetSettings = [](char* buffer, std::size_t* ioSize) {
            *seen = *ioSize;
            for (std::size_t i = 0; i < *ioSize; ++i) EXPECT_EQ(0, buffer[i]) << i;
            return 0U;
        };
        SetupIllustratorDialogSuppression(true);
        EXPECT_EQ(8192U, size);
    });
}

TEST(Setup, AcceptsSettingsThatFillTheBuffer)
{
    InFreshProcess([] {
        SuppressionFixture suppression;
        suppression.core.Loader().pfGetSettings = [](char* buffer, std::size_t* ioSize) {
            for (std::size_t i = 0; i < *ioSize; ++i) buffer[i] = ' ';
            const std::string text = R"({"DialogSuppression":"2"})";
            text.copy(buffer, text.size());
            return 0U;
        };
        SetupIllustratorDialogSuppression(true);
        EXPECT_TRUE(HasTrace("DialogSuppression overridden by preference value 2"));
    });
}

TEST(Setup, AddsTheHintsAgainAndKeepsTheHookAtShutdown)
{
    InFreshProcess([] {
        SuppressionFixture suppression;
        SetupIllustratorDialogSuppression(true);
        const BeginModalSessionFunction replacement = suppression.Slot();
        SetupIllustratorDialogSuppression(false);
        EXPECT_EQ(22U, HintTraces().size());
        EXPECT_NE(suppression.ownSession, replacement);
        EXPECT_EQ(replacement, suppression.Slot());
    });
}

TEST(Setup, ReadsNoOverrideFileWithoutPluginCore)
{
    InFreshProcess([] {
        SuppressionFixture suppression;
        suppression.WriteOverride("Fonts\n");
        suppression.core.Loader().missingFunctionCount = 1;
        SetupIllustratorDialogSuppression(true);
        EXPECT_EQ(HintTracesOf(kBuiltInHints), HintTraces());
        EXPECT_NE(suppression.ownSession, suppression.Slot());
    });
}

TEST(Setup, EnablesSuppressionIfPluginCoreLacksGetSettings)
{
    InFreshProcess([] {
        SuppressionFixture suppression;
        suppression.core.Loader().pfGetSettings = nullptr;
        SetupIllustratorDialogSuppression(true);
        EXPECT_EQ(HintTracesOf(kBuiltInHints), HintTraces());
        EXPECT_NE(suppression.ownSession, suppression.Slot());
    });
}

TEST(Setup, StartsNoPeriodWhileAFileWithLinesExists)
{
    InFreshProcess([] {
        SuppressionFixture suppression;
        suppression.WriteOverride("Fonts\n");
        SetupIllustratorDialogSuppression(true);
        SetSuppressionOfMissingFontsDialog(15);
        FakeWindow window("Missing Fonts");
        (void)suppression.Slot()(&window);  // The session itself doesn't matter here.
        EXPECT_TRUE(window.events.empty());
        EXPECT_EQ(1U, suppression.host.modalSessions.size());
    });
}

}  // namespace
