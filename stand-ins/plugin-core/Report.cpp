#include <iostream>

#include "StatusCodes.h"

void plugincore::Report(const std::string& line)
{
    std::cerr << "PluginCore: " + line + "\n" << std::flush;
}
