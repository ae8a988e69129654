#include "PanelHome.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace fs = std::filesystem;

namespace {

constexpr const char* kSourceName = "DejaVuSansMono-BoldOblique";

std::string ReadFile(const fs::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    std::string bytes{std::istreambuf_iterator<char>(stream), {}};
    if (bytes.empty()) throw std::runtime_error(file.string() + ": cannot be read");
    return bytes;
}

void WriteFile(const fs::path& file, const std::string& bytes)
{
    std::ofstream stream(file, std::ios::binary);
    stream << bytes << std::flush;
    if (!stream) throw std::runtime_error(file.string() + ": cannot be written");
}

// As the name table has it for Windows: UTF-16BE.
std::string Widen(const std::string& text)
{
    std::string wide;
    for (const char c : text) wide += {'\0', c};
    return wide;
}

void ReplaceAll(std::string& bytes, const std::string& from, const std::string& to)
{
    for (size_t at = bytes.find(from); at != std::string::npos; at = bytes.find(from, at)) {
        bytes.replace(at, from.size(), to);
    }
}

// A name of the same length, so that no offset in the font changes.
std::string MakeName(int number)
{
    char name[32];
    (void)std::snprintf(name, sizeof name, "BenchFont%05d-BoldOblique", number);
    return name;
}

}  // namespace

PanelHome::PanelHome(const fs::path& source, int fonts)
{
    std::string pattern = fs::temp_directory_path() / "panel-bench.XXXXXX";
    if (!mkdtemp(pattern.data())) throw std::runtime_error(pattern + ": cannot be created");
    mFolder = pattern;
    fs::create_directories(mFolder / "library/Bench");
    fs::create_directories(mFolder / "data/fonts");
    const std::string original = ReadFile(source);
    for (int number = 0; number < fonts; ++number) {
        mNames.push_back(MakeName(number));
        std::string font = original;
        ReplaceAll(font, kSourceName, mNames.back());
        ReplaceAll(font, Widen(kSourceName), Widen(mNames.back()));
        WriteFile(mFolder / "library/Bench" / (mNames.back() + ".ttf"), font);
    }
    WriteFile(mFolder / "fonts.conf",
              "<fontconfig><dir>" + (mFolder / "data/fonts").string() +
                  "</dir><include>/etc/fonts/fonts.conf</include>"
                  "<cachedir prefix=\"xdg\">fontconfig</cachedir></fontconfig>");
    setenv("HOME", mFolder.c_str(), 1);
    setenv("XDG_DATA_HOME", (mFolder / "data").c_str(), 1);
    setenv("XDG_CONFIG_HOME", (mFolder / "config").c_str(), 1);
    setenv("XDG_STATE_HOME", (mFolder / "state").c_str(), 1);
    setenv("XDG_CACHE_HOME", (mFolder / "cache").c_str(), 1);
    setenv("FONTCONFIG_FILE", (mFolder / "fonts.conf").c_str(), 1);
    setenv("CORVANTA_FONT_LIBRARY", (mFolder / "library").c_str(), 1);
}

PanelHome::~PanelHome()
{
    std::error_code error;
    fs::remove_all(mFolder, error);
}

std::string PanelHome::MakeTokenMessage() const
{
    return "{\"token\":\"" + ReadFile(mFolder / "state/Corvanta/panel-token") + "\"}";
}
