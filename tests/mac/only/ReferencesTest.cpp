#include <gtest/gtest.h>

#include <filesystem>

#include "Bundle.h"
#include "CFHolder_Mac.h"
#include "CoreFoundationStandIn.h"
#include "CorvantaFileUtils_Mac.h"
#include "DllFrameworkUtils_Mac.h"
#include "PluginInfo.h"
#include "SDKPlugPlug.h"
#include "ScratchFolder.h"

using CoreFoundationStandIn::FailNextCall;
using CoreFoundationStandIn::LiveReferences;
using CorvantaFileUtils::GetFileModificationDate;

namespace {

CFHolder<CFStringRef> Text(const char* text)
{
    return CFHolder<CFStringRef>(
        CFStringCreateWithCString(kCFAllocatorDefault, text, kCFStringEncodingUTF8));
}

TEST(StdString, ReturnsTheTextInUTF8)
{
    EXPECT_EQ("4.5.6", GetStdString(Text("4.5.6").get()));
    EXPECT_EQ("caf\xC3\xA9\xE3\x83\x95", GetStdString(Text("caf\xC3\xA9\xE3\x83\x95").get()));
}

TEST(StdString, IsEmptyForNullAndForAFailure)
{
    EXPECT_EQ("", GetStdString(nullptr));
    EXPECT_EQ("", GetStdString(Text("").get()));
    FailNextCall("CFStringGetCString");
    EXPECT_EQ("", GetStdString(Text("text").get()));
}

TEST(FileDateOfAString, EqualsTheDateForTheSameBytes)
{
    const ScratchFolder scratch;
    const std::string path = scratch.Write("a", "x");
    EXPECT_NE(0, GetFileModificationDate(path.c_str()));
    EXPECT_EQ(GetFileModificationDate(path.c_str()),
              GetFileModificationDate(Text(path.c_str()).get()));
    EXPECT_EQ(0, GetFileModificationDate(static_cast<CFStringRef>(nullptr)));
}

TEST(BundlePath, IsThePathOfTheLoadedBundleWithTheIdentifier)
{
    const ScratchFolder scratch;
    (void)scratch.Write(
        "A.framework/Resources/Info.plist",
        "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict><key>CFBundleIdentifier</key>"
        "<string>com.example.a</string></dict></plist>");
    const std::string folder = scratch.Path("A.framework");
    ASSERT_NE(nullptr, OSOpenBundle(folder));
    const long before = LiveReferences();
    EXPECT_EQ(folder, PluginInfo::GetPluginPath("com.example.a"));
    EXPECT_EQ(before, LiveReferences());
    FailNextCall("CFURLGetFileSystemRepresentation");
    EXPECT_EQ("./CorvantaFontManagement...", PluginInfo::GetPluginPath("com.example.a"));
    FailNextCall("CFBundleCopyBundleURL");
    EXPECT_EQ("./CorvantaFontManagement...", PluginInfo::GetPluginPath("com.example.a"));
    EXPECT_EQ(before, LiveReferences());
}

// A host whose only framework is an empty folder.
class HostWithFramework {
public:
    explicit HostWithFramework(const std::string& name)
    {
        std::filesystem::create_directories(
            mScratch.Path("Host.app/Contents/Frameworks/" + name + ".framework"));
        CoreFoundationStandIn::SetMainBundle(mScratch.Path("Host.app"));
    }

private:
    ScratchFolder mScratch;
};

// The parameter is the CoreFoundation function that fails.
class FailingStep : public testing::TestWithParam<const char*> {};

TEST_P(FailingStep, OfTheEventBusLeavesNoBundleAndNoReference)
{
    const HostWithFramework host("PlugPlugOwl");
    const long before = LiveReferences();
    // Some steps are done once for each of the two frameworks, so two calls must fail.
    FailNextCall(GetParam());
    FailNextCall(GetParam());
    SDKPlugPlug binding;
    EXPECT_EQ(31, binding.Load());
    EXPECT_EQ(nullptr, binding.bundle);
    EXPECT_EQ(before, LiveReferences());
}

INSTANTIATE_TEST_SUITE_P(Steps, FailingStep,
                         testing::Values("CFBundleCopyPrivateFrameworksURL",
                                         "CFURLCreateCopyAppendingPathComponent",
                                         "CFURLCopyAbsoluteURL", "CFURLCreateFilePathURL",
                                         "CFBundleCreate"),
                         [](const auto& row) { return std::string(row.param); });

class FailingPlainName : public testing::TestWithParam<const char*> {};

TEST_P(FailingPlainName, DoesNotPreventPlugPlugOwl)
{
    const HostWithFramework host("PlugPlugOwl");
    FailNextCall(GetParam());
    SDKPlugPlug binding;
    // PlugPlugOwl is found, but has none of the functions.
    EXPECT_EQ(31, binding.Load());
    EXPECT_NE(nullptr, binding.bundle);
}

INSTANTIATE_TEST_SUITE_P(Steps, FailingPlainName,
                         testing::Values("CFURLCreateCopyAppendingPathComponent",
                                         "CFURLCopyAbsoluteURL"),
                         [](const auto& row) { return std::string(row.param); });

TEST(EventBus, NeedsAMainBundle)
{
    FailNextCall("CFBundleGetMainBundle");
    EXPECT_EQ(nullptr, OSOpenEventBus());
}

TEST(EventBus, HasNoBundleIfPlugPlugHasNoURLAndPlugPlugOwlIsMissing)
{
    const HostWithFramework host("PlugPlug");
    const long before = LiveReferences();
    for (const char* step : {"CFURLCreateCopyAppendingPathComponent", "CFURLCopyAbsoluteURL"}) {
        FailNextCall(step);
        EXPECT_EQ(nullptr, OSOpenEventBus()) << step;
    }
    EXPECT_EQ(before, LiveReferences());
}

TEST(BundleFunction, IsNullWithoutABundleOrAName)
{
    const ScratchFolder scratch;
    EXPECT_EQ(nullptr, OSFindFunction(nullptr, "name"));
    EXPECT_EQ(nullptr, OSFindFunction(OSOpenBundle(scratch.Path()), nullptr));
}

class FailingBundleStep : public testing::TestWithParam<const char*> {};

TEST_P(FailingBundleStep, ReturnsNullAndLeaksNoReference)
{
    const ScratchFolder scratch;
    const long before = LiveReferences();
    FailNextCall(GetParam());
    EXPECT_EQ(nullptr, OSOpenBundle(scratch.Path()));
    EXPECT_EQ(before, LiveReferences());
}

INSTANTIATE_TEST_SUITE_P(Steps, FailingBundleStep,
                         testing::Values("CFStringCreateWithCString",
                                         "CFURLCreateWithFileSystemPath", "CFBundleCreate"),
                         [](const auto& row) { return std::string(row.param); });

TEST(FileDateSteps, NullDateIsNoDate)
{
    const ScratchFolder scratch;
    const std::string path = scratch.Write("a", "x");
    const long before = LiveReferences();
    FailNextCall("the value of CFURLCopyResourcePropertyForKey");
    EXPECT_EQ(0, GetFileModificationDate(path.c_str()));
    EXPECT_EQ(before, LiveReferences());
}

TEST(FileDateSteps, EmptyStringIsNoPath) { EXPECT_EQ(0, GetFileModificationDate(Text("").get())); }

TEST(FileDateSteps, FailSilentlyAndLeakNoReference)
{
    const ScratchFolder scratch;
    const std::string path = scratch.Write("a", "x");
    for (const char* step : {"CFStringCreateWithCString", "CFURLCreateWithFileSystemPath",
                             "CFURLCopyResourcePropertyForKey"}) {
        const long before = LiveReferences();
        FailNextCall(step);
        EXPECT_EQ(0, GetFileModificationDate(path.c_str())) << step;
        EXPECT_EQ(before, LiveReferences()) << step;
    }
}

}  // namespace
