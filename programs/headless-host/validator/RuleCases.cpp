#include "validator/RuleCases.h"

#include <algorithm>

#include "validator/CaseFamilies.h"
#include "validator/Rules.h"
#include "validator/TypeloftCaseFamilies.h"

namespace headless {

std::vector<ValidatorCase> MakeRuleCases(bool isTypeloft)
{
    std::vector<ValidatorCase> cases;
    AddLoadCases(cases);
    AddDispatchCases(cases);
    AddEntryCases(cases);
    AddNestedCases(cases);
    AddSuiteCases(cases);
    AddHandleCases(cases);
    AddMemoryCases(cases);
    AddRegistrationCases(cases);
    AddDocumentCases(cases);
    AddTextCases(cases);
    AddFileCheckCases(cases);
    AddPluginCoreCases(cases);
    AddDialogPeriodCases(cases);
    AddPanelPortCases(cases);
    AddShutdownCases(cases);
    if (!isTypeloft) {
        const auto isSpecial = [](const ValidatorCase& each) {
            const RuleRow* const rule = FindRule(each.rule);
            return rule != nullptr && rule->isForTypeloftOnly;
        };
        cases.erase(std::remove_if(cases.begin(), cases.end(), isSpecial), cases.end());
    }
    std::stable_sort(
        cases.begin(), cases.end(),
        [](const ValidatorCase& a, const ValidatorCase& b) { return a.rule < b.rule; });
    return cases;
}

}  // namespace headless
