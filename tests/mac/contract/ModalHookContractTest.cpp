#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

#include "DialogSuppression.h"
#include "FakeClock.h"
#include "FreshProcess.h"
#include "Platform.h"
#include "RecordingTrace.h"

using Platform::Dialog;

namespace {

const char* const kTitle = "Missing Fonts";
const std::string kFiveSeconds = "SetSuppressionOfMissingFontsDialog(until 5 seconds from now)";

// Runs `body` in a fresh process with the hook installed, the built-in title hints and a
// suppression period of 15 seconds.
template <class Body>
void WithHook(Body body)
{
    InFreshProcess([&] {
        Dialog::WatchSessions();
        CreateListOfSuppressableDialogs();
        InitSuppressionHooks();
        SetSuppressionOfMissingFontsDialog(15);
        ClearTraces();
        body();
    });
}

TEST(ModalHookContract, DismissesTheDialogWithOneKeyEventAndBeginsItsSession)
{
    WithHook([] {
        Dialog dialog(kTitle);
        EXPECT_TRUE(dialog.RunSession());
        EXPECT_TRUE(dialog.IsDismissed());
        ASSERT_EQ(1U, dialog.Events().size());
        const Platform::KeyEvent& event = dialog.Events()[0];
        EXPECT_EQ(10, event.type);
        EXPECT_EQ(0.0, event.x);
        EXPECT_EQ(0.0, event.y);
        EXPECT_EQ(0U, event.modifierFlags);
        EXPECT_EQ(0.0, event.timestamp);
        EXPECT_EQ(dialog.Number(), event.windowNumber);
        EXPECT_EQ("\n", event.characters);
        EXPECT_EQ("\n", event.charactersIgnoringModifiers);
        EXPECT_FALSE(event.isARepeat);
        EXPECT_EQ(53, event.keyCode);
        EXPECT_EQ(1U, CountTraces(kFiveSeconds));
    });
}

TEST(ModalHookContract, SendsTheEventBeforeTheSessionBegins)
{
    WithHook([] {
        Dialog dialog(kTitle);
        std::size_t sessionsAtEvent = 99;
        dialog.OnEvent([&] { sessionsAtEvent = Dialog::Sessions().size(); });
        EXPECT_TRUE(dialog.RunSession());
        EXPECT_EQ(0U, sessionsAtEvent);
        EXPECT_EQ(std::vector<const Dialog*>{&dialog}, Dialog::Sessions());
    });
}

TEST(ModalHookContract, DismissesADialogOfASubclass)
{
    WithHook([] {
        Dialog dialog(kTitle, Dialog::Kind::kSubclassOfIt);
        EXPECT_TRUE(dialog.RunSession());
        EXPECT_EQ(1U, dialog.Events().size());
    });
}

TEST(ModalHookContract, IgnoresAWindowOfAnotherClass)
{
    WithHook([] {
        Dialog window(kTitle, Dialog::Kind::kOrdinary);
        EXPECT_TRUE(window.RunSession());
        EXPECT_TRUE(window.Events().empty());
        EXPECT_TRUE(Traces().empty());
    });
}

TEST(ModalHookContract, OnlyTracesADialogOutsideAPeriod)
{
    WithHook([] {
        FakeClock::Advance(15);
        Dialog dialog(kTitle);
        EXPECT_TRUE(dialog.RunSession());
        EXPECT_TRUE(dialog.Events().empty());
        EXPECT_TRUE(HasTrace("Saw a dialog titled 'Missing Fonts'"));
        EXPECT_FALSE(HasTrace(kFiveSeconds));
    });
}

TEST(ModalHookContract, KeepsADialogWithAnotherTitleButShortensThePeriod)
{
    WithHook([] {
        Dialog dialog("Save as");
        EXPECT_TRUE(dialog.RunSession());
        EXPECT_TRUE(dialog.Events().empty());
        EXPECT_TRUE(HasTrace(kFiveSeconds));
    });
}

TEST(ModalHookContract, ComparesTitlesWithCase)
{
    WithHook([] {
        Dialog dialog("MISSING FONTS");
        EXPECT_TRUE(dialog.RunSession());
        EXPECT_TRUE(dialog.Events().empty());
    });
}

TEST(ModalHookContract, UsesTheFirstHintThatMatches)
{
    WithHook([] {
        Dialog dialog("police de Fontaine");
        EXPECT_TRUE(dialog.RunSession());
        EXPECT_TRUE(
            HasTrace("Dialog 'police de Fontaine' is suppressable with key-event 0x00000035 "
                     "because it contains 'Font'"));
        EXPECT_FALSE(HasTrace("Does 'police de Fontaine' contain 'font'?"));
    });
}

TEST(ModalHookContract, RecognizesAJapaneseTitle)
{
    WithHook([] {
        const std::string title =
            "\xE8\xB6\xB3\xE3\x82\x8A\xE3\x81\xAA\xE3\x81\x84"
            "\xE3\x83\x95\xE3\x82\xA9\xE3\x83\xB3\xE3\x83\x88";
        Dialog dialog(title);
        EXPECT_TRUE(dialog.RunSession());
        EXPECT_EQ(1U, dialog.Events().size());
        EXPECT_TRUE(HasTrace("Saw a dialog titled '" + title + "'"));
    });
}

TEST(ModalHookContract, WithoutHintsComparesNoTitle)
{
    InFreshProcess([] {
        Dialog::WatchSessions();
        InitSuppressionHooks();
        SetSuppressionOfMissingFontsDialog(15);
        ClearTraces();
        Dialog dialog(kTitle);
        EXPECT_TRUE(dialog.RunSession());
        EXPECT_TRUE(dialog.Events().empty());
        EXPECT_FALSE(HasTraceBeginningWith("Does "));
        EXPECT_TRUE(HasTrace(kFiveSeconds));
    });
}

TEST(ModalHookContract, PassesASessionThroughThatBeginsDuringTheEvent)
{
    WithHook([] {
        Dialog outer(kTitle);
        Dialog inner(kTitle);
        outer.OnEvent([&] { EXPECT_TRUE(inner.RunSession()); });
        EXPECT_TRUE(outer.RunSession());
        EXPECT_EQ(1U, outer.Events().size());
        EXPECT_TRUE(inner.Events().empty());
        EXPECT_EQ((std::vector<const Dialog*>{&inner, &outer}), Dialog::Sessions());
        EXPECT_EQ(1U, CountTraces(kFiveSeconds));
    });
}

TEST(ModalHookContract, DismissesADialogWithinFiveSecondsOfTheLastOne)
{
    WithHook([] {
        Dialog first(kTitle);
        EXPECT_TRUE(first.RunSession());
        FakeClock::Advance(4);
        Dialog second("Find Font");
        EXPECT_TRUE(second.RunSession());
        EXPECT_EQ(1U, second.Events().size());
        FakeClock::Advance(5);
        Dialog third(kTitle);
        EXPECT_TRUE(third.RunSession());
        EXPECT_TRUE(third.Events().empty());
    });
}

TEST(ModalHookContract, LogsTheExceptionOfAWindowAndBeginsTheSession)
{
    WithHook([] {
        Dialog dialog(kTitle);
        dialog.OnEvent([] { Platform::ThrowAsAWindow("gone"); });
        testing::internal::CaptureStderr();
        EXPECT_TRUE(dialog.RunSession());
        const std::string log = testing::internal::GetCapturedStderr();
        EXPECT_THAT(log, testing::HasSubstr("Exception when beginModalOverride:  exception="));
        EXPECT_THAT(log, testing::HasSubstr("gone"));
        EXPECT_TRUE(HasTrace(kFiveSeconds));
    });
}

TEST(ModalHookContract, PropagatesAnyOtherExceptionWithoutASession)
{
    WithHook([] {
        Dialog dialog(kTitle);
        dialog.OnEvent([] { throw std::runtime_error("other"); });
        EXPECT_THROW((void)dialog.RunSession(), std::runtime_error);
        EXPECT_FALSE(HasTrace(kFiveSeconds));
        EXPECT_TRUE(Dialog::Sessions().empty());
    });
}

TEST(ModalHookContract, SecondInstallationRestoresThePlatformsFunction)
{
    WithHook([] {
        InitSuppressionHooks();
        Dialog dialog(kTitle);
        EXPECT_TRUE(dialog.RunSession());
        EXPECT_TRUE(dialog.Events().empty());
        EXPECT_TRUE(Traces().empty());
    });
}

TEST(ModalHookContract, RemoveSuppressionHooksKeepsTheHook)
{
    WithHook([] {
        RemoveSuppressionHooks();
        Dialog dialog(kTitle);
        EXPECT_TRUE(dialog.RunSession());
        EXPECT_EQ(1U, dialog.Events().size());
    });
}

TEST(TitleContract, FindsAHintCaseSensitively)
{
    EXPECT_TRUE(OSTitleContains("Missing Fonts", "Font"));
    EXPECT_FALSE(OSTitleContains("Missing Fonts", "font"));
    EXPECT_FALSE(OSTitleContains("Font", "Missing Fonts"));
    EXPECT_FALSE(OSTitleContains("", "Font"));
    EXPECT_TRUE(OSTitleContains("\xE3\x83\x95\xE3\x82\xA9", "\xE3\x82\xA9"));
    EXPECT_FALSE(OSTitleContains("Missing Fonts", "\xFF"));
    EXPECT_EQ(Platform::kFindsEmptyText, OSTitleContains("Missing Fonts", ""));
}

}  // namespace
