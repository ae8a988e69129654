#include "EndToEnd.h"

using testing::Contains;
using testing::HasSubstr;
using testing::Pair;

TEST_F(EndToEnd, AnEmptyOverrideFileLetsTheDialogShow)
{
    pluginCore = CopyOfPluginCore();
    WriteFile(pluginCore / "DialogSuppression.tmp", "");
    EXPECT_EQ(Open(Sample("missing-font.pdf") + " --json"), 1);
    EXPECT_EQ(Reports().at(0).at("missingFontsDialog"), "shown");
}

TEST_F(EndToEnd, TheSettingOf2LetsTheDialogShow)
{
    WriteFile(home / ".config/Corvanta/settings.json", R"({"DialogSuppression":"2"})");
    EXPECT_EQ(Open(Sample("missing-font.pdf") + " --json"), 1);
    EXPECT_EQ(Reports().at(0).at("missingFontsDialog"), "shown");
}

TEST_F(EndToEnd, ADisabledPluginActivatesNothing)
{
    WriteFile(home / ".config/Corvanta/settings.json", R"({"PluginEnabled":"0"})");
    EXPECT_EQ(Open(Sample("leaflet.eps") + " --json"), 1);
    EXPECT_THAT(States(Reports().at(0)), Contains(Pair("DejaVuSans", "missing")));
    EXPECT_EQ(Reports().at(0).at("missingFontsDialog"), "shown");
}

class HostLanguage : public EndToEnd, public testing::WithParamInterface<const char*> {};

TEST_P(HostLanguage, ItsDialogIsDismissed)
{
    EXPECT_EQ(Open(Sample("missing-font.pdf") + " --json --language " + GetParam()), 1);
    EXPECT_EQ(Reports().at(0).at("missingFontsDialog"), "dismissed");
}

INSTANTIATE_TEST_SUITE_P(All, HostLanguage, testing::Values("en", "es", "fr", "it", "de", "ja"));
