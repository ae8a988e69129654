#pragma once

// The whole host interface: everything that the plug-in calls in its host or receives from it.

#include "AIAutoBuffer.h"
#include "AIError.h"
#include "AIFilePath.h"
#include "AISuites.h"
#include "AIUnicodeString.h"
#include "ATESuites.h"
#include "ATETypes.h"
#include "ATEWrappers.h"
#include "HostMessages.h"
#include "HostPlatform_Linux.h"
#include "HostTypes.h"
#include "ModalWindow.h"
#include "SPAlloc.h"
#include "SPBasicSuite.h"
#include "SuiteGlobals.h"
