#include "plugin-core/panel/PanelWorker.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "FontTestHome.h"

using plugincore::PanelQueue;
using plugincore::PanelWorker;
using plugincore::Services;

namespace {

class PanelWorkerTest : public testing::Test {
protected:
    void SetUp() override
    {
        FontTestHome::CopyFont("DejaVuSans", mHome.GetLibrary());
        mServices.Start();
    }
    void TearDown() override { mServices.Stop(); }

    static std::vector<PanelQueue::Result> Exchange(PanelQueue& queue,
                                                    std::vector<PanelQueue::Request> requests)
    {
        return queue.Exchange(requests);
    }
    static PanelQueue::Result WaitForResult(PanelQueue& queue)
    {
        for (int wait = 0; wait < 5000; ++wait) {
            const std::vector<PanelQueue::Result> results = Exchange(queue, {});
            if (!results.empty()) return results.front();
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
        }
        return {};
    }

    FontTestHome mHome;
    Services mServices{plugincore::GetLocations()};
};

TEST_F(PanelWorkerTest, ActivatesForThisProcess)
{
    PanelWorker worker(mServices.locations);
    Exchange(worker.GetQueue(), {{7, "{\"op\":\"activate\",\"fonts\":[\"DejaVuSans\"]}"}});
    const PanelQueue::Result result = WaitForResult(worker.GetQueue());
    EXPECT_EQ(7U, result.client);
    ASSERT_NE(nullptr, result.answer);
    EXPECT_EQ("{\"activated\":[\"DejaVuSans\"],\"alreadyActive\":[],\"missing\":[],\"ok\":true}",
              *result.answer);
    // Stop releases the holds of the process, those of the thread included.
    EXPECT_THAT(mServices.activation.GetActive(), testing::ElementsAre("DejaVuSans"));
    mServices.Stop();
    EXPECT_THAT(mServices.activation.GetActive(), testing::IsEmpty());
}

TEST_F(PanelWorkerTest, StopDropsTheRequestsThatWait)
{
    plugincore::PanelProtocol protocol(mServices);
    PanelQueue queue(protocol);
    Exchange(queue, {{1, "{}"}});
    EXPECT_TRUE(queue.WaitForRequest());
    queue.Stop();
    Exchange(queue, {{1, "{}"}});
    EXPECT_FALSE(queue.WaitForRequest());
    EXPECT_FALSE(queue.ServeNext());
}

TEST_F(PanelWorkerTest, ReportsWhyItCannotLookForChanges)
{
    plugincore::PanelProtocol protocol(mServices);
    PanelQueue queue(protocol);
    mServices.activation.Activate("/a.ai", {"DejaVuSans"});
    mServices.database.Execute("ALTER TABLE active_face RENAME TO moved");
    Exchange(queue, {{}});
    ASSERT_TRUE(queue.ServeNext());
    EXPECT_THAT(Exchange(queue, {}).at(0).failure, testing::HasSubstr("no such table"));
    mServices.database.Execute("ALTER TABLE moved RENAME TO active_face");
}

}  // namespace
