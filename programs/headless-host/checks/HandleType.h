#pragma once

#include <cstdint>

namespace headless {

// The kinds of handles that the host gives to plug-ins.
enum class HandleType : uint8_t {
    kPlugin,
    kDocument,
    kArt,
    kArtSet,
    kString,
    kPath,
    kBlock,
    kMemoryHandle,
    kFontKey,
    kNotifier,
    kFileFormat,
    kTimer,
    kMenuItem,
    kMenuGroup,
    kTextFrame,
    kStory,
    kStories,
    kTextRange,
    kTextRanges,
    kTextRunsIterator,
    kCharFeatures,
    kCharInspector,
    kFontArray,
    kFont,
};

// The name for violations and the journal, such as "art set".
const char* GetTypeName(HandleType type);

// Whether the plug-in must release handles of this type.
bool IsOwedByPlugin(HandleType type);

}  // namespace headless
