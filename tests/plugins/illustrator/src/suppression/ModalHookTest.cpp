#include <stdexcept>

#include "SuppressionTest.h"

namespace {

// With the hook in place, the built-in hints and a period of 15 seconds.
template <class Body>
void WithHook(Body body)
{
    InFreshProcess([&] {
        Suppression suppression;
        CreateListOfSuppressableDialogs();
        InitSuppressionHooks();
        SetSuppressionOfMissingFontsDialog(15);
        ClearTraces();
        body(suppression);
    });
}

TEST(ModalHook, ExchangesTheSlot)
{
    InFreshProcess([] {
        Suppression suppression;
        InitSuppressionHooks();
        EXPECT_NE(suppression.ownSession, suppression.Slot());
        EXPECT_NE(nullptr, suppression.Slot());
    });
}

TEST(ModalHook, ASecondCallExchangesBack)
{
    InFreshProcess([] {
        Suppression suppression;
        InitSuppressionHooks();
        const BeginModalSessionFunction replacement = suppression.Slot();
        InitSuppressionHooks();
        EXPECT_EQ(suppression.ownSession, suppression.Slot());
        InitSuppressionHooks();
        EXPECT_EQ(replacement, suppression.Slot());
        FakeWindow window("Missing Fonts");
        (void)suppression.Slot()(&window);  // Only who was reached counts here.
        EXPECT_EQ(std::vector<ModalWindow*>{&window}, suppression.host.modalSessions);
    });
}

TEST(ModalHook, IsNeverUndone)
{
    WithHook([](Suppression& suppression) {
        const BeginModalSessionFunction replacement = suppression.Slot();
        RemoveSuppressionHooks();
        EXPECT_EQ(replacement, suppression.Slot());
        FakeWindow window("Missing Fonts");
        (void)suppression.Slot()(&window);  // Only the event counts here.
        EXPECT_EQ(1u, window.events.size());
    });
}

TEST(ModalHook, RemovingWithoutAHookChangesNothing)
{
    InFreshProcess([] {
        Suppression suppression;
        RemoveSuppressionHooks();
        EXPECT_EQ(suppression.ownSession, suppression.Slot());
        EXPECT_TRUE(Traces().empty());
    });
}

TEST(ModalHook, SendsTheEventBeforeTheRealSessionBegins)
{
    WithHook([](Suppression& suppression) {
        FakeWindow window("Missing Fonts");
        std::size_t sessionsAtEvent = 99;
        window.onSendEvent = [&] { sessionsAtEvent = suppression.host.modalSessions.size(); };
        (void)suppression.Slot()(&window);  // Only the order counts here.
        EXPECT_EQ(0u, sessionsAtEvent);
        EXPECT_EQ(std::vector<ModalWindow*>{&window}, suppression.host.modalSessions);
    });
}

TEST(ModalHook, HandsTheRealSessionBack)
{
    WithHook([](Suppression& suppression) {
        FakeWindow dismissed("Missing Fonts");
        FakeWindow untouched("Save as");
        FakeWindow panel("Missing Fonts", "NSPanel");
        const ModalSession first = suppression.Slot()(&dismissed);
        const ModalSession second = suppression.Slot()(&untouched);
        const ModalSession third = suppression.Slot()(&panel);
        EXPECT_EQ((std::vector<ModalWindow*>{&dismissed, &untouched, &panel}),
                  suppression.host.modalSessions);
        // What the host's own function gives, told by asking it in the same state.
        suppression.host.modalSessions.clear();
        EXPECT_EQ(suppression.ownSession(&dismissed), first);
        EXPECT_EQ(suppression.ownSession(&untouched), second);
        EXPECT_EQ(suppression.ownSession(&panel), third);
    });
}

TEST(ModalHook, BeginsTheSessionUnchangedOutsideAPeriod)
{
    WithHook([](Suppression& suppression) {
        FakeClock::Advance(15);
        FakeWindow window("Missing Fonts");
        EXPECT_NE(nullptr, suppression.Slot()(&window));
        EXPECT_TRUE(HasTrace("Saw a dialog titled 'Missing Fonts'"));
        EXPECT_TRUE(window.events.empty());
        EXPECT_EQ(1u, suppression.host.modalSessions.size());
    });
}

TEST(ModalHook, LetsASessionBegunInsideTheEventThrough)
{
    WithHook([](Suppression& suppression) {
        FakeWindow outer("Missing Fonts");
        FakeWindow inner("Missing Fonts");
        outer.onSendEvent = [&] { (void)suppression.Slot()(&inner); };  // Begun and left.
        (void)suppression.Slot()(&outer);  // Only the order counts here.
        EXPECT_EQ(1u, outer.events.size());
        EXPECT_TRUE(inner.events.empty());
        EXPECT_EQ((std::vector<ModalWindow*>{&inner, &outer}), suppression.host.modalSessions);
        EXPECT_EQ(2u, CountTraces("Saw a dialog titled 'Missing Fonts'"));
        EXPECT_EQ(1u, CountTraces("SetSuppressionOfMissingFontsDialog(until 5 seconds from now)"));
        EXPECT_EQ(5, SecondsLeft());
    });
}

TEST(ModalHook, BeginsTheSessionAfterThePlatformsException)
{
    WithHook([](Suppression& suppression) {
        FakeWindow window("Missing Fonts");
        window.onSendEvent = [] { throw ModalWindowException("gone"); };
        testing::internal::CaptureStderr();
        EXPECT_NE(nullptr, suppression.Slot()(&window));
        EXPECT_THAT(testing::internal::GetCapturedStderr(),
                    testing::HasSubstr("Exception when beginModalOverride:  exception=gone"));
        EXPECT_EQ(1u, suppression.host.modalSessions.size());
    });
}

TEST(ModalHook, BeginsNoSessionAfterAnyOtherException)
{
    WithHook([](Suppression& suppression) {
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
