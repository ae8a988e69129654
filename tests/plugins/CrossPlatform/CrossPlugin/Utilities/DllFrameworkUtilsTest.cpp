#include "DllFrameworkUtils.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <filesystem>

#include "RecordingTrace.h"
#include "ScratchFolder.h"

namespace {

// {"CFBundleShortVersionString": "2.5.1"} as a binary property list.
const unsigned char kBinaryPropertyList[] = {
    0x62, 0x70, 0x6c, 0x69, 0x73, 0x74, 0x30, 0x30, 0xd1, 0x01, 0x02, 0x5f, 0x10, 0x1a,
    0x43, 0x46, 0x42, 0x75, 0x6e, 0x64, 0x6c, 0x65, 0x53, 0x68, 0x6f, 0x72, 0x74, 0x56,
    0x65, 0x72, 0x73, 0x69, 0x6f, 0x6e, 0x53, 0x74, 0x72, 0x69, 0x6e, 0x67, 0x55, 0x32,
    0x2e, 0x35, 0x2e, 0x31, 0x08, 0x0b, 0x28, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x01,
    0x01, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x03, 0x00, 0x00, 0x00, 0x00, 0x00,
    0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x2e};

std::string PropertyList(const std::string& members)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\"><dict>" + members +
           "</dict></plist>\n";
}

std::string Version(const std::string& version)
{
    return PropertyList("<key>CFBundleShortVersionString</key><string>" + version + "</string>");
}

unsigned int Low32Bits(const void* pointer)
{
    return static_cast<unsigned int>(reinterpret_cast<std::uintptr_t>(pointer));
}

std::string LoadTrace(const void* bundle, const std::string& path)
{
    char address[16];
    std::snprintf(address, sizeof address, "0x%08x", Low32Bits(bundle));
    return "CFBundleCreate() returned " + std::string(address) +
           " on attempt to load plug-in interface from '" + path + "'";
}

std::string LookUpTrace(const void* bundle, const std::string& name, const void* function)
{
    char text[256];
    std::snprintf(text, sizeof text,
                  "CFBundleGetFunctionPointerForName(0x%08x, '%s') returned 0x%08x",
                  Low32Bits(bundle), name.c_str(), Low32Bits(function));
    return text;
}

class DllFrameworkUtils : public testing::Test {
protected:
    DllFrameworkUtils() { ClearTraces(); }

    void AddLibrary()
    {
        std::filesystem::create_directories(framework);
        std::filesystem::copy_file(PROBE_LIBRARY, framework + "/Probe");
    }
    void AddPropertyList(const std::string& content)
    {
        (void)scratch.Write("Probe.framework/Resources/Info.plist",
                            content);  // the path isn't needed
    }
    void ExpectNone(const char* path)
    {
        char version[16] = "as it was";
        EXPECT_EQ(nullptr, LoadDllOrFramework(path, version, sizeof version));
        EXPECT_STREQ("as it was", version);
    }

    ScratchFolder scratch;
    std::string framework = scratch.Path("Probe.framework");
};

TEST_F(DllFrameworkUtils, LoadsAFrameworkAndCopiesItsVersion)
{
    AddLibrary();
    AddPropertyList(Version("4.5.6"));
    char version[1024] = {};
    const BundleRef bundle = LoadDllOrFramework(framework.c_str(), version, sizeof version);
    ASSERT_NE(nullptr, bundle);
    EXPECT_STREQ("4.5.6", version);
    EXPECT_TRUE(HasTrace(LoadTrace(bundle, framework)));
}

TEST_F(DllFrameworkUtils, ReadsABinaryPropertyList)
{
    AddLibrary();
    AddPropertyList(std::string(reinterpret_cast<const char*>(kBinaryPropertyList),
                                sizeof kBinaryPropertyList));
    char version[1024] = {};
    EXPECT_NE(nullptr, LoadDllOrFramework(framework.c_str(), version, sizeof version));
    EXPECT_STREQ("2.5.1", version);
}

TEST_F(DllFrameworkUtils, KeepsTheBufferWithoutAVersionKey)
{
    AddLibrary();
    AddPropertyList(PropertyList("<key>CFBundleVersion</key><string>9</string>"));
    char version[16] = "as it was";
    EXPECT_NE(nullptr, LoadDllOrFramework(framework.c_str(), version, sizeof version));
    EXPECT_STREQ("as it was", version);
}

TEST_F(DllFrameworkUtils, TruncatesTheVersionToTheBuffer)
{
    AddLibrary();
    AddPropertyList(Version("10.11.12.13"));
    char version[16];
    std::memset(version, '#', sizeof version);
    EXPECT_NE(nullptr, LoadDllOrFramework(framework.c_str(), version, 8));
    EXPECT_EQ(std::string("10.11.1\0########", 16), std::string(version, 16));
}

TEST_F(DllFrameworkUtils, DoesNotTruncateAVersionThatJustFits)
{
    AddLibrary();
    AddPropertyList(Version("1.2.345"));
    char version[16];
    std::memset(version, '#', sizeof version);
    EXPECT_NE(nullptr, LoadDllOrFramework(framework.c_str(), version, 8));
    EXPECT_STREQ("1.2.345", version);
    EXPECT_EQ('#', version[8]);
}

TEST_F(DllFrameworkUtils, WritesNothingToABufferOfSizeZero)
{
    AddLibrary();
    AddPropertyList(Version("4.5.6"));
    char version[4] = "abc";
    EXPECT_NE(nullptr, LoadDllOrFramework(framework.c_str(), version, 0));
    EXPECT_STREQ("abc", version);
}

TEST_F(DllFrameworkUtils, RefusesAMissingFolder)
{
    ExpectNone(framework.c_str());
    EXPECT_TRUE(HasTrace(LoadTrace(nullptr, framework)));
}

TEST_F(DllFrameworkUtils, RefusesAPlainFile)
{
    (void)scratch.Write("Probe.framework", "text");  // the path isn't needed
    ExpectNone(framework.c_str());
}

TEST_F(DllFrameworkUtils, RefusesTheLibraryItself)
{
    AddLibrary();
    AddPropertyList(Version("1"));
    ExpectNone((framework + "/Probe").c_str());
}

TEST_F(DllFrameworkUtils, RefusesAFolderWithoutTheLibrary)
{
    AddPropertyList(Version("1"));
    ExpectNone(framework.c_str());
}

TEST_F(DllFrameworkUtils, RefusesALibraryThatCannotBeLoaded)
{
    (void)scratch.Write("Probe.framework/Probe", "This is a text.\n");  // the path isn't needed
    AddPropertyList(Version("1"));
    ExpectNone(framework.c_str());
    EXPECT_TRUE(HasTrace(LoadTrace(nullptr, framework)));
}

TEST_F(DllFrameworkUtils, RefusesAFolderWithoutAPropertyList)
{
    AddLibrary();
    ExpectNone(framework.c_str());
}

TEST_F(DllFrameworkUtils, RefusesAMalformedPropertyList)
{
    AddLibrary();
    AddPropertyList("no property list at all");
    ExpectNone(framework.c_str());
}

TEST_F(DllFrameworkUtils, RefusesAFolderWithoutTheFrameworkSuffix)
{
    AddLibrary();
    AddPropertyList(Version("1"));
    std::filesystem::rename(framework, scratch.Path("Probe"));
    ExpectNone(scratch.Path("Probe").c_str());
}

TEST_F(DllFrameworkUtils, RefusesANullPath)
{
    ExpectNone(nullptr);
    EXPECT_TRUE(HasTrace(LoadTrace(nullptr, "(null)")));
}

TEST_F(DllFrameworkUtils, RefusesAPathThatIsNotUTF8)
{
    AddLibrary();
    AddPropertyList(Version("1"));
    std::filesystem::create_directories(scratch.Path("caf\xE9"));
    std::filesystem::rename(framework, scratch.Path("caf\xE9/Probe.framework"));
    ExpectNone(scratch.Path("caf\xE9/Probe.framework").c_str());
}

TEST_F(DllFrameworkUtils, FindsAFunctionByName)
{
    AddLibrary();
    AddPropertyList(Version("1"));
    char version[16] = {};
    const BundleRef bundle = LoadDllOrFramework(framework.c_str(), version, sizeof version);
    ASSERT_NE(nullptr, bundle);
    ClearTraces();
    void* const function = GetFunctionPtr(bundle, "ProbeAnswer");
    ASSERT_NE(nullptr, function);
    EXPECT_EQ(42, reinterpret_cast<int (*)()>(function)());
    EXPECT_EQ(std::vector<std::string>{LookUpTrace(bundle, "ProbeAnswer", function)}, TraceTexts());
}

TEST_F(DllFrameworkUtils, MissingFunctionIsNull)
{
    AddLibrary();
    AddPropertyList(Version("1"));
    char version[16] = {};
    const BundleRef bundle = LoadDllOrFramework(framework.c_str(), version, sizeof version);
    ASSERT_NE(nullptr, bundle);
    EXPECT_EQ(nullptr, GetFunctionPtr(bundle, "NoSuchFunction"));
    EXPECT_TRUE(HasTrace(LookUpTrace(bundle, "NoSuchFunction", nullptr)));
    EXPECT_EQ(nullptr, GetFunctionPtr(bundle, nullptr));
    EXPECT_EQ(nullptr, GetFunctionPtr(bundle, "caf\xE9"));
}

TEST_F(DllFrameworkUtils, FunctionOfANullBundleIsNullAndNotTraced)
{
    EXPECT_EQ(nullptr, GetFunctionPtr(nullptr, "ProbeAnswer"));
    EXPECT_EQ(nullptr, GetFunctionPtr(nullptr, nullptr));
    EXPECT_TRUE(Traces().empty());
}

}  // namespace
