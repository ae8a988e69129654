#include "SessionFixture.h"

using headless::LineOutcome;

SessionFixture::SessionFixture()
{
    WriteJournal();
    application = std::make_unique<headless::Application>(*host, "en");
    std::string error;
    EXPECT_TRUE(application->Start(GetPluginPath("subscribes-all"), error)) << error;
    running = std::make_unique<headless::RunningHost>(
        headless::RunningHost{*host, *application, options, folder});
    session = std::make_unique<headless::Session>(*running);
    (void)TakeMessages();  // skip the messages of the start
}

SessionFixture::~SessionFixture()
{
    session.reset();
    application.reset();
    EXPECT_THAT(host->violations.Lines(), testing::IsEmpty());
}

headless::LineResult SessionFixture::Try(const std::string& line)
{
    testing::internal::CaptureStdout();
    headless::LineResult result = RunLine(*session, line);
    (void)testing::internal::GetCapturedStdout();  // other tests check the output
    return result;
}

void SessionFixture::Do(const std::string& line)
{
    const headless::LineResult result = Try(line);
    EXPECT_EQ(LineOutcome::kDone, result.outcome) << line << ": " << result.text;
}

std::vector<std::string> SessionFixture::TakeMessages()
{
    std::vector<std::string> messages;
    size_t count = 0;
    for (const auto& line : ReadJournal()) {
        if (line["side"] != "host" || line["op"] != "send" || ++count <= mTaken) continue;
        const auto& args = line["args"];
        std::string text = args.value("type", args["selector"].get<std::string>());
        for (const char* const member : {"notifyData", "timer", "text"}) {
            if (args.contains(member)) text += " " + args[member].get<std::string>();
        }
        messages.push_back(text);
    }
    mTaken = count;
    return messages;
}
