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
    EXPECT_EQ(nullptr, PCILoader::GetSharedInstance());
    EXPECT_TRUE(HasTrace("ERROR:  cannot find PluginCore.framework"));
    EXPECT_TRUE(HasTraceBeginningWith("Entering first call to "));
    EXPECT_TRUE(HasTraceBeginningWith("Exiting first call to "));
}

TEST_F(PCILoaderTest, FirstCallTracesTheInstanceThatItFound)
{
    ASSERT_EQ(0, chdir(Folder("complete").c_str()));
    const PCILoader* const loader = PCILoader::GetSharedInstance();
    ASSERT_NE(nullptr, loader);
    const TraceLine& last = Traces().back();
    EXPECT_EQ(-1, last.indentChange);
    EXPECT_THAT(last.text,
                ::testing::EndsWith("GetSharedInstance(); sSharedInstance=" + Low32(loader)));
}

TEST_F(PCILoaderTest, BareNameIsTakenFromTheWorkingFolder)
{
    ASSERT_EQ(0, chdir(Folder("complete").c_str()));
    const PCILoader* const loader = PCILoader::GetSharedInstance();
    ASSERT_NE(nullptr, loader);
    EXPECT_EQ("PluginCore.framework", loader->frameworkPath);
    EXPECT_TRUE(HasTrace("Loaded PluginCore.framework"));
}

TEST_F(PCILoaderTest, FailedSearchIsNotRemembered)
{
    EXPECT_EQ(nullptr, PCILoader::GetSharedInstance());
    ASSERT_EQ(0, chdir(Folder("complete").c_str()));
    EXPECT_NE(nullptr, PCILoader::GetSharedInstance());
}

TEST_F(PCILoaderTest, LaterCallsDoNothing)
{
    PCILoader* const loader = Load("complete");
    ClearTraces();
    EXPECT_EQ(loader, PCILoader::GetSharedInstance());
    EXPECT_THAT(Traces(), ::testing::IsEmpty());
}

TEST_F(PCILoaderTest, KeepsPathAndVersionOfTheFramework)
{
    const PCILoader* const loader = Load("complete");
    ASSERT_NE(nullptr, loader);
    EXPECT_EQ(Framework("complete"), loader->frameworkPath);
    EXPECT_EQ("4.5.6", loader->frameworkVersion);
    EXPECT_EQ(0, loader->missingFunctionCount);
    EXPECT_TRUE(HasTrace("Loaded " + Framework("complete")));
    EXPECT_EQ(loader, PCILoader::sSharedInstance);
}

TEST_F(PCILoaderTest, SecondPathGivesTheFirstInstance)
{
    PCILoader* const first = Load("complete");
    EXPECT_EQ(first, Load("no-version-text"));
    EXPECT_EQ(Framework("complete"), first->frameworkPath);
}

TEST_F(PCILoaderTest, FrameworkWithoutVersionTextHasAnEmptyOne)
{
    const PCILoader* const loader = Load("no-version-text");
    ASSERT_NE(nullptr, loader);
    EXPECT_EQ("", loader->frameworkVersion);
}

TEST_F(PCILoaderTest, PathWithoutAFrameworkGivesNull)
{
    EXPECT_EQ(nullptr, PCILoader::GetThisSharedInstance(scratch + "/PluginCore.framework"));
    EXPECT_TRUE(HasTrace("ERROR:  cannot find PluginCore.framework"));
    EXPECT_TRUE(HasTrace(
        "CFBundleCreate() returned 0x00000000 on attempt to load plug-in interface from '" +
        scratch + "/PluginCore.framework'"));
    EXPECT_EQ(nullptr, PCILoader::sSharedInstance);
}

TEST_F(PCILoaderTest, TextFileInPlaceOfTheLibraryIsRejected)
{
    EXPECT_EQ(nullptr, Load("not-a-library"));
    EXPECT_TRUE(HasTrace("ERROR:  cannot find PluginCore.framework"));
}

TEST_F(PCILoaderTest, OpeningTracesTheBundle)
{
    char buffer[1024] = {};
    const BundleRef bundle =
        LoadDllOrFramework(Framework("complete").c_str(), buffer, sizeof buffer);
    ASSERT_NE(nullptr, bundle);
    EXPECT_STREQ("4.5.6", buffer);
    EXPECT_TRUE(HasTrace("CFBundleCreate() returned " + Low32(bundle) +
                         " on attempt to load plug-in interface from '" + Framework("complete") +
                         "'"));
}

TEST_F(PCILoaderTest, VersionTextIsCutToTheBuffer)
{
    char buffer[4] = {'x', 'x', 'x', 'x'};
    ASSERT_NE(nullptr, LoadDllOrFramework(Framework("complete").c_str(), buffer, 4));
    EXPECT_EQ("4.5", std::string(buffer, 3));
}

TEST_F(PCILoaderTest, LookUpTracesNameAndAddress)
{
    const BundleRef bundle = LoadDllOrFramework(Framework("missing-GetMenus").c_str(), nullptr, 0);
    ASSERT_NE(nullptr, bundle);
    const void* const found = GetFunctionPtr(bundle, "GetSettings");
    EXPECT_NE(nullptr, found);
    EXPECT_EQ(nullptr, GetFunctionPtr(bundle, "GetMenus"));
    const std::string start = "CFBundleGetFunctionPointerForName(" + Low32(bundle);
    EXPECT_TRUE(HasTrace(start + ", 'GetSettings') returned " + Low32(found)));
    EXPECT_TRUE(HasTrace(start + ", 'GetMenus') returned 0x00000000"));
}

TEST_F(PCILoaderTest, LookUpWithoutBundleOrNameIsNull)
{
    EXPECT_EQ(nullptr, GetFunctionPtr(nullptr, "GetMenus"));
    const BundleRef bundle = LoadDllOrFramework(Framework("complete").c_str(), nullptr, 0);
    EXPECT_EQ(nullptr, GetFunctionPtr(bundle, nullptr));
}

TEST_F(PCILoaderTest, NewLoaderReportsFiftyMissingFunctions)
{
    const PCILoader loader;
    EXPECT_EQ(50, loader.missingFunctionCount);
    EXPECT_EQ(nullptr, loader.pfActivateChosenFonts);
    EXPECT_EQ(nullptr, loader.pfShouldShowLogin);
    EXPECT_FALSE(HasTraceBeginningWith("ERROR:  this->pf"));
}

TEST_F(PCILoaderTest, DestructorResetsTheSharedInstance)
{
    {
        PCILoader loader;
        PCILoader::sSharedInstance = &loader;
    }
    EXPECT_EQ(nullptr, PCILoader::sSharedInstance);
}

}  // namespace
