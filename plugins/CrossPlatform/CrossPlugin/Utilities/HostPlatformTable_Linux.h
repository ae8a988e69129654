#pragma once

#include "HostPlatform_Linux.h"

// The table that the host executable exports, or null if it exports none.
SHostPlatform* FindHostPlatform();
