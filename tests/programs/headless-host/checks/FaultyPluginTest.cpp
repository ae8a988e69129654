#include <filesystem>

#include "HostFixture.h"

using testing::ElementsAre;

// Test plug-ins that break one rule each and are named after it.
class FaultyPlugin : public HostFixture {
protected:
    FaultyPlugin() { AddFrame({"Missing-Font"}); }

    // Runs the test plug-in with so many documents and returns its violations.
    std::vector<std::string> GetErrors(const std::string& plugin, int documents = 1)
    {
        std::vector<std::string> names;
        for (int i = 0; i < documents; ++i) names.push_back(std::to_string(i) + ".pdf");
        RunPlugin(plugin, names);
        return host->violations.Lines();
    }
};

TEST_F(FaultyPlugin, ReleasesSuiteTwice)
{
    EXPECT_THAT(GetErrors("releases-suite-twice"),
                ElementsAre("ReleaseSuite: \"AI Font Suite\" version 1006 is released more often "
                            "than acquired"));
}

TEST_F(FaultyPlugin, LeaksSuite)
{
    EXPECT_THAT(GetErrors("leaks-suite"),
                ElementsAre("Unload: suite \"ATE Spell Suite\" version 102 was not released, "
                            "references left: 1"));
}

TEST_F(FaultyPlugin, CallsReleasedSuite)
{
    EXPECT_THAT(GetErrors("calls-released-suite"),
                ElementsAre("AI Document Suite, GetDocument: the suite is called without being "
                            "acquired"));
}

TEST_F(FaultyPlugin, UsesExpiredTextRange)
{
    EXPECT_THAT(GetErrors("uses-expired-text-range"),
                ElementsAre(testing::MatchesRegex("ATE TextRange Suite, GetUniqueCharFeatures: "
                                                  "text range#[0-9]+ has expired")));
}

TEST_F(FaultyPlugin, LeaksTextRange)
{
    EXPECT_THAT(GetErrors("leaks-text-range"),
                ElementsAre(testing::MatchesRegex("Unload: text range#[0-9]+ was not given back")));
}

TEST_F(FaultyPlugin, UsesArtOfClosedDocument)
{
    headless::Application application(*host, "en");
    std::string error;
    ASSERT_TRUE(application.Start(GetPluginPath("uses-art-of-closed-document"), error)) << error;
    (void)application.Open(MakeFile("a.pdf"), "a.pdf");
    application.Documents().Close(host->GetCurrentDocument());
    (void)application.Open(MakeFile("b.pdf"), "b.pdf");
    application.ShutDown();
    EXPECT_THAT(host->violations.Lines(),
                ElementsAre(testing::MatchesRegex("AI Text Frame Suite, GetATETextFrame: "
                                                  "art#[0-9]+ has expired")));
}

TEST_F(FaultyPlugin, NullHandle)
{
    EXPECT_THAT(GetErrors("null-handle"),
                ElementsAre("AI Text Frame Suite, GetATETextRange: the art is null"));
}

TEST_F(FaultyPlugin, WrongType)
{
    EXPECT_THAT(
        GetErrors("wrong-type"),
        ElementsAre(testing::MatchesRegex("AI Text Frame Suite, GetATETextRange: "
                                          "document#[0-9]+ is of the wrong type, wanted is: art")));
}

TEST_F(FaultyPlugin, UnknownHandle)
{
    EXPECT_THAT(GetErrors("unknown-handle"),
                ElementsAre("AI Text Frame Suite, GetATETextRange: the art was never handed out "
                            "by the host"));
}

TEST_F(FaultyPlugin, FreesBlockTwice)
{
    EXPECT_THAT(GetErrors("frees-block-twice"),
                ElementsAre(testing::MatchesRegex("SP Blocks Suite, FreeBlock: block#[0-9]+ has "
                                                  "expired")));
}

TEST_F(FaultyPlugin, KeepsTwoArtSets)
{
    EXPECT_THAT(GetErrors("keeps-two-art-sets", 2),
                ElementsAre(testing::MatchesRegex("Unload: art set#[0-9]+ was not given back"),
                            testing::MatchesRegex("Unload: art set#[0-9]+ was not given back")));
}

TEST_F(FaultyPlugin, SwallowsModalSession)
{
    EXPECT_THAT(GetErrors("swallows-modal-session"),
                ElementsAre("beginModalSession: the host's own session was not begun"));
}

TEST_F(FaultyPlugin, Throws)
{
    EXPECT_THAT(GetErrors("throws"),
                ElementsAre("AI Notifier/AI Notify: an exception leaves the plug-in"));
}

TEST_F(FaultyPlugin, RefusesUnload)
{
    EXPECT_THAT(GetErrors("refuses-unload"),
                ElementsAre("Unload: the plug-in refuses to be unloaded after its shutdown"));
}

TEST_F(FaultyPlugin, RefusalToStartIsReported)
{
    headless::Application application(*host, "en");
    std::string error;
    EXPECT_FALSE(application.Start(GetPluginPath("refuses-to-start"), error));
    EXPECT_EQ("the plug-in does not run: Missing PluginCore", error);
    ASSERT_EQ(1U, host->alerts.size());
    EXPECT_EQ("./somewhere", host->alerts[0].information);
    application.ShutDown();
    EXPECT_THAT(host->violations.Lines(), testing::IsEmpty()) << "it need not release its suites";
}

TEST_F(FaultyPlugin, ModuleWithoutPluginMainIsReported)
{
    headless::Application application(*host, "en");
    std::string error;
    EXPECT_FALSE(application.Start(GetPluginPath("no-entry"), error));
    EXPECT_THAT(error, testing::HasSubstr("has no PluginMain"));
    EXPECT_FALSE(application.Start(folder + "/nowhere.aip", error));
    EXPECT_THAT(error, testing::HasSubstr("nowhere.aip"));
}

TEST_F(FaultyPlugin, EveryTestPluginIsListedHere)
{
    const std::set<std::string> tested = {"releases-suite-twice",
                                          "leaks-suite",
                                          "calls-released-suite",
                                          "uses-expired-text-range",
                                          "leaks-text-range",
                                          "uses-art-of-closed-document",
                                          "null-handle",
                                          "wrong-type",
                                          "unknown-handle",
                                          "frees-block-twice",
                                          "keeps-two-art-sets",
                                          "swallows-modal-session",
                                          "refuses-unload",
                                          "refuses-to-start",
                                          "no-entry",
                                          "subscribes-all",
                                          "reads-two-text-ranges",
                                          "meets-faults",
                                          "stays-busy-after-failure",
                                          "forgets-fonts-between-saves",
                                          "runs-out-of-reminders",
                                          "throws",
                                          "well-behaved",
                                          "makes-calls",
                                          "makes-extra-call",
                                          "makes-other-argument"};
    std::set<std::string> built;
    for (const auto& entry : std::filesystem::directory_iterator(TEST_PLUGINS_FOLDER)) {
        built.insert(entry.path().stem().string());
    }
    EXPECT_EQ(tested, built);
}
