#include "PCILoaderFixture.h"

namespace {

// The search for PluginCore: where it looks shows in the path that it hands to the loader.
class PCILoaderSearch : public PCILoaderTest {
protected:
    void Configure(const std::string& content)
    {
        // The user's data folder is the scratch folder.
        (void)Write("Corvanta/com.corvanta.Vexcor-LaunchInfo.conf", content);
    }
    // The path that the search led to.
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
    // A folder of an installation with the framework in it.
    std::string Install(const std::string& name) const
    {
        const std::string folder = scratch + "/" + name + "/";
        std::filesystem::create_directories(folder + "PluginFiles");
        std::filesystem::create_directory_symlink(Framework("complete"),
                                                  folder + "PluginFiles/PluginCore.framework");
        return folder;
    }
};

TEST_F(PCILoaderSearch, LoadsFromTheFolderThatTheFileTells)
{
    const std::string folder = Install("by file");
    Configure("vexcor.path=" + folder + "Vexcor\n");
    const PCILoader* const loader = PCILoader::GetSharedInstance();
    ASSERT_NE(loader, nullptr);
    EXPECT_EQ(loader->frameworkPath, folder + "PluginFiles/PluginCore.framework");
    EXPECT_EQ(loader->missingFunctionCount, 0);
}

TEST_F(PCILoaderSearch, LoadsFromTheFolderOfTheProcess)
{
    const std::string folder = Install("by process");
    ScriptedExecutables() = {"/usr/bin/other", folder + "Vexcor"};
    const PCILoader* const loader = PCILoader::GetSharedInstance();
    ASSERT_NE(loader, nullptr);
    EXPECT_EQ(loader->frameworkPath, folder + "PluginFiles/PluginCore.framework");
}

TEST_F(PCILoaderSearch, ProcessIsAskedBeforeTheFile)
{
    Configure("vexcor.path=/by/file/Vexcor\n");
    ScriptedExecutables() = {"/by/process/Vexcor"};
    EXPECT_EQ(SearchedPath(), "/by/process/PluginFiles/PluginCore.framework");
}

TEST_F(PCILoaderSearch, FirstOfTwoProcessesWins)
{
    ScriptedExecutables() = {"/first/Vexcor", "/second/Vexcor"};
    EXPECT_EQ(SearchedPath(), "/first/PluginFiles/PluginCore.framework");
}

TEST_F(PCILoaderSearch, OtherProcessesDoNotCount)
{
    Configure("vexcor.path=/by/file/Vexcor\n");
    ScriptedExecutables() = {"/a/vexcor", "/a/VEXCOR", "/a/Vexcor2", "/Vexcor/run",
                             "/a/Vexcor (deleted)"};
    EXPECT_EQ(SearchedPath(), "/by/file/PluginFiles/PluginCore.framework");
}

TEST_F(PCILoaderSearch, ProcessAtTheRoot)
{
    ScriptedExecutables() = {"/Vexcor"};
    EXPECT_EQ(SearchedPath(), "//PluginFiles/PluginCore.framework");
}

TEST_F(PCILoaderSearch, PathOfTheFileIsCutBehindItsLastSeparator)
{
    Configure("vexcor.path=/a/b/Vexcor\n");
    EXPECT_EQ(SearchedPath(), "/a/b/PluginFiles/PluginCore.framework");
    Configure("vexcor.path=/a/b/\n");
    EXPECT_EQ(SearchedPath(), "/a/b/PluginFiles/PluginCore.framework");
    Configure("vexcor.path=/Vexcor\n");
    EXPECT_EQ(SearchedPath(), "/PluginFiles/PluginCore.framework");
}

TEST_F(PCILoaderSearch, BackslashesStay)
{
    Configure("vexcor.path=C:\\a\\Vexcor.exe\r\n");
    EXPECT_EQ(SearchedPath(), "C:\\a\\PluginFiles\\PluginCore.framework");
}

TEST_F(PCILoaderSearch, LastSeparatorOfEitherKindCounts)
{
    Configure("vexcor.path=/a\\b/Vexcor\n");
    EXPECT_EQ(SearchedPath(), "/a\\b/PluginFiles/PluginCore.framework");
    Configure("vexcor.path=/a/b\\Vexcor\n");
    EXPECT_EQ(SearchedPath(), "/a/b\\PluginFiles\\PluginCore.framework");
}

TEST_F(PCILoaderSearch, ValueWithoutASeparatorStaysWhole)
{
    Configure("vexcor.path=Vexcor\n");
    EXPECT_EQ(SearchedPath(), "VexcorPluginFilesrPluginCore.framework");
}

TEST_F(PCILoaderSearch, PlainFileBesideTheExecutableSkipsTheSubfolder)
{
    const std::string file = Write("place/PluginCore.framework", "");
    ScriptedExecutables() = {scratch + "/place/Vexcor"};
    EXPECT_EQ(SearchedPath(), file);
}

TEST_F(PCILoaderSearch, PlainFileBesideTheConfiguredPathDoesTheSame)
{
    const std::string file = Write("place/PluginCore.framework", "");
    Configure("vexcor.path=" + scratch + "/place/Vexcor\n");
    EXPECT_EQ(SearchedPath(), file);
}

TEST_F(PCILoaderSearch, FrameworkBesideTheExecutableIsPassedOver)
{
    std::filesystem::create_directories(scratch + "/place");
    std::filesystem::create_directory_symlink(Framework("complete"),
                                              scratch + "/place/PluginCore.framework");
    ScriptedExecutables() = {scratch + "/place/Vexcor"};
    EXPECT_EQ(SearchedPath(), scratch + "/place/PluginFiles/PluginCore.framework");
    EXPECT_EQ(PCILoader::sSharedInstance, nullptr);
}

TEST_F(PCILoaderSearch, NothingToldIsTheBareName)
{
    EXPECT_EQ(SearchedPath(), "PluginCore.framework");
    Configure("other=/a\n");
    EXPECT_EQ(SearchedPath(), "PluginCore.framework");
    Configure("vexcor.path\n");
    EXPECT_EQ(SearchedPath(), "PluginCore.framework");
}

TEST_F(PCILoaderSearch, EmptyValueIsTheBareName)
{
    Configure("vexcor.path=\n");
    EXPECT_EQ(SearchedPath(), "PluginCore.framework");
}

TEST_F(PCILoaderSearch, FailedSearchIsRunAgain)
{
    EXPECT_EQ(PCILoader::GetSharedInstance(), nullptr);
    const std::string folder = Install("later");
    Configure("vexcor.path=" + folder + "Vexcor\n");
    EXPECT_NE(PCILoader::GetSharedInstance(), nullptr);
}

TEST_F(PCILoaderSearch, PlaceWithoutAFrameworkGivesNothing)
{
    Configure("vexcor.path=" + scratch + "/Vexcor\n");
    EXPECT_EQ(PCILoader::GetSharedInstance(), nullptr);
    EXPECT_TRUE(HasTrace("ERROR:  cannot find PluginCore.framework"));
}

TEST_F(PCILoaderSearch, IsNotRunOnceThereIsAnInstance)
{
    PCILoader* const loader = Load("complete");
    Configure("vexcor.path=/elsewhere/Vexcor\n");
    EXPECT_EQ(PCILoader::GetSharedInstance(), loader);
    EXPECT_EQ(loader->frameworkPath, Framework("complete"));
}

}  // namespace
