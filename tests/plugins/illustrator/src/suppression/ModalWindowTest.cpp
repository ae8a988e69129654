#include <stdexcept>

#include "DebugUtils.h"
#include "SuppressionFixture.h"

namespace {

// Runs `body` in a new process with the built-in hints and a period of 15 seconds.
template <class Body>
void InPeriod(Body body)
{
    InFreshProcess([&] {
        SuppressionFixture suppression;
        CreateListOfSuppressableDialogs();
        SetSuppressionOfMissingFontsDialog(15);
        ClearTraces();
        body();
    });
}

TEST(ModalWindowDecision, DismissesTheDialogWithOneKeyEvent)
{
    InPeriod([] {
        FakeWindow window("Missing Fonts");
        HandleModalWindow(window);
        ASSERT_EQ(1U, window.events.size());
        const SKeyEvent& event = window.events[0];
        EXPECT_EQ(10, event.type);
        EXPECT_EQ(0.0, event.x);
        EXPECT_EQ(0.0, event.y);
        EXPECT_EQ(0U, event.modifierFlags);
        EXPECT_EQ(0.0, event.timestamp);
        EXPECT_EQ(4242, event.windowNumber);
        EXPECT_EQ("\n", window.characters[0]);
        EXPECT_EQ("\n", window.charactersIgnoringModifiers[0]);
        EXPECT_FALSE(event.isARepeat);
        EXPECT_EQ(53, event.keyCode);
    });
}

TEST(ModalWindowDecision, SendsTheLow16BitsOfTheKey)
{
    InFreshProcess([] {
        SuppressionFixture suppression;
        AddDialogSuppressionHint("Fonts", 0x7A0024);
        SetSuppressionOfMissingFontsDialog(15);
        FakeWindow window("Missing Fonts");
        HandleModalWindow(window);
        ASSERT_EQ(1U, window.events.size());
        EXPECT_EQ(0x24, window.events[0].keyCode);
    });
}

TEST(ModalWindowDecision, TracesItsStepsInOrder)
{
    InPeriod([] {
        FakeWindow window("Missing Fonts");
        window.onSendEvent = [] { OutputIndentedAndFormattedString(0, "%s", "event"); };
        HandleModalWindow(window);
        EXPECT_EQ(
            (std::vector<std::string>{
                "Saw a dialog titled 'Missing Fonts'",
                "GetSuppressionOfMissingFontsDialog() returning true because 15 seconds remain "
                "until suppression expires.",
                "SetSuppressionOfMissingFontsDialog(until 0 seconds from now)",
                "Does 'Missing Fonts' contain 'Font'?",
                "Dialog 'Missing Fonts' is suppressable with key-event 0x00000035 because it "
                "contains 'Font'",
                "event", "SetSuppressionOfMissingFontsDialog(until 5 seconds from now)"}),
            TraceTexts());
    });
}

TEST(ModalWindowDecision, LeavesFiveSecondsOfThePeriod)
{
    InPeriod([] {
        FakeWindow window("Missing Fonts");
        HandleModalWindow(window);
        EXPECT_EQ(5, SecondsLeft());
    });
}

TEST(ModalWindowDecision, ExtendsAPeriodThatIsNearlyOver)
{
    InPeriod([] {
        FakeClock::Advance(14);
        FakeWindow window("Missing Fonts");
        HandleModalWindow(window);
        EXPECT_EQ(5, SecondsLeft());
    });
}

TEST(ModalWindowDecision, CatchesTheDialogThatFollowsADismissedOne)
{
    InPeriod([] {
        FakeWindow first("Missing Fonts");
        HandleModalWindow(first);
        FakeClock::Advance(4);
        FakeWindow second("Find Font");
        HandleModalWindow(second);
        EXPECT_EQ(1U, second.events.size());
        FakeClock::Advance(5);
        FakeWindow third("Missing Fonts");
        HandleModalWindow(third);
        EXPECT_TRUE(third.events.empty());
    });
}

TEST(ModalWindowDecision, IgnoresADialogWithAnotherTitleButShortensThePeriod)
{
    InPeriod([] {
        FakeWindow window("Save as");
        HandleModalWindow(window);
        EXPECT_TRUE(window.events.empty());
        EXPECT_EQ(5, SecondsLeft());
    });
}

TEST(ModalWindowDecision, IgnoresAnotherClass)
{
    InPeriod([] {
        FakeWindow window("Missing Fonts", "NSPanel");
        HandleModalWindow(window);
        EXPECT_TRUE(window.events.empty());
        EXPECT_TRUE(Traces().empty());
        EXPECT_EQ(15, SecondsLeft());
    });
}

TEST(ModalWindowDecision, OnlyTracesADialogOutsideAPeriod)
{
    InFreshProcess([] {
        SuppressionFixture suppression;
        CreateListOfSuppressableDialogs();
        ClearTraces();
        FakeWindow window("Missing Fonts");
        HandleModalWindow(window);
        EXPECT_TRUE(window.events.empty());
        EXPECT_EQ(
            (std::vector<std::string>{"Saw a dialog titled 'Missing Fonts'",
                                      "GetSuppressionOfMissingFontsDialog() returning 0 because "
                                      "sTimeToStopSuppressingMissingFontDialogs is 0."}),
            TraceTexts());
    });
}

TEST(ModalWindowDecision, DoesNotRestartAnExpiredPeriod)
{
    InPeriod([] {
        FakeClock::Advance(20);
        FakeWindow window("Missing Fonts");
        HandleModalWindow(window);
        EXPECT_TRUE(window.events.empty());
        ClearTraces();
        EXPECT_FALSE(GetSuppressionOfMissingFontsDialog());
        EXPECT_TRUE(
            HasTrace("GetSuppressionOfMissingFontsDialog() returning false because suppression "
                     "expired -5 seconds ago."));
    });
}

TEST(ModalWindowDecision, LogsThePlatformsExceptionAndContinues)
{
    InPeriod([] {
        FakeWindow window("Missing Fonts");
        window.onSendEvent = [] { throw ModalWindowException("the window is gone"); };
        testing::internal::CaptureStderr();
        EXPECT_NO_THROW(HandleModalWindow(window));
        EXPECT_THAT(testing::internal::GetCapturedStderr(),
                    testing::HasSubstr("Exception when beginModalOverride:  "
                                       "exception=the window is gone"));
        EXPECT_EQ(5, SecondsLeft());
    });
}

TEST(ModalWindowDecision, LogsThePlatformsExceptionOfGetTitle)
{
    InPeriod([] {
        FakeWindow window("Missing Fonts");
        // The title is first read for a trace, before the period is set to 0 seconds.
        window.onGetTitle = [] {
            if (HasTrace("SetSuppressionOfMissingFontsDialog(until 0 seconds from now)")) {
                throw ModalWindowException("no title");
            }
        };
        testing::internal::CaptureStderr();
        EXPECT_NO_THROW(HandleModalWindow(window));
        EXPECT_THAT(testing::internal::GetCapturedStderr(),
                    testing::HasSubstr("Exception when beginModalOverride:  exception=no title"));
        EXPECT_TRUE(window.events.empty());
        EXPECT_EQ(5, SecondsLeft());
    });
}

TEST(ModalWindowDecision, OtherExceptionsPassThrough)
{
    InPeriod([] {
        FakeWindow window("Missing Fonts");
        window.onSendEvent = [] { throw std::runtime_error("other"); };
        testing::internal::CaptureStderr();
        EXPECT_THROW(HandleModalWindow(window), std::runtime_error);
        EXPECT_EQ("", testing::internal::GetCapturedStderr());
        EXPECT_FALSE(HasTrace("SetSuppressionOfMissingFontsDialog(until 5 seconds from now)"));
        EXPECT_EQ(0, SecondsLeft());
    });
}

}  // namespace
