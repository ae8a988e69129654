#include "vexcor/system/DefaultApplication.h"

#include <gio/gdesktopappinfo.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <memory>

#include "base/Files.h"
#include "plugin-core/storage/Failure.h"

using plugincore::Failure;
using plugincore::StatusCodes;

namespace vexcor {
namespace {

struct ObjectReleaser {
    void operator()(void* object) const { g_object_unref(object); }
};
using App = std::unique_ptr<GAppInfo, ObjectReleaser>;

struct MemoryReleaser {
    void operator()(void* memory) const { g_free(memory); }
};
using Text = std::unique_ptr<char, MemoryReleaser>;

std::string ToString(const Text& text) { return text ? text.get() : ""; }

// Types by which the file may be registered besides the one that the system's database of types
// says, which may not be installed.
std::vector<std::string> ListTypes(const std::string& file)
{
    std::array<char, 4096> start{};
    std::ifstream stream(file, std::ios::binary);
    stream.read(start.data(), start.size());  // fewer bytes are no error
    const Text type(g_content_type_guess(file.c_str(),
                                         reinterpret_cast<const guchar*>(start.data()),
                                         static_cast<gsize>(stream.gcount()), nullptr));
    std::vector<std::string> types = {ToString(type)};
    const std::string extension = base::GetLowerExtension(file);
    if (extension == ".ai" || extension == ".ait") {
        types.insert(types.end(), {"application/illustrator", "application/pdf"});
    } else if (extension == ".eps") {
        types.insert(types.end(), {"image/x-eps", "application/postscript"});
    } else if (extension == ".pdf") {
        types.emplace_back("application/pdf");
    }
    return types;
}

std::string GetId(GAppInfo* app)
{
    const char* const id = g_app_info_get_id(app);
    return id ? id : "";
}

App FindForType(const std::string& type)
{
    App app(g_app_info_get_default_for_type(type.c_str(), FALSE));
    if (!app || GetId(app.get()) != kOwnDesktopEntry) return app;
    // The user has chosen Vexcor, which would call itself without an end.
    app.reset();
    GList* const all = g_app_info_get_recommended_for_type(type.c_str());
    for (GList* entry = all; entry != nullptr; entry = entry->next) {
        auto* const other = static_cast<GAppInfo*>(entry->data);
        if (app || GetId(other) == kOwnDesktopEntry) {
            g_object_unref(other);
        } else {
            app.reset(other);
        }
    }
    g_list_free(all);
    return app;
}

App FindForFile(const std::string& file)
{
    const std::vector<std::string> types = ListTypes(file);
    for (const std::string& type : types) {
        if (App app = FindForType(type)) return app;
    }
    throw Failure(StatusCodes::kNotFound, file + ": no application for files of the type " +
                                              types.front() +
                                              "; name a command: -- COMMAND [ARG]...");
}

CommandLineWords SplitCommandLine(GAppInfo* app)
{
    const char* const line = g_app_info_get_commandline(app);
    gint count = 0;
    gchar** words = nullptr;
    if (line == nullptr || g_shell_parse_argv(line, &count, &words, nullptr) == FALSE) {
        throw Failure(StatusCodes::kError, GetId(app) + ": its command line cannot be used");
    }
    CommandLineWords result(words, words + count);
    g_strfreev(words);
    return result;
}

// Replaces the field codes of desktop entries in one command line.
class FieldCodes {
public:
    explicit FieldCodes(GAppInfo* app) : mApp(app) {}

    // `files` are those of one command.
    CommandLineWords Replace(const CommandLineWords& words,
                             const std::vector<std::string>& files) const
    {
        CommandLineWords result;
        for (const std::string& word : words) {
            if (word == "%F" || word == "%U") {
                for (const std::string& file : files) result.push_back(Write(word[1], file));
            } else if (word == "%i") {
                const std::string icon = GetEntry("Icon");
                if (!icon.empty()) result.insert(result.end(), {"--icon", icon});
            } else {
                std::string replaced = ReplaceIn(word, files.front());
                // A code that isn't used any more leaves nothing.
                if (!replaced.empty() || word.empty()) result.push_back(std::move(replaced));
            }
        }
        return result;
    }

private:
    std::string GetEntry(const char* key) const
    {
        if (!G_IS_DESKTOP_APP_INFO(mApp)) return {};
        return ToString(Text(g_desktop_app_info_get_string(G_DESKTOP_APP_INFO(mApp), key)));
    }

    static std::string Write(char code, const std::string& file)
    {
        if (code == 'f' || code == 'F') return file;
        return ToString(Text(g_filename_to_uri(file.c_str(), nullptr, nullptr)));
    }

    std::string ReplaceIn(const std::string& word, const std::string& file) const
    {
        std::string result;
        for (size_t at = 0; at < word.size(); ++at) {
            if (word[at] != '%' || at + 1 == word.size()) {
                result += word[at];
                continue;
            }
            const char code = word[++at];
            if (std::string("fFuU").find(code) != std::string::npos) result += Write(code, file);
            if (code == '%') result += '%';
            if (code == 'c') result += g_app_info_get_display_name(mApp);
            if (code == 'k' && G_IS_DESKTOP_APP_INFO(mApp)) {
                const char* path = g_desktop_app_info_get_filename(G_DESKTOP_APP_INFO(mApp));
                result += path ? path : "";
            }
        }
        return result;
    }

    GAppInfo* mApp;
};

bool HasCode(const CommandLineWords& words, const std::string& codes)
{
    return std::any_of(words.begin(), words.end(), [&](const std::string& word) {
        for (size_t at = word.find('%'); at != std::string::npos && at + 1 < word.size();
             at = word.find('%', at + 2)) {
            if (codes.find(word[at + 1]) != std::string::npos) return true;
        }
        return false;
    });
}

ApplicationCommands MakeCommands(GAppInfo* app, const std::vector<std::string>& files)
{
    ApplicationCommands result;
    result.name = g_app_info_get_display_name(app);
    if (G_IS_DESKTOP_APP_INFO(app)) {
        result.folder =
            ToString(Text(g_desktop_app_info_get_string(G_DESKTOP_APP_INFO(app), "Path")));
    }
    CommandLineWords words = SplitCommandLine(app);
    if (!HasCode(words, "fFuU")) words.emplace_back("%f");  // as desktops do
    const FieldCodes codes(app);
    if (HasCode(words, "FU")) {
        result.commands.push_back(codes.Replace(words, files));
    } else {
        for (const std::string& file : files) {
            result.commands.push_back(codes.Replace(words, {file}));
        }
    }
    return result;
}

}  // namespace

std::vector<ApplicationCommands> FindDefaultApplications(const std::vector<std::string>& files)
{
    struct Opened {
        App app;
        std::vector<std::string> files;
    };
    std::vector<Opened> all;
    for (const std::string& file : files) {
        App app = FindForFile(file);
        const auto known = std::find_if(all.begin(), all.end(), [&](const Opened& opened) {
            return g_app_info_equal(opened.app.get(), app.get()) != FALSE;
        });
        if (known != all.end()) {
            known->files.push_back(file);
        } else {
            all.push_back({std::move(app), {file}});
        }
    }
    std::vector<ApplicationCommands> result;
    result.reserve(all.size());
    for (const Opened& opened : all) {
        result.push_back(MakeCommands(opened.app.get(), opened.files));
    }
    return result;
}

}  // namespace vexcor
