#include <cstddef>
#include <cstring>
#include <type_traits>

#include "PCILoaderFixture.h"

namespace {

// The expected table, in the order of look-up.
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

// Returns a member by its index. The 26 members follow the pointer to the virtual table.
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
    ASSERT_NE(nullptr, loader);
    const BundleRef bundle = LoadDllOrFramework(Framework("complete").c_str(), nullptr, 0);
    for (int index = 0; index < kCount; ++index) {
        EXPECT_NE(nullptr, Slot(*loader, index)) << kNames[index];
        EXPECT_EQ(GetFunctionPtr(bundle, kNames[index]), Slot(*loader, index)) << kNames[index];
    }
}

TEST_F(PCILoaderTest, MembersAreNamedAfterTheirFunctions)
{
    const PCILoader loader;
    const auto first = reinterpret_cast<const char*>(&loader.pfActivateChosenFonts);
    const auto place = [first](const auto& member) {
        return (reinterpret_cast<const char*>(&member) - first) / 8;
    };
    EXPECT_EQ(1, place(loader.pfCreateMenusFromJSONBuffer));
    EXPECT_EQ(10, place(loader.pfHandleOpenExistingDocument));
    EXPECT_EQ(15, place(loader.pfInvokeResolveDialog));
    EXPECT_EQ(21, place(loader.pfTerminatePluginCoreInterface));
    EXPECT_EQ(23, place(loader.pfSetRebuildWorkgroupsMenuCallback));
    EXPECT_EQ(24, place(loader.pfShowNotLoggedInMessageBox));
    EXPECT_EQ(25, place(loader.pfShouldShowLogin));
    EXPECT_EQ(26, place(loader.frameworkPath));
}

TEST_F(PCILoaderTest, NamesAreLookedUpInTableOrder)
{
    ASSERT_NE(nullptr, Load("complete"));
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
    ASSERT_NE(nullptr, loader);
    PCILoader::ResetFunctionPointers(loader, nullptr);
    EXPECT_EQ(26, loader->missingFunctionCount);
    EXPECT_EQ(nullptr, Slot(*loader, 0));
    PCILoader::ResetFunctionPointers(loader, nullptr);
    EXPECT_EQ(52, loader->missingFunctionCount);
}

TEST_F(PCILoaderTest, VerifyingAcceptsAFullTable)
{
    PCILoader* const loader = Load("complete");
    ASSERT_NE(nullptr, loader);
    ClearTraces();
    EXPECT_TRUE(loader->VerifyThatAllMembersAre(true));
    EXPECT_FALSE(HasTraceBeginningWith("ERROR:  this->pf"));
    EXPECT_FALSE(loader->VerifyThatAllMembersAre(false));
    EXPECT_TRUE(HasTrace("ERROR:  this->pfActivateChosenFonts is not NULL."));
}

// Each of the first 24 members causes one trace; the last two are not checked.
TEST_F(PCILoaderTest, VerifyingNamesEachMemberThatIsNull)
{
    PCILoader loader;
    for (int index = 0; index < kCount; ++index) {
        ClearTraces();
        for (int each = 0; each < kCount; ++each) {
            SetSlot(loader, each, each == index ? nullptr : reinterpret_cast<void*>(0x1000));
        }
        EXPECT_EQ(index >= 24, loader.VerifyThatAllMembersAre(true)) << kNames[index];
        const std::string line = "ERROR:  this->pf" + std::string(kNames[index]) + " is NULL.";
        EXPECT_EQ(index >= 24 ? 0U : 1U, CountTraces(line)) << kNames[index];
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
        EXPECT_EQ(index >= 24, loader.VerifyThatAllMembersAre(false)) << kNames[index];
        const std::string line = "ERROR:  this->pf" + std::string(kNames[index]) + " is not NULL.";
        EXPECT_EQ(index >= 24 ? 0U : 1U, CountTraces(line)) << kNames[index];
    }
}

TEST_F(PCILoaderTest, VerifyingContinuesAfterTheFirstFault)
{
    PCILoader loader;
    EXPECT_FALSE(loader.VerifyThatAllMembersAre(true));
    std::size_t faults = 0;
    for (const TraceLine& line : Traces()) {
        faults += line.text.find(" is NULL.") != std::string::npos;
    }
    EXPECT_EQ(24U, faults);
}

}  // namespace
