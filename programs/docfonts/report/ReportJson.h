#pragma once

#include <string>

#include "docfonts/report/DocumentReport.h"

namespace docfonts {

// One JSON object on one line, without the line end. All reports have the same members; those of
// `headless-host fonts` mean the same here. Bytes that aren't UTF-8 become U+FFFD.
std::string WriteJson(const DocumentReport& report);

// The report as bytes for another process, with all that it has.
std::string PackReport(const DocumentReport& report);

// Reads what PackReport wrote. Throws nlohmann::json::exception for anything else.
DocumentReport UnpackReport(const std::string& bytes);

}  // namespace docfonts
