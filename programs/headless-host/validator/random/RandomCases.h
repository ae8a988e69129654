#pragma once

#include <cstddef>

#include "validator/ValidatorReport.h"
#include "validator/process/CaseSeries.h"

namespace headless {

// The rules of the random messages.
constexpr int kRandomWithModel = 1601;     // a real host could send all of them
constexpr int kRandomWithoutModel = 1602;  // any message at any time

// What a case may take if one of the usual length may take `seconds`: the same, or more in
// proportion to its length.
double ScaleTimeLimit(double seconds, size_t length);

struct RandomSettings {
    int rule = kRandomWithModel;
    bool isTypeloft = false;
    unsigned long seed = 1;  // of the first script; the others have the following ones
    size_t count = 0;        // of the messages of all scripts
    size_t length = 200;     // of the messages of one script, at least 1
};

// Runs scripts of random messages and reports them. Of scripts that fail in the same way, the first
// is shrunk: it is reported with the fewest lines that still fail so.
void RunRandomCases(const RandomSettings& settings, CaseSeries& series, ValidatorReport& report);

}  // namespace headless
