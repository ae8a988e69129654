#include "validator/KnownResidue.h"

#include <algorithm>
#include <vector>

namespace headless {

namespace {

const std::vector<KnownResidue> kKnownResidues = {};

}  // namespace

bool IsKnownResidue(const Finding& finding)
{
    return std::any_of(kKnownResidues.begin(), kKnownResidues.end(), [&](const KnownResidue& row) {
        return row.rule == finding.rule && finding.message.find(row.text) != std::string::npos;
    });
}

}  // namespace headless
