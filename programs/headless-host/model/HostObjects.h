#pragma once

#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "HostTypes.h"
#include "checks/HandleType.h"
#include "documents/model/Document.h"
#include "documents/write/WriteDocument.h"

namespace headless {

// What stands behind the handles that a guest gets.

struct PluginObject {
    static constexpr HandleType kHandleType = HandleType::kPlugin;
    std::string path;
};

// An open document. Its art and everything of its text expire with it.
struct DocumentObject {
    static constexpr HandleType kHandleType = HandleType::kDocument;
    documents::Document content;
    std::string path;  // full path; for a document without a file its bare name
    bool hasFile = true;
    bool isModified = false;
    void* handle = nullptr;
    std::vector<void*> art;  // text frames, then placed files; what was added since stands behind

    // What a save needs: the file as it was read, and what was added since.
    std::string source;  // the file that it was opened from, empty if it was begun here
    bool hasBase = false;
    std::string base;  // the bytes of `source`, if hasBase
    std::vector<documents::AddedText> addedTexts;
    std::vector<std::string> addedLinks;

    std::set<std::string> activeBefore;  // names of the fonts that were active before it was there
};

struct ArtItem {
    static constexpr HandleType kHandleType = HandleType::kArt;
    DocumentObject* document;
    int16_t type;  // kTextFrameArt or kPlacedArt
    size_t index;  // into the document's frames or linked files
};

struct ArtSetObject {
    static constexpr HandleType kHandleType = HandleType::kArtSet;
    std::vector<void*> art;
};

struct StringObject {
    static constexpr HandleType kHandleType = HandleType::kString;
    std::string text;  // UTF-8 as it came in, zero bytes included
};

struct PathObject {
    static constexpr HandleType kHandleType = HandleType::kPath;
    std::string path;
};

struct NotifierObject {
    static constexpr HandleType kHandleType = HandleType::kNotifier;
    std::string name;
    std::string type;
};

struct FileFormatObject {
    static constexpr HandleType kHandleType = HandleType::kFileFormat;
    std::string name;
    std::string title;
    std::string extensions;
    std::vector<int32_t> types;
    int32_t options = 0;
    int32_t priority = 0;
};

struct TimerObject {
    static constexpr HandleType kHandleType = HandleType::kTimer;
    std::string name;
    int32_t period = 0;
    bool isActive = true;
};

struct MenuItemObject {
    static constexpr HandleType kHandleType = HandleType::kMenuItem;
    std::string key;
    std::string group;
    std::string text;
    int32_t options = 0;
    bool isEnabled = true;
    bool isChecked = false;
    void* submenu = nullptr;
};

struct MenuGroupObject {
    static constexpr HandleType kHandleType = HandleType::kMenuGroup;
    std::string name;
};

}  // namespace headless
