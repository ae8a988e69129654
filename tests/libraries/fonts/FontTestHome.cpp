#include "FontTestHome.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <map>
#include <memory>
#include <stdexcept>

namespace fs = std::filesystem;

FontTestHome::FontTestHome()
{
    fs::create_directories(GetLibrary());
    WriteFile(mPath / "fonts.conf",
              "<fontconfig><dir>" + GetUserFonts().string() +
                  "</dir>"
                  "<cachedir prefix=\"xdg\">fontconfig</cachedir></fontconfig>");
    SetVariable("HOME", mPath);
    SetVariable("XDG_DATA_HOME", GetData());
    SetVariable("XDG_CONFIG_HOME", mPath / "config");
    SetVariable("XDG_STATE_HOME", mPath / "state");
    SetVariable("XDG_CACHE_HOME", mPath / "cache");
    SetVariable("FONTCONFIG_FILE", mPath / "fonts.conf");
    SetVariable("CORVANTA_FONT_LIBRARY", GetLibrary());
    SetVariable("CORVANTA_INTERACTIVE", "");
}

FontTestHome::~FontTestHome()
{
    for (const auto& [name, value] : mBefore) {
        if (value.empty()) {
            unsetenv(name.c_str());
        } else {
            setenv(name.c_str(), value.c_str(), 1);
        }
    }
    std::error_code error;
    fs::permissions(mPath, fs::perms::owner_all, error);
}

void FontTestHome::SetVariable(const std::string& name, const std::string& value)
{
    const char* before = std::getenv(name.c_str());
    mBefore.emplace_back(name, before ? before : "");
    setenv(name.c_str(), value.c_str(), 1);
}

fs::path FontTestHome::CopyFont(const std::string& name, const fs::path& folder)
{
    fs::create_directories(folder);
    const fs::path file = folder / (name + ".ttf");
    fs::copy_file(fs::path("/usr/share/fonts/truetype/dejavu") / (name + ".ttf"), file);
    return file;
}

void FontTestHome::WriteFile(const fs::path& file, const std::string& bytes)
{
    fs::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << bytes;
}

void FontTestHome::DamageUnnoticed(const fs::path& file)
{
    const fs::file_time_type modified = fs::last_write_time(file);
    WriteFile(file, std::string(fs::file_size(file), 'x'));
    fs::last_write_time(file, modified);
}

std::set<std::string> FontTestHome::ListOfOtherProcess()
{
    const std::unique_ptr<FILE, int (*)(FILE*)> pipe(
        popen("fc-list --format '%{postscriptname}\\n'", "r"), pclose);
    std::set<std::string> names;
    char line[512];
    while (pipe && std::fgets(line, sizeof line, pipe.get())) {
        std::string name = line;
        if (!name.empty() && name.back() == '\n') name.pop_back();
        if (!name.empty()) names.insert(name);
    }
    return names;
}

namespace {

std::string ReadBytes(const fs::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::string Number(unsigned value, int bytes)
{
    std::string text;
    for (int shift = (bytes - 1) * 8; shift >= 0; shift -= 8) {
        text += static_cast<char>((value >> shift) & 0xff);
    }
    return text;
}

unsigned GetNumber(const std::string& bytes, size_t position, int count)
{
    unsigned value = 0;
    for (int byte = 0; byte < count; ++byte) {
        value = value << 8 | static_cast<unsigned char>(bytes.at(position + byte));
    }
    return value;
}

constexpr size_t kHeaderSize = 12;
constexpr size_t kEntrySize = 16;

// The font with its table offsets moved by `shift`, to be put into another file.
std::string Shift(std::string font, unsigned shift)
{
    const unsigned tables = GetNumber(font, 4, 2);
    for (size_t table = 0; table < tables; ++table) {
        const size_t position = kHeaderSize + table * kEntrySize + 8;
        font.replace(position, 4, Number(GetNumber(font, position, 4) + shift, 4));
    }
    return font;
}

std::map<std::string, std::string> ReadTables(const std::string& font)
{
    std::map<std::string, std::string> tables;
    for (size_t table = 0; table < GetNumber(font, 4, 2); ++table) {
        const size_t entry = kHeaderSize + table * kEntrySize;
        tables[font.substr(entry, 4)] =
            font.substr(GetNumber(font, entry + 8, 4), GetNumber(font, entry + 12, 4));
    }
    return tables;
}

std::string WriteTables(const std::map<std::string, std::string>& tables)
{
    const auto count = static_cast<unsigned>(tables.size());
    std::string directory = Number(0x00010000, 4) + Number(count, 2) + std::string(6, '\0');
    std::string data;
    for (const auto& [tag, table] : tables) {
        const size_t offset = kHeaderSize + count * kEntrySize + data.size();
        directory += tag + Number(0, 4) + Number(static_cast<unsigned>(offset), 4) +
                     Number(static_cast<unsigned>(table.size()), 4);
        data += table + std::string((4 - table.size() % 4) % 4, '\0');
    }
    return directory + data;
}

// The name table with one more entry, for Windows in English.
std::string AddName(const std::string& table, unsigned id, const std::string& text)
{
    constexpr size_t kNameHeader = 6;
    const unsigned count = GetNumber(table, 2, 2);
    const unsigned storage = GetNumber(table, 4, 2);
    std::string wide;
    for (const char c : text) wide += std::string(1, '\0') + c;
    const auto place = static_cast<unsigned>(table.size()) - storage;
    return Number(0, 2) + Number(count + 1, 2) + Number(storage + 12, 2) +
           table.substr(kNameHeader, storage - kNameHeader) + Number(3, 2) + Number(1, 2) +
           Number(0x0409, 2) + Number(id, 2) + Number(static_cast<unsigned>(wide.size()), 2) +
           Number(place, 2) + table.substr(storage) + wide;
}

}  // namespace

std::string MakeCollection(const fs::path& first, const fs::path& second)
{
    constexpr unsigned kCollectionHeader = 20;
    std::string one = ReadBytes(first);
    one.resize((one.size() + 3) / 4 * 4);
    const auto place = kCollectionHeader + static_cast<unsigned>(one.size());
    return "ttcf" + Number(0x00010000, 4) + Number(2, 4) + Number(kCollectionHeader, 4) +
           Number(place, 4) + Shift(one, kCollectionHeader) + Shift(ReadBytes(second), place);
}

std::string MakeVariableFont(const fs::path& file, const std::vector<std::string>& styles)
{
    std::map<std::string, std::string> tables = ReadTables(ReadBytes(file));
    const auto count = static_cast<unsigned>(styles.size());
    std::string variations = Number(0x00010000, 4) + Number(16, 2) + Number(2, 2) + Number(1, 2) +
                             Number(20, 2) + Number(count, 2) + Number(8, 2) + "wght" +
                             Number(400 << 16, 4) + Number(400 << 16, 4) + Number(900 << 16, 4) +
                             Number(0, 2) + Number(1, 2);
    constexpr unsigned kFirstFreeName = 256;
    for (unsigned instance = 0; instance < count; ++instance) {
        tables["name"] = AddName(tables["name"], kFirstFreeName + instance, styles[instance]);
        variations += Number(kFirstFreeName + instance, 2) + Number(0, 2) +
                      Number((500 + 100 * instance) << 16, 4);
    }
    const unsigned glyphs = GetNumber(tables.at("maxp"), 4, 2);
    const unsigned dataPlace = 20 + (glyphs + 1) * 2;
    tables["fvar"] = variations;
    tables["gvar"] = Number(0x00010000, 4) + Number(1, 2) + Number(0, 2) + Number(dataPlace, 4) +
                     Number(glyphs, 2) + Number(0, 2) + Number(dataPlace, 4) +
                     std::string((glyphs + 1) * 2, '\0');
    return WriteTables(tables);
}
