#pragma once

#include "HostFixture.h"
#include "application/RunningHost.h"
#include "session/SessionLine.h"

// A session with the test plug-in that subscribes to everything. The fonts of the machine are not
// used unless a test does so.
class SessionFixture : public HostFixture {
protected:
    SessionFixture();
    ~SessionFixture() override;

    // Performs a line and expects that it succeeds.
    void Do(const std::string& line);

    // Performs a line and returns its result. Standard output is discarded.
    headless::LineResult Try(const std::string& line);

    // The messages that the plug-in got since the last call, with their subjects, such as
    // "AI Document Changed Notifier document#3".
    std::vector<std::string> TakeMessages();

    headless::DocumentObject& Current() const { return *host->GetCurrentDocument(); }

    headless::Options options;
    std::unique_ptr<headless::Application> application;
    std::unique_ptr<headless::RunningHost> running;
    std::unique_ptr<headless::Session> session;

private:
    size_t mTaken = 0;
};
