#include "ScriptedProcessList.h"

std::vector<std::string>& ScriptedExecutables()
{
    static std::vector<std::string> executables;
    return executables;
}

// The linker's --wrap option redirects calls of OSGetRunningExecutables() to this name.
std::vector<std::string> ListScriptedExecutables() asm(WRAPPED_NAME);
std::vector<std::string> ListScriptedExecutables() { return ScriptedExecutables(); }
