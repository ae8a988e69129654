#include "ScriptedProcessList.h"

std::vector<std::string>& ScriptedExecutables()
{
    static std::vector<std::string> executables;
    return executables;
}

// The linker's --wrap option redirects calls of OSGetRunningExecutables() to this name.
std::vector<std::string> ListScriptedExecutables() asm(
    "__wrap__Z23OSGetRunningExecutablesB5cxx11v");
std::vector<std::string> ListScriptedExecutables() { return ScriptedExecutables(); }
