#include "MessageFixture.h"

#include <stdlib.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>

#include "DocumentRegistry.h"
#include "ExpectedSuites.h"
#include "HostSuites.h"

namespace {

// Takes back what an earlier test of this process has left in the plug-in's variables.
void StartAnew()
{
    static std::time_t now = 1000000;
    FakeClock::Set(now += 1000);
    gGlobals = nullptr;
    sAcquireCount = 0;
    for (const ExpectedSuite& suite : kExpectedSuites) {
        *static_cast<void**>(suite.global) = nullptr;
    }
    ForgetAboutDocumentHandle(nullptr);
    for (int index = 0; index < 4; ++index) {
        ForgetAboutDocumentHandle(ScriptedHost::Current().DocumentHandle(index));
    }
}

}  // namespace

MessageTest::MessageTest()
{
    host.defaultFonts[-2] = "HostSans-Regular";
    StartAnew();
    Forget();
}

MessageTest::~MessageTest() {}

void MessageTest::TearDown()
{
    if (host.globals != nullptr) (void)SendInterface("Shutdown");
    EXPECT_THAT(host.Faults(), ::testing::IsEmpty());
    EXPECT_EQ(host.LiveStrings(), 0U);
    EXPECT_EQ(host.LivePaths(), 0U);
    EXPECT_EQ(host.LiveReferences(), 0U);
    EXPECT_EQ(host.LiveArtArrays(), 0U);
}

void MessageTest::Start()
{
    ASSERT_EQ(SendInterface("Startup"), 0);
    ASSERT_NE(host.globals, nullptr);
    Forget();
}

void MessageTest::Forget()
{
    host.ClearCalls();
    core->calls.clear();
    ClearTraces();
}

AIErr MessageTest::SendInterface(const std::string& selector)
{
    SPInterfaceMessage message = host.InterfaceMessage();
    return host.Send(Main, "SP Interface", selector, message);
}

AIErr MessageTest::SendNotifier(const std::string& type, void* notifyData)
{
    AINotifierMessage message = host.NotifierMessage(type, notifyData);
    return host.Send(Main, "AI Notifier", "AI Notify", message);
}

AIErr MessageTest::SendCheck(const std::string& path)
{
    ScriptedFileFormatMessage message = host.FileFormatMessage(path);
    return host.Send(Main, "AI File Format", "AI Check", message.record);
}

std::string MessageTest::Low32(const void* address)
{
    char text[16];
    (void)std::snprintf(text, sizeof text, "0x%08x",
                        static_cast<unsigned>(reinterpret_cast<std::uintptr_t>(address)));
    return text;
}

std::string MessageTest::ScratchFile(const std::string& name, const std::string& content)
{
    return folder.Write(name, content);
}
