#include "CoreSession.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <stdexcept>

#include "plugin-core/services/DocumentStore.h"
#include "plugin-core/storage/Failure.h"

using nlohmann::json;

CoreSession::CoreSession()
{
    for (const char* name : {"DejaVuSans", "DejaVuSerif", "DejaVuSansMono"}) {
        FontTestHome::CopyFont(name, home.GetLibrary());
    }
    if (!core.Start()) throw std::runtime_error("PluginCore doesn't start");
}

CoreSession::~CoreSession() { (void)core.pTerminatePluginCoreInterface(); }  // checked by Restart

void CoreSession::Restart() const
{
    if (core.pTerminatePluginCoreInterface() != 0 || !core.Start()) {
        throw std::runtime_error("PluginCore doesn't start again");
    }
}

std::string CoreSession::GetId(const std::string& path) const
{
    char id[256] = {};
    size_t size = sizeof id;
    EXPECT_EQ(0U, core.pGetIDForDocument(path.c_str(), id, &size));
    return id;
}

std::string CoreSession::GetMenus(const std::string& path) const
{
    size_t size = 0;
    EXPECT_EQ(plugincore::StatusCodes::kIndexOutOfRange,
              core.pGetMenus(path.c_str(), nullptr, &size));
    std::string text(size, '\0');
    EXPECT_EQ(0U, core.pGetMenus(path.c_str(), text.data(), &size));
    return text.c_str();
}

std::string CoreSession::Choose(const std::string& key, const std::string& path,
                                const std::vector<std::string>& fonts) const
{
    const std::string id = path.empty() ? "" : GetId(path);
    if (!id.empty()) {
        const std::string usage = MakeUsage(fonts);
        EXPECT_EQ(0U, core.pUpdateDocumentFontUsage(id.c_str(), usage.c_str()));
    }
    return CaptureErrors([&] {
        EXPECT_EQ(0U, core.pHandleMenuSelection(id.c_str(), "", key.c_str(),
                                                id.empty() ? "" : MakeFontList(fonts).c_str()));
    });
}

std::string CoreSession::GetStoredUsage(const std::string& path) const
{
    plugincore::Database database(home.GetData() / "Corvanta/fonts.db");
    return plugincore::DocumentStore(database, "").GetUsage(path);
}

std::string MakeUsage(const std::vector<std::string>& fonts, const std::vector<std::string>& linked)
{
    return json::object(
               {{"DocumentFonts", json::parse(MakeFontList(fonts))}, {"LinkedDocuments", linked}})
        .dump();
}

void WriteEps(const std::filesystem::path& file, const std::vector<std::string>& fonts,
              const std::vector<std::string>& placed)
{
    std::string text = "%!PS-Adobe-3.0 EPSF-3.0\n%%BoundingBox: 0 0 10 10\n";
    for (size_t position = 0; position < fonts.size(); ++position) {
        text += (position == 0 ? "%%DocumentFonts: " : "%%+ ") + fonts[position] + "\n";
    }
    for (size_t position = 0; position < placed.size(); ++position) {
        text += (position == 0 ? "%%DocumentFiles:(" : "%%+(") + placed[position] + ")\n";
    }
    FontTestHome::WriteFile(file, text + "%%EndComments\nshowpage\n%%EOF\n");
}

void WriteNative(const std::filesystem::path& file, const std::string& font,
                 const std::vector<std::string>& listed)
{
    std::string text = "%!PS-Adobe-3.0\n%%Creator: Adobe Illustrator(R) 8.0\n%%DocumentFonts:";
    for (const std::string& name : listed) text += " " + name;
    text += "\n%AI5_FileFormat 4.0\n%%EndComments\n0 To\n/_" + font +
            " 11 8 -2 Tf\n(abc) Tx\nTO\n%%EOF\n";
    FontTestHome::WriteFile(file, text);
}

std::string CaptureErrors(const std::function<void()>& work)
{
    testing::internal::CaptureStderr();
    work();
    return testing::internal::GetCapturedStderr();
}
