#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ScriptedHost.h"

// Sets the suite globals that the wrappers use from a scripted host. Checks after each test that
// all references, paths and blocks have been released.
class HostInterfaceTest : public ::testing::Test {
protected:
    HostInterfaceTest();
    ~HostInterfaceTest() override;
    void TearDown() override;

    ScriptedHost host;
};
