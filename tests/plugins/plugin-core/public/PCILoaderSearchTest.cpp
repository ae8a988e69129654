#include "PCILoaderFixture.h"

namespace {

// The search for PluginCore. The path that the loader tries shows where the search looked.
class PCILoaderSearch : public PCILoaderTest {
protected:
    void Configure(const std::string& content)
    {
        // The fixture has made the scratch folder the user's data folder.
        (void)Write("Corvanta/com.corvanta.Vexcor-LaunchInfo.conf", content);
    }
    // Runs the search and returns the path that it tried, also if no framework is there.
    static std::string SearchedPath()
    {
        ClearTraces();
        const PCILoader* const loader = PCILoader::GetSharedInstance();
        if (loader != nullptr) return loader->frameworkPath;
        const std::string start = " on attempt to load plug-in interface from '";
        for (const std::string& text : TraceTexts()) {
            const std::size_t position = text.find(start);
            if (position == std::string::npos) continue;
            const std::size_t begin = position + start.size();
            return text.substr(begin, text.size() - begin - 1);
        }
        return "no attempt";
    }
    // Creates an installation folder with the framework in it and returns its path.
    std::string Install(const std::string& name) const
    {
        const std::string folder = scratch + "/" + name + "/";
        std::filesystem::create_directories(folder + "PluginFiles");
        std::filesystem::create_directory_symlink(Framework("complete"),
                                                  folder + "PluginFiles/PluginCore.framework");
        return folder;
    }
};

TEST_F(PCILoaderSearch, LoadsFromTheFolderInTheLaunchInformation)
{
    const std::string folder = Install("by file");
    Configure("vexcor.path=" + folder + "Vexcor\n");
    const PCILoader* const loader = PCILoader::GetSharedInstance();
    ASSERT_NE(nullptr, loader);
    EXPECT_EQ(folder + "PluginFiles/PluginCore.framework", loader->frameworkPath);
    EXPECT_EQ(0, loader->missingFunctionCount);
}

TEST_F(PCILoaderSearch, LoadsFromTheFolderOfTheProcess)
{
    const std::string folder = Install("by process");
    ScriptedExecutables() = {"/usr/bin/other", folder + "Vexcor"};
    const PCILoader* const loader = PCILoader::GetSharedInstance();
    ASSERT_NE(nullptr, loader);
    EXPECT_EQ(folder + "PluginFiles/PluginCore.framework", loader->frameworkPath);
}

TEST_F(PCILoaderSearch, ProcessTakesPrecedenceOverTheLaunchInformation)
{
    Configure("vexcor.path=/by/file/Vexcor\n");
    ScriptedExecutables() = {"/by/process/Vexcor"};
    EXPECT_EQ("/by/process/PluginFiles/PluginCore.framework", SearchedPath());
}

TEST_F(PCILoaderSearch, FirstOfTwoProcessesWins)
{
    ScriptedExecutables() = {"/first/Vexcor", "/second/Vexcor"};
    EXPECT_EQ("/first/PluginFiles/PluginCore.framework", SearchedPath());
}

TEST_F(PCILoaderSearch, ProcessesOfOtherNamesAreIgnored)
{
    Configure("vexcor.path=/by/file/Vexcor\n");
    ScriptedExecutables() = {"/a/vexcor", "/a/VEXCOR", "/a/Vexcor2", "/Vexcor/run",
                             "/a/Vexcor (deleted)"};
    EXPECT_EQ("/by/file/PluginFiles/PluginCore.framework", SearchedPath());
}

TEST_F(PCILoaderSearch, ProcessAtTheRootGivesADoubleSlash)
{
    ScriptedExecutables() = {"/Vexcor"};
    EXPECT_EQ("//PluginFiles/PluginCore.framework", SearchedPath());
}

TEST_F(PCILoaderSearch, ConfiguredPathIsCutAfterItsLastSeparator)
{
    Configure("vexcor.path=/a/b/Vexcor\n");
    EXPECT_EQ("/a/b/PluginFiles/PluginCore.framework", SearchedPath());
    Configure("vexcor.path=/a/b/\n");
    EXPECT_EQ("/a/b/PluginFiles/PluginCore.framework", SearchedPath());
    Configure("vexcor.path=/Vexcor\n");
    EXPECT_EQ("/PluginFiles/PluginCore.framework", SearchedPath());
}

TEST_F(PCILoaderSearch, BackslashesAreKept)
{
    Configure("vexcor.path=C:\\a\\Vexcor.exe\r\n");
    EXPECT_EQ("C:\\a\\PluginFiles\\PluginCore.framework", SearchedPath());
}

TEST_F(PCILoaderSearch, LastSeparatorOfEitherKindIsUsed)
{
    Configure("vexcor.path=/a\\b/Vexcor\n");
    EXPECT_EQ("/a\\b/PluginFiles/PluginCore.framework", SearchedPath());
    Configure("vexcor.path=/a/b\\Vexcor\n");
    EXPECT_EQ("/a/b\\PluginFiles\\PluginCore.framework", SearchedPath());
}

TEST_F(PCILoaderSearch, ValueWithoutASeparatorIsUsedWhole)
{
    Configure("vexcor.path=Vexcor\n");
    EXPECT_EQ("VexcorPluginFilesrPluginCore.framework", SearchedPath());
}

TEST_F(PCILoaderSearch, PlainFileBesideTheExecutableSkipsTheSubfolder)
{
    const std::string file = Write("place/PluginCore.framework", "");
    ScriptedExecutables() = {scratch + "/place/Vexcor"};
    EXPECT_EQ(file, SearchedPath());
}

TEST_F(PCILoaderSearch, PlainFileBesideTheConfiguredPathSkipsTheSubfolder)
{
    const std::string file = Write("place/PluginCore.framework", "");
    Configure("vexcor.path=" + scratch + "/place/Vexcor\n");
    EXPECT_EQ(file, SearchedPath());
}

TEST_F(PCILoaderSearch, FrameworkBesideTheExecutableIsIgnored)
{
    std::filesystem::create_directories(scratch + "/place");
    std::filesystem::create_directory_symlink(Framework("complete"),
                                              scratch + "/place/PluginCore.framework");
    ScriptedExecutables() = {scratch + "/place/Vexcor"};
    EXPECT_EQ(scratch + "/place/PluginFiles/PluginCore.framework", SearchedPath());
    EXPECT_EQ(nullptr, PCILoader::sSharedInstance);
}

TEST_F(PCILoaderSearch, NoConfigurationGivesTheBareName)
{
    EXPECT_EQ("PluginCore.framework", SearchedPath());
    Configure("other=/a\n");
    EXPECT_EQ("PluginCore.framework", SearchedPath());
    Configure("vexcor.path\n");
    EXPECT_EQ("PluginCore.framework", SearchedPath());
}

TEST_F(PCILoaderSearch, EmptyValueGivesTheBareName)
{
    Configure("vexcor.path=\n");
    EXPECT_EQ("PluginCore.framework", SearchedPath());
}

TEST_F(PCILoaderSearch, FailedSearchIsRepeated)
{
    EXPECT_EQ(nullptr, PCILoader::GetSharedInstance());
    const std::string folder = Install("later");
    Configure("vexcor.path=" + folder + "Vexcor\n");
    EXPECT_NE(nullptr, PCILoader::GetSharedInstance());
}

TEST_F(PCILoaderSearch, FolderWithoutAFrameworkGivesNull)
{
    Configure("vexcor.path=" + scratch + "/Vexcor\n");
    EXPECT_EQ(nullptr, PCILoader::GetSharedInstance());
    EXPECT_TRUE(HasTrace("ERROR:  cannot find PluginCore.framework"));
}

TEST_F(PCILoaderSearch, IsSkippedIfThereIsAnInstance)
{
    PCILoader* const loader = Load("complete");
    Configure("vexcor.path=/elsewhere/Vexcor\n");
    EXPECT_EQ(loader, PCILoader::GetSharedInstance());
    EXPECT_EQ(Framework("complete"), loader->frameworkPath);
}

}  // namespace
