#include <iostream>

#include "plugin-core/storage/StatusCodes.h"

namespace plugincore {
namespace {

ReportSink sSink = nullptr;

}  // namespace

void SetReportSink(ReportSink sink) { sSink = sink; }

void Report(const std::string& line)
{
    if (sSink) {
        sSink(line);
    } else {
        std::cerr << "PluginCore: " + line + "\n" << std::flush;
    }
}

}  // namespace plugincore
