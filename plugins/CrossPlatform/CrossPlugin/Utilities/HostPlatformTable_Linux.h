#pragma once

#include "HostPlatform_Linux.h"

// Returns the table that the host executable exports (HostPlatform_Linux.h), or null if it exports
// none. The host owns the table, for the life of the process. [any thread]
SHostPlatform* FindHostPlatform();
