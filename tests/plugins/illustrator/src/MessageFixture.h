#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "FakeClock.h"
#include "InProcessPluginCore.h"
#include "PluginStartup.h"
#include "RecordingTrace.h"
#include "ScratchFolder.h"
#include "ScriptedHost.h"
#include "TypeloftSPEA.h"

constexpr AIErr kParameterError = 0x5041524D;  // 'PARM'
constexpr int kUnknownStatus = 0x15000000;

// The host's types of the notifiers that the documents send.
inline const char* const kOpened = "AI Document Opened Notifier";
inline const char* const kNew = "AI Document New Notifier";

// The plug-in between a scripted host and a scripted PluginCore that seems to be loaded. Messages
// go through Main, as the host sends them. At the end the plug-in is shut down if it runs; no
// handle may have been used wrongly, and no string, path or text engine reference may be out.
class MessageTest : public ::testing::Test {
protected:
    MessageTest();
    ~MessageTest() override;
    void TearDown() override;

    // Sends "SP Interface" / "Startup" and forgets what was recorded so far.
    void Start();
    void Forget();

    AIErr SendInterface(const std::string& selector);
    AIErr SendNotifier(const std::string& type, void* notifyData = nullptr);
    AIErr SendCheck(const std::string& path);

    // The texts as 0x%08x, the low 32 bits.
    static std::string Low32(const void* address);
    // A path below a scratch folder that is removed at the end.
    std::string ScratchFile(const std::string& name, const std::string& content);

    ScriptedHost host;
    InProcessPluginCore core;
    const ScratchFolder folder;
    const std::string scratch = folder.Path();
};
