#include "plugin-core/storage/ErrorLog.h"

#include <unistd.h>

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
        // On a terminal the host may show its progress, or a prompt: the line takes its place.
        std::cerr << (isatty(STDERR_FILENO) == 1 ? "\r\033[K" : "") << "PluginCore: " + line + "\n"
                  << std::flush;
    }
}

}  // namespace plugincore
