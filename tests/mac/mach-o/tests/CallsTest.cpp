#include "TwoPlugins.h"

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::Not;

// The plug-in between a scripted host and a scripted PluginCore, which record all calls.
class MachOCalls : public TwoPlugins, public testing::WithParamInterface<const char*> {
protected:
    MachOCalls()
    {
        for (PluginPlace* place : {&onLinux, &machO}) {
            place->program = MODULE_CALLS;
            place->pluginCore = fs::path(SCRIPTED_PLUGIN_CORE_FOLDER) / "complete";
        }
    }

    // Plays a scenario of module-calls with both and expects the same calls.
    void Play(const std::string& scenario)
    {
        onLinux.status = onLinux.Run("'" + scenario + "'");
        machO.status = machO.Run("'" + scenario + "'");
        SkipIfNotRun(machO.status);
        if (IsSkipped()) return;
        EXPECT_EQ(0, onLinux.status) << onLinux.errors;
        EXPECT_EQ(0, machO.status) << machO.errors;
        EXPECT_EQ(onLinux.WithoutFolder(onLinux.output), machO.WithoutFolder(machO.output));
        EXPECT_EQ(onLinux.WithoutFolder(onLinux.errors), machO.WithoutFolder(machO.errors));
        EXPECT_THAT(machO.output, HasSubstr("  core TerminatePluginCoreInterface()"));
        EXPECT_THAT(machO.output, Not(HasSubstr("fault: ")));
    }
};

TEST_F(MachOCalls, OnlyTheDialogWithinThePeriodIsSentAnEvent)
{
    Play("dialogs");
    if (IsSkipped()) return;
    EXPECT_THAT(machO.output,
                HasSubstr("session of missing fonts: 0x5e5515, the host began 1, the same window\n"
                          "  event 10 at 0 0, flags 0, time 0, window 4242, 1 and 1 characters, "
                          "repeat 0, key 53\n"));
    // The exchange remains, and passes every window on.
    EXPECT_THAT(machO.output, HasSubstr("session after the end: 0x5e5517, the host began 1, the "
                                        "same window\n"));
    EXPECT_THAT(machO.output, HasSubstr("live: 0 strings, 0 paths, 0 references"));
}

// The host's exception becomes an NSException, which crosses the bundle's C++ frames to its
// handler.
TEST_F(MachOCalls, AnExceptionOfTheWindowEndsInTheBundlesHandler)
{
    Play("throwing-window");
    if (IsSkipped()) return;
    const std::string line = "Exception when beginModalOverride:  exception=the window is gone\n";
    EXPECT_EQ(line + line, machO.errors);  // in the period, and after the end
    EXPECT_THAT(machO.output, HasSubstr("session of missing fonts: 0x5e5515, the host began 1"));
}

TEST_F(MachOCalls, ARefusedSuiteIsAskedForAgain)
{
    Play("refused-suite");
    if (IsSkipped()) return;
    EXPECT_THAT(machO.output, HasSubstr("AcquireSuite(\"AI Timer Suite\", 1005)"));
}

class MachOException : public MachOCalls {};

// The failing operation decides what the plug-in throws: an int, ATE::Exception or ai::Error.
TEST_P(MachOException, CrossesTheFramesAsOnLinux)
{
    Play(GetParam());
    if (IsSkipped()) return;
    // The plug-in works on: the document is read again after the failure.
    const size_t failed = machO.output.find("AI Document Changed Notifier: ");
    ASSERT_NE(std::string::npos, failed);
    EXPECT_NE(std::string::npos, machO.output.find("ATE ArrayFontRef.Item", failed));
}

INSTANTIATE_TEST_SUITE_P(Operations, MachOException,
                         testing::Values("AIArtSetSuite.NewArtSet",
                                         "AITextFrameSuite.GetATETextFrame",
                                         "AIFontSuite.FontKeyFromFontRef", "ATE TextFrame.GetStory",
                                         "ATE CharInspector.GetFont", "ATE ArrayFontRef.Item",
                                         "AIFilePathSuite.GetFullPath",
                                         "AIUnicodeStringSuite.GetAs",
                                         "AIDocumentSuite.GetDocumentFileSpecification"),
                         [](const auto& row) {
                             std::string name = row.param;
                             for (char& c : name) {
                                 if (c == '.' || c == ' ') c = '_';
                             }
                             return name;
                         });
