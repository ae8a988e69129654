#include "validator/process/OutcomeJson.h"

#include <nlohmann/json.hpp>
#include <stdexcept>

#include "base/JsonText.h"

namespace headless {

namespace {

constexpr const char* kResultNames[] = {"passed", "failed", "skipped"};

CaseResult FindResult(const std::string& name)
{
    for (const CaseResult result :
         {CaseResult::kPassed, CaseResult::kFailed, CaseResult::kSkipped}) {
        if (name == GetResultName(result)) return result;
    }
    throw std::invalid_argument("unknown result");
}

}  // namespace

const char* GetResultName(CaseResult result) { return kResultNames[static_cast<int>(result)]; }

std::string WriteOutcome(const CaseOutcome& outcome)
{
    nlohmann::ordered_json value;
    value["result"] = GetResultName(outcome.result);
    value["findings"] = nlohmann::ordered_json::array();
    for (const Finding& finding : outcome.findings) {
        value["findings"].push_back({{"rule", finding.rule}, {"message", finding.message}});
    }
    value["reason"] = outcome.reason;
    value["journal"] = outcome.journal;
    value["failedCalls"] = outcome.failedCalls;
    value["suiteCalls"] = outcome.counts.suiteCalls;
    value["coreCalls"] = outcome.counts.coreCalls;
    value["allocations"] = outcome.counts.allocations;
    value["messages"] = outcome.counts.messages;
    value["hasInvalidLine"] = outcome.hasInvalidLine;
    return base::PrintJson(value);
}

CaseOutcome ReadOutcome(const std::string& text)
{
    const nlohmann::json value = nlohmann::json::parse(text);
    CaseOutcome outcome;
    outcome.result = FindResult(value.at("result").get<std::string>());
    for (const nlohmann::json& finding : value.at("findings")) {
        outcome.findings.push_back(
            {finding.at("rule").get<int>(), finding.at("message").get<std::string>()});
    }
    outcome.reason = value.at("reason").get<std::string>();
    outcome.journal = value.at("journal").get<std::vector<std::string>>();
    outcome.failedCalls = value.at("failedCalls").get<std::vector<std::string>>();
    outcome.counts.suiteCalls = value.at("suiteCalls").get<size_t>();
    outcome.counts.coreCalls = value.at("coreCalls").get<size_t>();
    outcome.counts.allocations = value.at("allocations").get<size_t>();
    outcome.counts.messages = value.at("messages").get<size_t>();
    outcome.hasInvalidLine = value.at("hasInvalidLine").get<bool>();
    return outcome;
}

}  // namespace headless
