#include "PluginGlobals.h"

#include "DebugUtils.h"

SPBasicSuite* sSPBasic = nullptr;
SGlobals* gGlobals = nullptr;
void* gMessage = nullptr;

void ThrowAIErr(int code)
{
    if (code == kHostSuccess) return;
    OutputIndentedAndFormattedString(0, "ERROR:  throwing %d.", code);
    throw code;
}
