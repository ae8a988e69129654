#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "checks/HandleType.h"
#include "documents/model/Document.h"
#include "documents/write/WriteDocument.h"

namespace headless {

// The objects behind the handles that the plug-in gets.

struct PluginObject {
    static constexpr HandleType kHandleType = HandleType::kPlugin;
    std::string path;
};

// An open document. Its handle owns the handles of its art and text.
struct DocumentObject {
    static constexpr HandleType kHandleType = HandleType::kDocument;
    documents::Document content;
    std::string path;  // absolute; for a document without a file its bare name
    bool hasFile = true;
    bool isModified = false;
    void* handle = nullptr;
    std::vector<void*> art;  // handles: text frames, placed files, then what was added since

    // For saving: the file as it was read, and the additions.
    std::string source;  // the file that it was opened from; empty for a new document
    bool hasBase = false;
    std::string base;  // the bytes of `source`, if hasBase
    std::vector<documents::AddedText> addedTexts;
    std::vector<std::string> addedLinks;

    double walkSeconds = 0;    // see TextWalkLimit
    bool tookTooLong = false;  // it is over the limit
    bool isBeingOpened = false;

    std::set<std::string> activeBefore;  // the fonts that were active before it was opened
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
    std::string text;  // the bytes as the plug-in gave them; may contain zero bytes
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
    int32_t period = 0;  // in ticks
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
    void* submenu = nullptr;  // the handle of the group that the item opens, if any
};

struct MenuGroupObject {
    static constexpr HandleType kHandleType = HandleType::kMenuGroup;
    std::string name;
};

}  // namespace headless
