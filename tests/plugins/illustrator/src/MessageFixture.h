#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "CoreErrorCodes.h"
#include "FakeClock.h"
#include "InProcessPluginCore.h"
#include "PluginStartup.h"
#include "RecordingTrace.h"
#include "ScratchFolder.h"
#include "ScriptedHost.h"
#include "TypeloftSPEA.h"

constexpr int kUnknownStatus = static_cast<int>(CoreErrorCodes::kUnknownError);

// The host's types of two document notifiers.
inline const char* const kOpened = "AI Document Opened Notifier";
inline const char* const kNew = "AI Document New Notifier";

// The plug-in between a scripted host and a scripted PluginCore that is already loaded. Messages
// are sent to Main, as the host does. TearDown shuts the plug-in down if it is running, and checks
// that it used all handles correctly and released all strings, paths, art arrays and text engine
// references.
class MessageFixture : public ::testing::Test {
protected:
    MessageFixture();
    ~MessageFixture() override;
    void TearDown() override;

    // Starts the plug-in and clears all records.
    void Start();
    // Clears the records of the host's and PluginCore's calls and of the traces.
    void Forget();

    AIErr SendInterface(const std::string& selector);
    AIErr SendNotifier(const std::string& type, void* notifyData = nullptr);
    AIErr SendCheck(const std::string& path);

    // The address as the traces print it: the low 32 bits as 0x%08x.
    static std::string Low32(const void* address);
    // Writes a file in a scratch folder, which is removed at the end. Returns its path.
    std::string ScratchFile(const std::string& name, const std::string& content);

    ScriptedHost host;
    InProcessPluginCore core;
    const ScratchFolder scratchFolder;
    const std::string scratch = scratchFolder.Path();
};
