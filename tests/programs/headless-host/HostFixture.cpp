#include "HostFixture.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>

HostFixture::HostFixture()
{
    content.ok = true;
    content.document.kind = documents::Kind::kPDF;
    host = std::make_unique<headless::Host>(fonts, [this](const std::string&) { return content; });
}

HostFixture::~HostFixture() { host.reset(); }

void HostFixture::AddFrame(const std::vector<std::string>& fontNames)
{
    documents::Document& document = content.document;
    documents::TextFrame frame;
    frame.story = document.stories.size();
    for (const std::string& name : fontNames) {
        frame.runs.push_back({name, 3});
        auto& all = document.fonts;
        if (std::find(all.begin(), all.end(), name) == all.end()) all.push_back(name);
    }
    document.stories.push_back({frame.runs});
    document.frames.push_back(frame);
}

std::string HostFixture::MakeFile(const std::string& name) const
{
    const std::string path = folder + "/" + name;
    std::ofstream(path) << "";
    return path;
}

void HostFixture::WriteJournal()
{
    std::string error;
    ASSERT_TRUE(host->journal.Open(folder + "/journal", error)) << error;
}

std::vector<nlohmann::json> HostFixture::ReadJournal() const
{
    std::vector<nlohmann::json> lines;
    std::ifstream stream(folder + "/journal");
    for (std::string line; std::getline(stream, line);) {
        nlohmann::json parsed = nlohmann::json::parse(line);
        if (parsed.at("side") != "world") lines.push_back(std::move(parsed));
    }
    return lines;
}

std::string HostFixture::GetPluginPath(const std::string& plugin)
{
    return std::string(TEST_PLUGINS_FOLDER) + "/" + plugin + ".aip";
}

void HostFixture::RunPlugin(const std::string& plugin, const std::vector<std::string>& names)
{
    headless::Application application(*host, "en");
    std::string error;
    ASSERT_TRUE(application.Start(GetPluginPath(plugin), error)) << error;
    for (const std::string& name : names) {
        reports.push_back(application.Open(MakeFile(name), name));
    }
    application.ShutDown();
}
