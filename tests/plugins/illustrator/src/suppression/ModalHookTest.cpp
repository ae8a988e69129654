#include <stdexcept>

#include "SuppressionFixture.h"

namespace {

// Runs `body` in a new process with the hook, the built-in hints and a period of 15 seconds.
template <class Body>
void WithHook(Body body)
{
    InFreshProcess([&] {
        SuppressionFixture suppression;
        CreateListOfSuppressableDialogs();
        InitSuppressionHooks();
        SetSuppressionOfMissingFontsDialog(15);
        ClearTraces();
        body(suppression);
    });
}

TEST(ModalHook, ReplacesTheHostsFunction)
{
    InFreshProcess([] {
        SuppressionFixture suppression;
        InitSuppressionHooks();
        EXPECT_NE(suppression.ownSession, suppression.Slot());
        EXPECT_NE(nullptr, suppression.Slot());
    });
}

TEST(ModalHook, SecondCallRestoresTheHostsFunction)
{
    InFreshProcess([] {
        SuppressionFixture suppression;
        InitSuppressionHooks();
        const BeginModalSessionFunction replacement = suppression.Slot();
        InitSuppressionHooks();
        EXPECT_EQ(suppression.ownSession, suppression.Slot());
        InitSuppressionHooks();
        EXPECT_EQ(replacement, suppression.Slot());
        FakeWindow window("Missing Fonts");
        (void)suppression.Slot()(&window);  // The session doesn't matter here.
        EXPECT_EQ(std::vector<ModalWindow*>{&window}, suppression.host.modalSessions);
    });
}

TEST(ModalHook, IsNeverUndone)
{
    WithHook([](SuppressionFixture& suppression) {
        const BeginModalSessionFunction replacement = suppression.Slot();
        RemoveSuppressionHooks();
        EXPECT_EQ(replacement, suppression.Slot());
        FakeWindow window("Missing Fonts");
        (void)suppression.Slot()(&window);  // The session doesn't matter here.
        EXPECT_EQ(1U, window.events.size());
    });
}

TEST(ModalHook, RemovingWithoutAHookChangesNothing)
{
    InFreshProcess([] {
        SuppressionFixture suppression;
        RemoveSuppressionHooks();
        EXPECT_EQ(suppression.ownSession, suppression.Slot());
        EXPECT_TRUE(Traces().empty());
    });
}

TEST(ModalHook, SendsTheEventBeforeTheRealSessionBegins)
{
    WithHook([](SuppressionFixture& suppression) {
        FakeWindow window("Missing Fonts");
        std::size_t sessionsAtEvent = 99;
        window.onSendEvent = [&] { sessionsAtEvent = suppression.host.modalSessions.size(); };
        (void)suppression.Slot()(&window);  // The session doesn't matter here.
        EXPECT_EQ(0U, sessionsAtEvent);
        EXPECT_EQ(std::vector<ModalWindow*>{&window}, suppression.host.modalSessions);
    });
}

TEST(ModalHook, ReturnsTheRealSession)
{
    WithHook([](SuppressionFixture& suppression) {
        FakeWindow dismissed("Missing Fonts");
        FakeWindow untouched("Save as");
        FakeWindow panel("Missing Fonts", "NSPanel");
        const ModalSession first = suppression.Slot()(&dismissed);
        const ModalSession second = suppression.Slot()(&untouched);
        const ModalSession third = suppression.Slot()(&panel);
        EXPECT_EQ((std::vector<ModalWindow*>{&dismissed, &untouched, &panel}),
                  suppression.host.modalSessions);
        // The host's function returns the same sessions if it is called in the same state.
        suppression.host.modalSessions.clear();
        EXPECT_EQ(suppression.ownSession(&dismissed), first);
        EXPECT_EQ(suppression.ownSession(&untouched), second);
        EXPECT_EQ(suppression.ownSession(&panel), third);
    });
}

TEST(ModalHook, BeginsTheSessionUnchangedOutsideAPeriod)
{
    WithHook([](SuppressionFixture& suppression) {
        FakeClock::Advance(15);
        FakeWindow window("Missing Fonts");
        EXPECT_NE(nullptr, suppression.Slot()(&window));
        EXPECT_TRUE(HasTrace("Saw a dialog titled 'Missing Fonts'"));
        EXPECT_TRUE(window.events.empty());
        EXPECT_EQ(1U, suppression.host.modalSessions.size());
    });
}

TEST(ModalHook, PassesOnASessionThatBeginsDuringTheEvent)
{
    WithHook([](SuppressionFixture& suppression) {
        FakeWindow outer("Missing Fonts");
        FakeWindow inner("Missing Fonts");
        outer.onSendEvent = [&] {
            (void)suppression.Slot()(&inner);
        };                                 // The session doesn't matter.
        (void)suppression.Slot()(&outer);  // The session doesn't matter here.
        EXPECT_EQ(1U, outer.events.size());
        EXPECT_TRUE(inner.events.empty());
        EXPECT_EQ((std::vector<ModalWindow*>{&inner, &outer}), suppression.host.modalSessions);
        EXPECT_EQ(2U, CountTraces("Saw a dialog titled 'Missing Fonts'"));
        EXPECT_EQ(1U, CountTraces("SetSuppressionOfMissingFontsDialog(until 5 seconds from now)"));
        EXPECT_EQ(5, SecondsLeft());
    });
}

TEST(ModalHook, BeginsTheSessionAfterThePlatformsException)
{
    WithHook([](SuppressionFixture& suppression) {
        FakeWindow window("Missing Fonts");
        window.onSendEvent = [] { throw ModalWindowException("gone"); };
        testing::internal::CaptureStderr();
        EXPECT_NE(nullptr, suppression.Slot()(&window));
        EXPECT_THAT(testing::internal::GetCapturedStderr(),
                    testing::HasSubstr("Exception when beginModalOverride:  exception=gone"));
        EXPECT_EQ(1U, suppression.host.modalSessions.size());
    });
}

TEST(ModalHook, BeginsNoSessionAfterAnyOtherException)
{
    WithHook([](SuppressionFixture& suppression) {
        FakeWindow window("Missing Fonts");
        window.onSendEvent = [] { throw std::runtime_error("other"); };
        EXPECT_THROW((void)suppression.Slot()(&window), std::runtime_error);
        window.onSendEvent = [] { throw 7; };
        SetSuppressionOfMissingFontsDialog(15);
        EXPECT_THROW((void)suppression.Slot()(&window), int);
        EXPECT_TRUE(suppression.host.modalSessions.empty());
        EXPECT_EQ(0, SecondsLeft());
    });
}

}  // namespace
