#include <unistd.h>

#include <cstdlib>
#include <memory>
#include <set>

#include "Faults.h"
#include "Suites.h"

namespace wrong {

namespace {

constexpr size_t kPieceBytes = size_t{64} << 20;
constexpr size_t kMostPieces = 64;  // where nothing limits the memory
constexpr size_t kLongCaller = 100;
constexpr size_t kMostUpdates = 200;
constexpr size_t kManyFrames = 20;

bool IsKnownCaller()
{
    static const std::set<std::string> kCallers = {"SP Interface", "SP Access",      "AI Menu",
                                                   "AI Notifier",  "AI File Format", "AI Timer"};
    return kCallers.count(life.caller) > 0;
}

// Keeps memory that it doesn't use. As everywhere outside of a handler, the failure is the end.
void NeedMemory() noexcept
{
    static std::vector<std::unique_ptr<char[]>> sKept;
    while (sKept.size() < kMostPieces) sKept.emplace_back(new char[kPieceBytes]);
}

bool sForgets = false;

}  // namespace

const std::vector<Fault> kFaultsOfLife = {
    {102, "refuses-to-start",
     [] {
         if (life.Is(Moment::kStarting)) life.maySucceed = false;
     }},
    {103, "reads-vanished-file-at-close",
     [] {
         if (life.Is(Moment::kAboutToClose) && life.IsAnyFileGone()) Break();
     }},
    {104, "refuses-unload",
     [] {
         if (life.Is(Moment::kUnload)) life.maySucceed = false;
     }},
    {106, "forgets-everything-at-reload",
     [] {
         if (life.Is(Moment::kMessage) && sForgets) Crash();
         if (life.Is(Moment::kReload) && life.isRunning) sForgets = true;
     }},
    {107, "needs-its-timer",
     [] {
         if (life.HasFailed("AddTimer")) Crash();
     }},
    {108, "checks-files-without-having-started",
     [] {
         if (life.Is(Moment::kRefused) && life.caller == "AI File Format") Crash();
     }},
    {201, "has-no-about-box",
     [] {
         if (life.Is(Moment::kAbout)) Break();
     }},
    {202, "knows-all-callers",
     [] {
         if (life.Is(Moment::kMessage) && !IsKnownCaller()) Break();
     }},
    {203, "knows-all-selectors",
     [] {
         if (life.Is(Moment::kMessage) && IsKnownCaller() && life.IsIn("AI Unheard Of")) Break();
     }},
    {204, "reads-vanished-file-for-about-box",
     [] {
         if (life.Is(Moment::kAbout) && life.IsAnyFileGone()) Break();
     }},
    {205, "has-room-for-short-callers",
     [] {
         if (life.Is(Moment::kMessage) && life.caller.size() > kLongCaller) Crash();
     }},
    {208, "reads-globals",
     [] {
         if (life.Is(Moment::kMessage) && life.isRunning && life.data->globals == nullptr) Crash();
     }},
    {213, "has-room-for-two-hundred-updates",
     [] {
         if (life.Is(Moment::kUpdate) && life.updates >= kMostUpdates) Crash();
     }},
    {301, "throws-at-a-tick",
     [] {
         if (life.Is(Moment::kTick)) Break();
     }},
    {302, "crashes-at-a-tick",
     [] {
         if (life.Is(Moment::kTick)) Crash();
     }},
    {303, "waits-for-the-next-run",
     [] {
         while (life.HasFailed("Next")) (void)pause();
     }},
    {304, "keeps-memory-of-many-frames",
     [] {
         if (life.Is(Moment::kWalked) && life.frames >= kManyFrames) NeedMemory();
     }},
    {305, "exits-without-a-suite",
     [] {
         if (life.HasFailed("AcquireSuite") && life.failedSuite == "SP Blocks Suite") _exit(1);
     }},
    {306, "cannot-tick-inside-of-a-call",
     [] {
         if (life.Is(Moment::kNested) && life.caller == "AI Timer") Break();
     }},
    {311, "lets-exceptions-of-the-host-pass",
     [] {
         if (life.Is(Moment::kException)) throw;
     }},
    // These act where the plug-in replaces the session.
    {1201, "swallows-modal-session", [] {}},
    {1202, "keeps-modal-session", [] {}},
    {1401, "throws-at-shutdown",
     [] {
         if (life.Is(Moment::kShutdown)) Break();
     }},
    {1402, "closes-one-document-at-shutdown",
     [] {
         if (life.Is(Moment::kEnding) && life.closedInARow > 2) Break();
     }},
    {1403, "takes-saved-documents-for-unchanged",
     [] {
         const bool isClosing = life.Is(Moment::kAboutToClose) && life.document != nullptr;
         if (isClosing && life.document->wasSaved && life.document->isChanged) Break();
     }},
    {1404, "ticks-after-shutdown",
     [] {
         if (life.Is(Moment::kAfterEnd) && life.caller == "AI Timer") Crash();
     }},
    {1407, "leaves-a-mark-in-the-process",
     [] {
         if (!life.Is(Moment::kStarting)) return;
         if (getenv("WRONG_PLUGIN_STARTED") != nullptr) Break();
         (void)setenv("WRONG_PLUGIN_STARTED", "1", 1);
     }},
    {1412, "takes-closing-for-closed",
     [] {
         const bool isClosing = life.Is(Moment::kAboutToClose) && life.document != nullptr;
         if (isClosing && life.document->isClosing && life.document->isChanged) Break();
     }},
    {1415, "shuts-down-once",
     [] {
         if (life.Is(Moment::kShutdown) && life.hasShutDown) Crash();
     }},
};

}  // namespace wrong
