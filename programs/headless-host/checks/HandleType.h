#pragma once

#include <cstdint>

namespace headless {

// Everything that the host hands out by address.
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

// As it stands in error texts and in the journal.
const char* GetTypeName(HandleType type);

// Whether the guest has to give a handle of this type back.
bool IsOwedByPlugin(HandleType type);

}  // namespace headless
