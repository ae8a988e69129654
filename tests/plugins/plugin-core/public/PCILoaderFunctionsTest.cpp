#include <cstddef>
#include <cstring>
#include <type_traits>

#include "PCILoaderFixture.h"

namespace {

// The table as it is meant to be, in the order of look-up.
const char* const kNames[] = {"ActivateChosenFonts",
                              "CreateMenusFromJSONBuffer",
                              "GetAPIVersion",
                              "GetIDForDocument",
                              "GetMenus",
                              "GetSettings",
                              "GetSocketPort",
                              "HandleCloseDocument",
                              "HandleCreateNewDocument",
                              "HandleMenuSelection",
                              "HandleOpenExistingDocument",
                              "HandleSaveDocument",
                              "IdleEvent",
                              "InitializePluginCoreInterface",
                              "InvokeCommandDialog",
                              "InvokeResolveDialog",
                              "InvokeRestrictedFontsDialog",
                              "PluginIsEnabled",
                              "ProcessPanelMessages",
                              "RegisterPlugPlug",
                              "SetPathForDocument",
                              "TerminatePluginCoreInterface",
                              "UpdateDocumentFontUsage",
                              "SetRebuildWorkgroupsMenuCallback",
                              "ShowNotLoggedInMessageBox",
                              "ShouldShowLogin"};
constexpr int kCount = 26;
static_assert(std::extent_v<decltype(kNames)> == kCount);

// The 26 members one by one, by their place in the object: right behind the virtual table.
void* Slot(PCILoader& loader, int index)
{
    void* value = nullptr;
    const char* const first = reinterpret_cast<const char*>(&loader) + sizeof(void*);
    std::memcpy(&value, first + static_cast<std::size_t>(index) * sizeof(void*), sizeof value);
    return value;
}

void SetSlot(PCILoader& loader, int index, void* value)
{
    char* const first = reinterpret_cast<char*>(&loader) + sizeof(void*);
    std::memcpy(first + static_cast<std::size_t>(index) * sizeof(void*), &value, sizeof value);
}

TEST_F(PCILoaderTest, MembersFollowEachOtherInTableOrder)
{
    PCILoader* const loader = Load("complete");
    ASSERT_NE(loader, nullptr);
    const BundleRef bundle = LoadDllOrFramework(Framework("complete").c_str(), nullptr, 0);
    for (int index = 0; index < kCount; ++index) {
        EXPECT_NE(Slot(*loader, index), nullptr) << kNames[index];
        EXPECT_EQ(Slot(*loader, index), GetFunctionPtr(bundle, kNames[index])) << kNames[index];
    }
}

TEST_F(PCILoaderTest, MembersAreNamedAfterTheirFunctions)
{
    const PCILoader loader;
    const auto first = reinterpret_cast<const char*>(&loader.pfActivateChosenFonts);
    const auto place = [first](const auto& member) {
        return (reinterpret_cast<const char*>(&member) - first) / 8;
    };
    EXPECT_EQ(place(loader.pfCreateMenusFromJSONBuffer), 1);
    EXPECT_EQ(place(loader.pfHandleOpenExistingDocument), 10);
    EXPECT_EQ(place(loader.pfInvokeResolveDialog), 15);
    EXPECT_EQ(place(loader.pfTerminatePluginCoreInterface), 21);
    EXPECT_EQ(place(loader.pfSetRebuildWorkgroupsMenuCallback), 23);
    EXPECT_EQ(place(loader.pfShowNotLoggedInMessageBox), 24);
    EXPECT_EQ(place(loader.pfShouldShowLogin), 25);
    EXPECT_EQ(place(loader.frameworkPath), 26);
}

TEST_F(PCILoaderTest, NamesAreLookedUpInTableOrder)
{
    ASSERT_NE(Load("complete"), nullptr);
    std::vector<std::string> looked;
    for (const TraceLine& line : Traces()) {
        const std::size_t start = line.text.find(", '");
        if (line.text.compare(0, 33, "CFBundleGetFunctionPointerForName") != 0) continue;
        if (line.text.compare(33, 11, "(0x00000000") == 0) continue;
        looked.push_back(line.text.substr(start + 3, line.text.find('\'', start + 3) - start - 3));
    }
    EXPECT_THAT(looked, ::testing::ElementsAreArray(kNames));
}

TEST_F(PCILoaderTest, ResettingWithoutABundleEmptiesTheTableAndAddsToTheCount)
{
    PCILoader* const loader = Load("complete");
    ASSERT_NE(loader, nullptr);
    PCILoader::ResetFunctionPointers(loader, nullptr);
    EXPECT_EQ(loader->missingFunctionCount, 26);
    EXPECT_EQ(Slot(*loader, 0), nullptr);
    PCILoader::ResetFunctionPointers(loader, nullptr);
    EXPECT_EQ(loader->missingFunctionCount, 52);
}

TEST_F(PCILoaderTest, VerifyingAFullTable)
{
    PCILoader* const loader = Load("complete");
    ASSERT_NE(loader, nullptr);
    ClearTraces();
    EXPECT_TRUE(loader->VerifyThatAllMembersAre(true));
    EXPECT_FALSE(HasTraceBeginningWith("ERROR:  this->pf"));
    EXPECT_FALSE(loader->VerifyThatAllMembersAre(false));
    EXPECT_TRUE(HasTrace("ERROR:  this->pfActivateChosenFonts is not NULL."));
}

// One trace for each of the first 24 members; the last two are never looked at.
TEST_F(PCILoaderTest, VerifyingNamesEachMemberThatIsNull)
{
    PCILoader loader;
    for (int index = 0; index < kCount; ++index) {
        ClearTraces();
        for (int each = 0; each < kCount; ++each) {
            SetSlot(loader, each, each == index ? nullptr : reinterpret_cast<void*>(0x1000));
        }
        EXPECT_EQ(loader.VerifyThatAllMembersAre(true), index >= 24) << kNames[index];
        const std::string line = "ERROR:  this->pf" + std::string(kNames[index]) + " is NULL.";
        EXPECT_EQ(CountTraces(line), index >= 24 ? 0U : 1U) << kNames[index];
    }
}

TEST_F(PCILoaderTest, VerifyingNamesEachMemberThatIsSet)
{
    PCILoader loader;
    for (int index = 0; index < kCount; ++index) {
        ClearTraces();
        for (int each = 0; each < kCount; ++each) {
            SetSlot(loader, each, each == index ? reinterpret_cast<void*>(0x1000) : nullptr);
        }
        EXPECT_EQ(loader.VerifyThatAllMembersAre(false), index >= 24) << kNames[index];
        const std::string line = "ERROR:  this->pf" + std::string(kNames[index]) + " is not NULL.";
        EXPECT_EQ(CountTraces(line), index >= 24 ? 0U : 1U) << kNames[index];
    }
}

TEST_F(PCILoaderTest, VerifyingGoesOnAfterTheFirstFault)
{
    PCILoader loader;
    EXPECT_FALSE(loader.VerifyThatAllMembersAre(true));
    std::size_t faults = 0;
    for (const TraceLine& line : Traces())
        faults += line.text.find(" is NULL.") != std::string::npos;
    EXPECT_EQ(faults, 24U);
}

}  // namespace
