#pragma once

#include "HostFixture.h"
#include "application/RunningHost.h"
#include "session/SessionLine.h"

// A session with the guest that subscribes to everything; nothing is read from or drawn with the
// machine's fonts but where a test says so.
class SessionFixture : public HostFixture {
protected:
    SessionFixture();
    ~SessionFixture() override;

    // The outcome of one line, which must be carried out.
    void Do(const std::string& line);
    headless::LineResult Try(const std::string& line);

    // "AI Document Changed Notifier document#3" and the like: what was sent since the last call,
    // with what the message was about.
    std::vector<std::string> TakeMessages();

    headless::DocumentObject& Current() const { return *host->GetCurrentDocument(); }

    headless::Options options;
    std::unique_ptr<headless::Application> application;
    std::unique_ptr<headless::RunningHost> running;
    std::unique_ptr<headless::Session> session;

private:
    size_t mTaken = 0;
};
