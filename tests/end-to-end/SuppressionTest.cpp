#include "EndToEnd.h"

using testing::Contains;
using testing::HasSubstr;
using testing::Pair;

TEST_F(EndToEnd, AnEmptyOverrideFileLetsTheDialogShow)
{
    pluginCore = CopyOfPluginCore();
    WriteFile(pluginCore / "DialogSuppression.tmp", "");
    EXPECT_EQ(1, Open(Sample("missing-font.pdf") + " --json"));
    EXPECT_EQ("shown", Reports().at(0).at("missingFontsDialog"));
}

TEST_F(EndToEnd, Setting2LetsTheDialogShow)
{
    WriteFile(home / ".config/Corvanta/settings.json", R"({"DialogSuppression":"2"})");
    EXPECT_EQ(1, Open(Sample("missing-font.pdf") + " --json"));
    EXPECT_EQ("shown", Reports().at(0).at("missingFontsDialog"));
}

TEST_F(EndToEnd, ADisabledPluginActivatesNothing)
{
    WriteFile(home / ".config/Corvanta/settings.json", R"({"PluginEnabled":"0"})");
    EXPECT_EQ(1, Open(Sample("leaflet.eps") + " --json"));
    EXPECT_THAT(States(Reports().at(0)), Contains(Pair("DejaVuSans", "missing")));
    EXPECT_EQ("shown", Reports().at(0).at("missingFontsDialog"));
}

class HostLanguage : public EndToEnd, public testing::WithParamInterface<const char*> {};

TEST_P(HostLanguage, TheDialogIsDismissed)
{
    EXPECT_EQ(1, Open(Sample("missing-font.pdf") + " --json --language " + GetParam()));
    EXPECT_EQ("dismissed", Reports().at(0).at("missingFontsDialog"));
}

INSTANTIATE_TEST_SUITE_P(All, HostLanguage, testing::Values("en", "es", "fr", "it", "de", "ja"));
