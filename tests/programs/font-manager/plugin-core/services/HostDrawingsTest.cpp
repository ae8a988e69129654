#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdlib>
#include <map>

#include "CoreSession.h"

namespace fs = std::filesystem;

namespace {

std::map<std::string, double> sDrawingSeconds;

constexpr char kEndless[] = "%!PS-Adobe-3.0 EPSF-3.0\n%%EndComments\n{} loop\n";

}  // namespace

// The functions that headless-host exports.
extern "C" __attribute__((visibility("default"))) double HeadlessHostGetDrawingSeconds(
    const char* drawing)
{
    const auto found = sDrawingSeconds.find(drawing);
    return found == sDrawingSeconds.end() ? 0 : found->second;
}

extern "C" __attribute__((visibility("default"))) void HeadlessHostAddDrawingSeconds(
    const char* drawing, double seconds)
{
    sDrawingSeconds[drawing] = seconds;
}

namespace {

// PluginCore in a host, with a Ghostscript that leaves a file when it starts and never ends.
class HostDrawingsTest : public testing::Test {
protected:
    void SetUp() override
    {
        const fs::path programs = mSession.home.GetPath() / "programs";
        FontTestHome::WriteFile(
            programs / "gs", "#!/bin/sh\n: >'" + mStarted.string() + "'\nexec /bin/sleep 1000\n");
        ASSERT_EQ(0, chmod((programs / "gs").c_str(), 0755));
        setenv("PATH", programs.c_str(), 1);
        setenv("CORVANTA_DRAWING_SECONDS", "0.3", 1);
        sDrawingSeconds.clear();
    }

    std::string Write(const std::string& name) const
    {
        FontTestHome::WriteFile(mSession.home.GetPath() / name, kEndless);
        return mSession.home.GetPath() / name;
    }

    const CoreSession mSession;
    const fs::path mStarted = mSession.home.GetPath() / "started";
};

TEST_F(HostDrawingsTest, WhatPluginCoreDrewInVainIsAddedToTheHostsMemory)
{
    EXPECT_EQ("", mSession.core.Open(Write("endless.eps"), ""));
    EXPECT_TRUE(fs::exists(mStarted));
    ASSERT_EQ(1U, sDrawingSeconds.size());
    EXPECT_EQ(0.3, sDrawingSeconds.begin()->second);
}

TEST_F(HostDrawingsTest, WhatTheHostDrewInVainIsNotDrawnAgain)
{
    (void)mSession.core.Open(Write("endless.eps"), "");
    fs::remove(mStarted);
    EXPECT_EQ("", mSession.core.Open(Write("copy.eps"), ""));
    EXPECT_FALSE(fs::exists(mStarted));
    sDrawingSeconds.clear();
    EXPECT_EQ("", mSession.core.Open(Write("third.eps"), ""));
    EXPECT_TRUE(fs::exists(mStarted));
}

}  // namespace
