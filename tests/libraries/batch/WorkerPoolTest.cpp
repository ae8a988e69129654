#include "batch/WorkerPool.h"

#include <gmock/gmock.h>
#include <unistd.h>

#include <csignal>
#include <functional>
#include <map>
#include <new>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

using namespace batch;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

using Answers = std::map<size_t, WorkerAnswer>;

WorkerLimits MakeLimits(size_t workers, double seconds = 60)
{
    WorkerLimits limits;
    limits.workers = workers;
    limits.seconds = seconds;
    return limits;
}

// Sends the numbers 0 to `count` - 1, and returns the answers by number.
Answers RunAll(size_t count, const WorkerLimits& limits,
               const std::function<std::string(size_t)>& work)
{
    Answers answers;
    WorkerPool pool(limits, [&work](const std::string& text) { return work(std::stoul(text)); });
    for (size_t next = 0; next < count || pool.HasBusy();) {
        for (; next < count && pool.HasIdle(); ++next) pool.Send(next, std::to_string(next));
        for (WorkerAnswer& answer : pool.Wait()) {
            const size_t id = answer.id;
            answers[id] = std::move(answer);
        }
    }
    return answers;
}

}  // namespace

TEST(WorkerPool, AnswersEachRequest)
{
    const Answers answers =
        RunAll(100, MakeLimits(3), [](size_t request) { return std::to_string(request * 2); });
    ASSERT_EQ(100U, answers.size());
    for (const auto& [request, answer] : answers) {
        EXPECT_EQ(std::to_string(request * 2), answer.text);
    }
}

TEST(WorkerPool, DoesNothingWithoutRequests)
{
    EXPECT_TRUE(RunAll(0, MakeLimits(3), [](size_t) { return std::string(); }).empty());
}

TEST(WorkerPool, ReturnsLongAnswersComplete)
{
    const Answers answers = RunAll(
        3, MakeLimits(2), [](size_t request) { return std::string(5000000 + request, 'x'); });
    EXPECT_EQ(5000002U, answers.at(2).text.size());
}

TEST(WorkerPool, ReportsAProcessThatDiesAndContinues)
{
    const Answers answers = RunAll(6, MakeLimits(2), [](size_t request) {
        if (request == 2) (void)raise(SIGKILL);
        return std::to_string(request);
    });
    EXPECT_EQ(WorkerAnswer::Outcome::kDied, answers.at(2).outcome);
    EXPECT_THAT(answers.at(2).text, StartsWith("ended by "));
    EXPECT_EQ("5", answers.at(5).text);
    EXPECT_EQ(6U, answers.size());
}

TEST(WorkerPool, EndsAProcessThatIsLateAndContinues)
{
    const Answers answers = RunAll(4, MakeLimits(2, 0.3), [](size_t request) {
        while (request == 1) (void)pause();
        return std::to_string(request);
    });
    EXPECT_EQ(WorkerAnswer::Outcome::kTooLong, answers.at(1).outcome);
    EXPECT_EQ("3", answers.at(3).text);
}

TEST(WorkerPool, ReplacesAProcessWithoutMemoryAndContinues)
{
    const Answers answers = RunAll(3, MakeLimits(1), [](size_t request) {
        if (request == 1) throw std::bad_alloc();
        return std::to_string(getpid());
    });
    EXPECT_EQ(WorkerAnswer::Outcome::kNoMemory, answers.at(1).outcome);
    EXPECT_EQ(WorkerAnswer::Outcome::kAnswered, answers.at(2).outcome);
    EXPECT_NE(answers.at(0).text, answers.at(2).text);
}

TEST(WorkerPool, PassesAnyBytesOfARequest)
{
    WorkerPool pool(MakeLimits(1), [](const std::string& text) { return text + text; });
    pool.Send(7, std::string("a\0b\n", 4));
    const std::vector<WorkerAnswer> answers = pool.Wait();
    ASSERT_EQ(1U, answers.size());
    EXPECT_EQ(7U, answers[0].id);
    EXPECT_EQ(std::string("a\0b\na\0b\n", 8), answers[0].text);
}

TEST(WorkerPool, RefusesARequestWithoutAnIdleWorker)
{
    WorkerPool pool(MakeLimits(1), [](const std::string& text) {
        (void)pause();
        return text;
    });
    pool.Send(0, "a");
    EXPECT_FALSE(pool.HasIdle());
    EXPECT_THROW(pool.Send(1, "b"), std::logic_error);
}
