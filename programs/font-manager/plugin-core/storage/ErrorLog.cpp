#include "plugin-core/storage/ErrorLog.h"

#include <iostream>

namespace plugincore {
namespace {

ErrorSink sSink = nullptr;

}  // namespace

void SetErrorSink(ErrorSink sink) { sSink = sink; }

void LogError(const std::string& line)
{
    if (sSink) {
        sSink(line);
    } else {
        std::cerr << "PluginCore: " + line + "\n" << std::flush;
    }
}

}  // namespace plugincore
