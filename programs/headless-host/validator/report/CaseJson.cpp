#include "validator/report/CaseJson.h"

#include "validator/process/OutcomeJson.h"

namespace headless {

nlohmann::ordered_json DescribeCase(const ValidatorCase& which, int level,
                                    const CaseOutcome& outcome)
{
    nlohmann::ordered_json value;
    value["rule"] = which.rule;
    value["level"] = level;
    value["case"] = which.name;
    value["outcome"] = GetResultName(outcome.result);
    value["message"] = outcome.findings.empty() ? outcome.reason : outcome.findings.front().message;
    value["findings"] = nlohmann::ordered_json::array();
    for (const Finding& finding : outcome.findings) {
        value["findings"].push_back({{"rule", finding.rule}, {"message", finding.message}});
    }
    value["seed"] = which.seed;
    value["messages"] = outcome.counts.messages;
    value["journal"] = outcome.journal;
    return value;
}

}  // namespace headless
