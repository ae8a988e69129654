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

// Resets the plug-in's variables, which an earlier test of this process may have changed.
void ResetPlugin()
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

MessageFixture::MessageFixture()
{
    host.defaultFonts[-2] = "HostSans-Regular";
    ResetPlugin();
    Forget();
}

MessageFixture::~MessageFixture() = default;

void MessageFixture::TearDown()
{
    if (host.globals != nullptr) (void)SendInterface("Shutdown");
    EXPECT_THAT(host.Faults(), ::testing::IsEmpty());
    EXPECT_EQ(0U, host.LiveStrings());
    EXPECT_EQ(0U, host.LivePaths());
    EXPECT_EQ(0U, host.LiveReferences());
    EXPECT_EQ(0U, host.LiveArtArrays());
}

void MessageFixture::Start()
{
    ASSERT_EQ(0, SendInterface("Startup"));
    ASSERT_NE(nullptr, host.globals);
    Forget();
}

void MessageFixture::Forget()
{
    host.ClearCalls();
    core->calls.clear();
    ClearTraces();
}

AIErr MessageFixture::SendInterface(const std::string& selector)
{
    SPInterfaceMessage message = host.InterfaceMessage();
    return host.Send(Main, "SP Interface", selector, message);
}

AIErr MessageFixture::SendNotifier(const std::string& type, void* notifyData)
{
    AINotifierMessage message = host.NotifierMessage(type, notifyData);
    return host.Send(Main, "AI Notifier", "AI Notify", message);
}

AIErr MessageFixture::SendCheck(const std::string& path)
{
    ScriptedFileFormatMessage message = host.FileFormatMessage(path);
    return host.Send(Main, "AI File Format", "AI Check", message.record);
}

std::string MessageFixture::Low32(const void* address)
{
    char text[16];
    (void)std::snprintf(text, sizeof text, "0x%08x",
                        static_cast<unsigned>(reinterpret_cast<std::uintptr_t>(address)));
    return text;
}

std::string MessageFixture::ScratchFile(const std::string& name, const std::string& content)
{
    return scratchFolder.Write(name, content);
}
