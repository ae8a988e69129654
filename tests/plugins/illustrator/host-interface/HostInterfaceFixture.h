#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ScriptedHost.h"

// The wrappers over a scripted host, with the suite globals filled in by hand. Every test ends with
// all references, strings, paths and blocks given back.
class HostInterfaceTest : public ::testing::Test {
protected:
    HostInterfaceTest();
    ~HostInterfaceTest() override;
    void TearDown() override;

    ScriptedHost host;
};
