#include "CodeScope.h"

#include <dlfcn.h>

namespace {

// A function of the host executable. Returns whether the plug-in's code ran before.
using SetPluginCodeFunction = bool (*)(bool isPlugin);

bool SetPluginCode(bool isPlugin) noexcept
{
    static const auto sSet =
        reinterpret_cast<SetPluginCodeFunction>(dlsym(RTLD_DEFAULT, "HeadlessHostSetPluginCode"));
    return sSet != nullptr && sSet(isPlugin);
}

}  // namespace

CodeScope::CodeScope(bool isPlugin) : mBefore(SetPluginCode(isPlugin)) {}

CodeScope::~CodeScope() { (void)SetPluginCode(mBefore); }
