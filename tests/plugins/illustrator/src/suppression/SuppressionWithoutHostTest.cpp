#include <gtest/gtest.h>

#include "DialogSuppression.h"
#include "FakeWindow.h"
#include "FreshProcess.h"
#include "InProcessPluginCore.h"
#include "RecordingTrace.h"

namespace {

TEST(SuppressionWithoutHost, InstallsNoHook)
{
    InFreshProcess([] {
        InProcessPluginCore core;
        ClearTraces();
        SetupIllustratorDialogSuppression(true);
        EXPECT_TRUE(HasTrace("Exiting SetupIllustratorDialogSuppression(1)"));
        SetupIllustratorDialogSuppression(false);
        EXPECT_TRUE(HasTrace("Exiting SetupIllustratorDialogSuppression(0)"));
    });
}

TEST(SuppressionWithoutHost, DismissesTheDialog)
{
    InFreshProcess([] {
        InProcessPluginCore core;
        SetupIllustratorDialogSuppression(true);
        SetSuppressionOfMissingFontsDialog(15);
        FakeWindow window("Missing Fonts");
        HandleModalWindow(window);
        EXPECT_EQ(1U, window.events.size());
    });
}

}  // namespace
