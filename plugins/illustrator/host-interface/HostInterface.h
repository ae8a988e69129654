#pragma once

// Everything that the plug-in takes from its host.

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
