#pragma once

namespace batch {

// Whether the program is built with a sanitizer whose shadow memory is far larger than the
// program's own: a limit of the memory would fail under it.
#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define TYPELOFT_HAS_SHADOW_MEMORY
#endif
#endif
#if defined(__SANITIZE_ADDRESS__) || defined(TYPELOFT_HAS_SHADOW_MEMORY)
constexpr bool kHasShadowMemory = true;
#else
constexpr bool kHasShadowMemory = false;
#endif
#undef TYPELOFT_HAS_SHADOW_MEMORY

}  // namespace batch
