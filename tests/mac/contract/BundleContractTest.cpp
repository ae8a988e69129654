#include <gtest/gtest.h>

#include <filesystem>

#include "DllFrameworkUtils.h"
#include "Platform.h"
#include "ScratchFolder.h"

namespace {

class BundleContract : public testing::Test {
protected:
    BundleContract() { std::filesystem::create_directories(framework); }

    void AddLibrary() { std::filesystem::copy_file(PROBE_LIBRARY, framework + "/Probe"); }
    void AddPropertyList(const std::string& members)
    {
        (void)scratch.Write("Probe.framework/Resources/Info.plist",
                            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">"
                            "<dict>" +
                                members + "</dict></plist>\n");
    }
    BundleRef Load() { return LoadDllOrFramework(framework.c_str(), version, sizeof version); }

    ScratchFolder scratch;
    std::string framework = scratch.Path("Probe.framework");
    char version[32] = "as it was";
};

const char* const kVersion = "<key>CFBundleShortVersionString</key><string>4.5.6</string>";

TEST_F(BundleContract, OpensAFrameworkByPathAndReturnsItsVersion)
{
    AddLibrary();
    AddPropertyList(kVersion);
    EXPECT_NE(nullptr, Load());
    EXPECT_STREQ("4.5.6", version);
}

TEST_F(BundleContract, LeavesTheBufferUnchangedWithoutAVersion)
{
    AddLibrary();
    AddPropertyList("");
    EXPECT_NE(nullptr, Load());
    EXPECT_STREQ("as it was", version);
}

TEST_F(BundleContract, IgnoresAVersionThatIsNotAString)
{
    AddLibrary();
    AddPropertyList("<key>CFBundleShortVersionString</key><integer>7</integer>");
    EXPECT_NE(nullptr, Load());
    EXPECT_STREQ("as it was", version);
}

TEST_F(BundleContract, IgnoresALocalizedVersion)
{
    AddLibrary();
    AddPropertyList(kVersion);
    (void)scratch.Write("Probe.framework/Resources/en.lproj/InfoPlist.strings",
                        "CFBundleShortVersionString = \"9.9\";\n");
    EXPECT_NE(nullptr, Load());
    EXPECT_STREQ("4.5.6", version);
}

TEST_F(BundleContract, TruncatesTheVersionToTheBuffer)
{
    AddLibrary();
    AddPropertyList(kVersion);
    EXPECT_NE(nullptr, LoadDllOrFramework(framework.c_str(), version, 4));
    EXPECT_EQ(std::string("4.5\0t was", 9), std::string(version, 9));
}

TEST_F(BundleContract, FindsAFunctionByItsExactName)
{
    AddLibrary();
    AddPropertyList(kVersion);
    const BundleRef bundle = Load();
    ASSERT_NE(nullptr, bundle);
    void* const function = GetFunctionPtr(bundle, "ProbeAnswer");
    ASSERT_NE(nullptr, function);
    EXPECT_EQ(42, reinterpret_cast<int (*)()>(function)());
    EXPECT_EQ(nullptr, GetFunctionPtr(bundle, "NoSuchFunction"));
    EXPECT_EQ(nullptr, GetFunctionPtr(bundle, nullptr));
    EXPECT_EQ(nullptr, GetFunctionPtr(bundle, "caf\xE9"));
    EXPECT_EQ(nullptr, GetFunctionPtr(nullptr, "ProbeAnswer"));
}

TEST_F(BundleContract, ReturnsTheSameBundleForTheSamePath)
{
    AddLibrary();
    AddPropertyList(kVersion);
    const BundleRef first = Load();
    EXPECT_NE(nullptr, first);
    EXPECT_EQ(first, Load());
}

TEST_F(BundleContract, LeaksNoReferenceExceptTheBundle)
{
    if (!Platform::kCountsReferences) GTEST_SKIP() << "references are not counted";
    AddLibrary();
    AddPropertyList(kVersion);
    const long before = Platform::LiveReferences();
    const BundleRef bundle = Load();
    (void)GetFunctionPtr(bundle, "ProbeAnswer");
    EXPECT_LE(Platform::LiveReferences() - before, 1);
}

TEST_F(BundleContract, ReturnsNullForAMissingOrInvalidPath)
{
    const long before = Platform::LiveReferences();
    EXPECT_EQ(nullptr, LoadDllOrFramework(scratch.Path("None.framework").c_str(), version, 32));
    EXPECT_EQ(nullptr, LoadDllOrFramework(nullptr, version, 32));
    EXPECT_EQ(nullptr, LoadDllOrFramework("", version, 32));
    EXPECT_EQ(nullptr, LoadDllOrFramework("/caf\xE9/Probe.framework", version, 32));
    EXPECT_STREQ("as it was", version);
    EXPECT_EQ(before, Platform::LiveReferences());
}

TEST_F(BundleContract, ReturnsNullForAPlainFile)
{
    const std::string file = scratch.Write("Plain.framework", "text");
    EXPECT_EQ(nullptr, LoadDllOrFramework(file.c_str(), version, sizeof version));
}

TEST_F(BundleContract, FindsNoFunctionIfTheLibraryIsInvalid)
{
    (void)scratch.Write("Probe.framework/Probe", "This is a text.\n");
    AddPropertyList(kVersion);
    const BundleRef bundle = Load();
    EXPECT_EQ(Platform::kEveryFolderIsABundle, bundle != nullptr);
    EXPECT_EQ(nullptr, GetFunctionPtr(bundle, "ProbeAnswer"));
}

TEST_F(BundleContract, OpensAFolderWithoutAPropertyListOnlyIfEveryFolderIsABundle)
{
    AddLibrary();
    EXPECT_EQ(Platform::kEveryFolderIsABundle, Load() != nullptr);
    EXPECT_STREQ("as it was", version);
}

}  // namespace
