#pragma once

#include "batch/ShadowMemory.h"

namespace headless {

using batch::kHasShadowMemory;

}  // namespace headless
