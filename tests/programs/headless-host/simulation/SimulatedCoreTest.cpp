#include "simulation/SimulatedCore.h"

#include <gtest/gtest.h>

#include "HostFixture.h"

using headless::CoreBehaviour;
using headless::SimulatedCore;

class SimulatedCoreTest : public HostFixture {
protected:
    HostAnswer Ask(const std::string& function,
                   const nlohmann::json& arguments = nlohmann::json::object())
    {
        HostAnswer answer = {};
        core.Answer(function, arguments, answer);
        return answer;
    }

    static std::string GetText(const HostAnswer& answer)
    {
        return answer.hasText ? std::string(answer.text, answer.textSize) : "no text";
    }

    SimulatedCore core;
};

TEST_F(SimulatedCoreTest, ASoundOneHasNothingToDo)
{
    EXPECT_EQ("{}", GetText(Ask("GetSettings")));
    EXPECT_EQ("", GetText(Ask("HandleOpenExistingDocument")));
    EXPECT_EQ("id:new", GetText(Ask("HandleCreateNewDocument")));
    EXPECT_EQ("id:/a.ai", GetText(Ask("GetIDForDocument", {{"documentPath", "/a.ai"}})));
    EXPECT_EQ("", GetText(Ask("GetIDForDocument", {{"documentPath", ""}})));
    EXPECT_EQ("no text", GetText(Ask("IdleEvent")));
    const HostAnswer port = Ask("GetSocketPort");
    EXPECT_TRUE(port.hasNumber);
    EXPECT_EQ(4711, port.number);
    EXPECT_FALSE(Ask("ActivateChosenFonts").hasNumber);
    EXPECT_TRUE(Ask("PluginIsEnabled").flag);
    const nlohmann::json menus = nlohmann::json::parse(GetText(Ask("GetMenus")));
    std::vector<std::string> labels;
    for (const auto& item : menus.at("child")) labels.push_back(item.at("label"));
    EXPECT_THAT(labels, testing::ElementsAre("Activate Fonts", "Deactivate Fonts", "Select Library",
                                             "line", "About"));
}

TEST_F(SimulatedCoreTest, CountsTheCallsOfEachFunction)
{
    EXPECT_EQ(0U, core.GetCount("IdleEvent"));
    (void)Ask("IdleEvent");
    (void)Ask("IdleEvent");
    (void)Ask("GetMenus");
    EXPECT_EQ(2U, core.GetCount("IdleEvent"));
    EXPECT_EQ(3U, host->coreFaults.GetCount());
}

TEST_F(SimulatedCoreTest, DoesWhatIsOrderedAsOftenAsIsOrdered)
{
    CoreBehaviour behaviour;
    behaviour.status = 7;
    behaviour.number = 3;
    behaviour.size = 9;
    behaviour.text = "x";
    behaviour.flag = false;
    behaviour.times = 2;
    core.Set("GetSettings", behaviour);
    for (int i = 0; i < 2; ++i) {
        const HostAnswer answer = Ask("GetSettings");
        EXPECT_EQ(7U, answer.status);
        EXPECT_TRUE(answer.hasNumber && answer.hasSize && answer.hasFlag && !answer.flag);
        EXPECT_EQ(3, answer.number);
        EXPECT_EQ(9U, answer.size);
        EXPECT_EQ("x", GetText(answer));
    }
    EXPECT_EQ(0U, Ask("GetSettings").status);
    EXPECT_EQ("{}", GetText(Ask("GetSettings")));
}

TEST_F(SimulatedCoreTest, ARefusalHasNoTextAndNoNumber)
{
    CoreBehaviour behaviour;
    behaviour.status = 7;
    core.Set("GetSettings", behaviour);
    core.Set("GetSocketPort", behaviour);
    EXPECT_EQ("no text", GetText(Ask("GetSettings")));
    EXPECT_FALSE(Ask("GetSocketPort").hasNumber);
    EXPECT_FALSE(Ask("GetSocketPort").hasFlag);
}

TEST_F(SimulatedCoreTest, AFaultOfTheHostComesBeforeABehaviour)
{
    CoreBehaviour behaviour;
    behaviour.text = "x";
    core.Set("GetSettings", behaviour);
    host->coreFaults.FailCall(1, {12, ""});
    EXPECT_EQ(12U, Ask("GetSettings").status);
    host->coreFaults.FailCall(1, {0, "int"});
    EXPECT_THROW((void)Ask("GetSettings"), int);
    EXPECT_EQ("x", GetText(Ask("GetSettings")));
    behaviour.exceptionType = "std::exception";
    core.Set("GetSettings", behaviour);
    EXPECT_THROW((void)Ask("GetSettings"), std::exception);
}

TEST_F(SimulatedCoreTest, TheTextsOfNestedCallsRemain)
{
    const HostAnswer outer = Ask("GetSettings");
    for (int i = 0; i < 10; ++i) (void)Ask("GetMenus");
    EXPECT_EQ("{}", GetText(outer));
}

TEST_F(SimulatedCoreTest, AnAnswererTakesAllCalls)
{
    core.SetAnswerer([](const std::string& function, const nlohmann::json&, HostAnswer& answer) {
        answer.status = static_cast<unsigned>(function.size());
    });
    EXPECT_EQ(9U, Ask("IdleEvent").status);
    EXPECT_EQ(1U, core.GetCount("IdleEvent"));
}

TEST(SimulatedCoreLifeTest, IsFoundAsLongAsItLives)
{
    EXPECT_EQ(nullptr, SimulatedCore::GetCurrent());
    {
        const SimulatedCore core;
        EXPECT_EQ(&core, SimulatedCore::GetCurrent());
    }
    HostAnswer answer = {};
    HeadlessHostAnswerCore("IdleEvent", "{}", &answer);
    EXPECT_EQ(nullptr, SimulatedCore::GetCurrent());
}
