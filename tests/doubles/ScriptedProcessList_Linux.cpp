#include "ScriptedProcessList.h"

std::vector<std::string>& ScriptedExecutables()
{
    static std::vector<std::string> executables;
    return executables;
}

// Named by the linker: takes the place of OSGetRunningExecutables().
std::vector<std::string> ListScriptedExecutables() asm(
    "__wrap__Z23OSGetRunningExecutablesB5cxx11v");
std::vector<std::string> ListScriptedExecutables() { return ScriptedExecutables(); }
