#include "EndToEnd.h"

#include <sys/wait.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>

namespace fs = std::filesystem;

namespace {

std::string Quote(const fs::path& path) { return "'" + path.string() + "'"; }

}  // namespace

EndToEnd::EndToEnd()
{
    home = scratch / "home";
    runFolder = scratch;
    pluginCore = fs::path(PLUGIN_CORE_FRAMEWORK).parent_path();
    for (const char* name : {"home", "system", "library"}) fs::create_directory(scratch / name);
    const fs::path fonts = SYSTEM_FONTS_FOLDER;
    fs::copy(fonts / "DejaVuSansMono.ttf", scratch / "system");
    fs::copy(fonts / "DejaVuSans.ttf", scratch / "library");
    fs::copy(fonts / "DejaVuSerif-Bold.ttf", scratch / "library");
    WriteFile(scratch / "fonts.conf",
              "<?xml version=\"1.0\"?><!DOCTYPE fontconfig SYSTEM \"fonts.dtd\"><fontconfig><dir>" +
                  (scratch / "system").string() + "</dir><dir>" +
                  (home / ".local/share/fonts").string() +
                  "</dir><cachedir prefix=\"xdg\">fontconfig</cachedir>"
                  // DejaVu Sans Mono remains the default font for every language.
                  "<match target=\"pattern\"><edit name=\"family\" mode=\"prepend\" "
                  "binding=\"strong\"><string>DejaVu Sans Mono</string></edit></match>"
                  "</fontconfig>");
}

std::string EndToEnd::EnvironmentOfHome() const
{
    return "unset CORVANTA_FONT_LIBRARY CORVANTA_INTERACTIVE; export FONTCONFIG_FILE=" +
           Quote(scratch / "fonts.conf") + " HOME=" + Quote(home) +
           " XDG_DATA_HOME=" + Quote(home / ".local/share") +
           " XDG_CONFIG_HOME=" + Quote(home / ".config") +
           " XDG_CACHE_HOME=" + Quote(home / ".cache") +
           " XDG_STATE_HOME=" + Quote(home / ".local/state") + "; ";
}

int EndToEnd::Open(const std::string& arguments) { return Run("open " + arguments); }

void EndToEnd::Install() const
{
    const fs::path installed = scratch / "installed";
    fs::create_directories(installed);
    fs::remove(installed / "PluginFiles");
    fs::create_directory_symlink(pluginCore, installed / "PluginFiles");
    WriteFile(home / ".local/share/Corvanta" / kLaunchInformationName,
              "vexcor.path=" + (installed / "Vexcor").string() + "\n");
}

std::string EndToEnd::MakeCommand(const std::string& commandLine) const
{
    if (!pluginCore.empty()) Install();
    return "cd " + Quote(runFolder) + "; " + EnvironmentOfHome() + "exec " + Quote(program) + " " +
           commandLine + " --home " + Quote(home) + " --frameworks " + Quote(frameworks) +
           " --library " + Quote(scratch / library) + " --plugin " + Quote(plugin);
}

int EndToEnd::Run(const std::string& commandLine)
{
    const std::string command = MakeCommand(commandLine) + " >" + Quote(scratch / "out") + " 2>" +
                                Quote(scratch / "err") + " </dev/null";
    const int status = std::system(command.c_str());
    output = ReadFile(scratch / "out");
    errors = ReadFile(scratch / "err");
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

std::vector<nlohmann::json> EndToEnd::Reports() const
{
    std::vector<nlohmann::json> reports;
    std::istringstream lines(output);
    for (std::string line; std::getline(lines, line);) {
        reports.push_back(nlohmann::json::parse(line));
    }
    return reports;
}

std::map<std::string, std::string> EndToEnd::States(const nlohmann::json& report)
{
    std::map<std::string, std::string> states;
    for (const auto& font : report.at("documentFonts")) {
        states[font.at("PostScriptName")] = font.at("state");
    }
    return states;
}

std::string EndToEnd::Sample(const std::string& name) const
{
    fs::copy(fs::path(SAMPLES_FOLDER) / name, scratch / name);
    return name;
}

std::set<std::string> EndToEnd::ActiveFonts() const
{
    const std::string command =
        EnvironmentOfHome() + "fc-list --format '%{postscriptname}\\n' >" + Quote(scratch / "list");
    EXPECT_EQ(0, std::system(command.c_str()));
    return ReadNames("list");
}

std::set<std::string> EndToEnd::ReadNames(const fs::path& file) const
{
    EXPECT_TRUE(fs::exists(scratch / file)) << file;
    std::set<std::string> names;
    std::istringstream lines(ReadFile(scratch / file));
    for (std::string line; std::getline(lines, line);) names.insert(line);
    return names;
}

fs::path EndToEnd::CopyOfPluginCore() const
{
    fs::create_directory(scratch / "core");
    fs::copy(PLUGIN_CORE_FRAMEWORK, scratch / "core/PluginCore.framework",
             fs::copy_options::recursive);
    return scratch / "core";
}

void EndToEnd::WriteFile(const fs::path& file, const std::string& bytes) const
{
    fs::create_directories(file.parent_path());
    std::ofstream stream(file, std::ios::binary);
    stream << bytes;
    ASSERT_TRUE(stream.good()) << file;
}

std::string EndToEnd::ReadFile(const fs::path& file) const
{
    std::ifstream stream(file, std::ios::binary);
    std::stringstream text;
    text << stream.rdbuf();
    return text.str();
}

std::vector<std::string> EndToEnd::FontFilesInHome() const
{
    std::vector<std::string> files;
    const fs::path userFonts = home / ".local/share/fonts";
    if (!fs::exists(userFonts)) return files;
    for (const auto& entry : fs::recursive_directory_iterator(userFonts)) {
        const std::string extension = entry.path().extension();
        if (extension == ".ttf" || extension == ".otf") files.push_back(entry.path());
    }
    return files;
}
