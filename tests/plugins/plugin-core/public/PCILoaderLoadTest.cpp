#include "PCILoaderFixture.h"

namespace {

std::string Low32(const void* address)
{
    char text[16];
    (void)snprintf(text, sizeof text, "0x%08x",
                   static_cast<unsigned>(reinterpret_cast<std::uintptr_t>(address)));
    return text;
}

TEST_F(PCILoaderTest, NothingIsFoundInAnEmptyWorkingFolder)
{
    EXPECT_EQ(PCILoader::GetSharedInstance(), nullptr);
    EXPECT_TRUE(HasTrace("ERROR:  cannot find PluginCore.framework"));
    EXPECT_TRUE(HasTraceBeginningWith("Entering first call to "));
    EXPECT_TRUE(HasTraceBeginningWith("Exiting first call to "));
}

TEST_F(PCILoaderTest, FirstCallNamesTheInstanceThatItFound)
{
    ASSERT_EQ(chdir(Folder("complete").c_str()), 0);
    const PCILoader* const loader = PCILoader::GetSharedInstance();
    ASSERT_NE(loader, nullptr);
    const TraceLine& last = Traces().back();
    EXPECT_EQ(last.indentChange, -1);
    EXPECT_THAT(last.text,
                ::testing::EndsWith("GetSharedInstance(); sSharedInstance=" + Low32(loader)));
}

TEST_F(PCILoaderTest, BareNameIsTakenFromTheWorkingFolder)
{
    ASSERT_EQ(chdir(Folder("complete").c_str()), 0);
    const PCILoader* const loader = PCILoader::GetSharedInstance();
    ASSERT_NE(loader, nullptr);
    EXPECT_EQ(loader->frameworkPath, "PluginCore.framework");
    EXPECT_TRUE(HasTrace("Loaded PluginCore.framework"));
}

TEST_F(PCILoaderTest, FailedSearchIsNotRemembered)
{
    EXPECT_EQ(PCILoader::GetSharedInstance(), nullptr);
    ASSERT_EQ(chdir(Folder("complete").c_str()), 0);
    EXPECT_NE(PCILoader::GetSharedInstance(), nullptr);
}

TEST_F(PCILoaderTest, LaterCallsDoNothing)
{
    PCILoader* const loader = Load("complete");
    ClearTraces();
    EXPECT_EQ(PCILoader::GetSharedInstance(), loader);
    EXPECT_THAT(Traces(), ::testing::IsEmpty());
}

TEST_F(PCILoaderTest, KeepsPathAndVersionOfTheFramework)
{
    const PCILoader* const loader = Load("complete");
    ASSERT_NE(loader, nullptr);
    EXPECT_EQ(loader->frameworkPath, Framework("complete"));
    EXPECT_EQ(loader->frameworkVersion, "4.5.6");
    EXPECT_EQ(loader->missingFunctionCount, 0);
    EXPECT_TRUE(HasTrace("Loaded " + Framework("complete")));
    EXPECT_EQ(PCILoader::sSharedInstance, loader);
}

TEST_F(PCILoaderTest, SecondPathGivesTheFirstInstance)
{
    PCILoader* const first = Load("complete");
    EXPECT_EQ(Load("no-version-text"), first);
    EXPECT_EQ(first->frameworkPath, Framework("complete"));
}

TEST_F(PCILoaderTest, FrameworkWithoutVersionTextHasAnEmptyOne)
{
    const PCILoader* const loader = Load("no-version-text");
    ASSERT_NE(loader, nullptr);
    EXPECT_EQ(loader->frameworkVersion, "");
}

TEST_F(PCILoaderTest, PathWithoutAFrameworkGivesNothing)
{
    EXPECT_EQ(PCILoader::GetThisSharedInstance(scratch + "/PluginCore.framework"), nullptr);
    EXPECT_TRUE(HasTrace("ERROR:  cannot find PluginCore.framework"));
    EXPECT_TRUE(HasTrace(
        "CFBundleCreate() returned 0x00000000 on attempt to load plug-in interface from '" +
        scratch + "/PluginCore.framework'"));
    EXPECT_EQ(PCILoader::sSharedInstance, nullptr);
}

TEST_F(PCILoaderTest, TextInThePlaceOfTheLibraryIsNoFramework)
{
    EXPECT_EQ(Load("not-a-library"), nullptr);
    EXPECT_TRUE(HasTrace("ERROR:  cannot find PluginCore.framework"));
}

TEST_F(PCILoaderTest, OpeningTracesTheBundle)
{
    char buffer[1024] = {};
    const BundleRef bundle =
        LoadDllOrFramework(Framework("complete").c_str(), buffer, sizeof buffer);
    ASSERT_NE(bundle, nullptr);
    EXPECT_STREQ(buffer, "4.5.6");
    EXPECT_TRUE(HasTrace("CFBundleCreate() returned " + Low32(bundle) +
                         " on attempt to load plug-in interface from '" + Framework("complete") +
                         "'"));
}

TEST_F(PCILoaderTest, VersionTextIsCutToTheBuffer)
{
    char buffer[4] = {'x', 'x', 'x', 'x'};
    ASSERT_NE(LoadDllOrFramework(Framework("complete").c_str(), buffer, 4), nullptr);
    EXPECT_EQ(std::string(buffer, 3), "4.5");
}

TEST_F(PCILoaderTest, LookUpTracesNameAndAddress)
{
    const BundleRef bundle = LoadDllOrFramework(Framework("missing-GetMenus").c_str(), nullptr, 0);
    ASSERT_NE(bundle, nullptr);
    const void* const found = GetFunctionPtr(bundle, "GetSettings");
    EXPECT_NE(found, nullptr);
    EXPECT_EQ(GetFunctionPtr(bundle, "GetMenus"), nullptr);
    const std::string start = "CFBundleGetFunctionPointerForName(" + Low32(bundle);
    EXPECT_TRUE(HasTrace(start + ", 'GetSettings') returned " + Low32(found)));
    EXPECT_TRUE(HasTrace(start + ", 'GetMenus') returned 0x00000000"));
}

TEST_F(PCILoaderTest, LookUpWithoutBundleOrNameIsNull)
{
    EXPECT_EQ(GetFunctionPtr(nullptr, "GetMenus"), nullptr);
    const BundleRef bundle = LoadDllOrFramework(Framework("complete").c_str(), nullptr, 0);
    EXPECT_EQ(GetFunctionPtr(bundle, nullptr), nullptr);
}

TEST_F(PCILoaderTest, NewLoaderCountsFiftyMissing)
{
    const PCILoader loader;
    EXPECT_EQ(loader.missingFunctionCount, 50);
    EXPECT_EQ(loader.pfActivateChosenFonts, nullptr);
    EXPECT_EQ(loader.pfShouldShowLogin, nullptr);
    EXPECT_FALSE(HasTraceBeginningWith("ERROR:  this->pf"));
}

TEST_F(PCILoaderTest, DestructorForgetsTheInstance)
{
    {
        PCILoader loader;
        PCILoader::sSharedInstance = &loader;
    }
    EXPECT_EQ(PCILoader::sSharedInstance, nullptr);
}

}  // namespace
