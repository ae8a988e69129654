#pragma once

#include <vector>

#include "validator/Case.h"

namespace headless {

// Each function appends the cases of a family, in the order of its rules.

void AddLoadCases(std::vector<ValidatorCase>& cases);
void AddDispatchCases(std::vector<ValidatorCase>& cases);
void AddEntryCases(std::vector<ValidatorCase>& cases);
void AddNestedCases(std::vector<ValidatorCase>& cases);
void AddSuiteCases(std::vector<ValidatorCase>& cases);
void AddHandleCases(std::vector<ValidatorCase>& cases);
void AddMemoryCases(std::vector<ValidatorCase>& cases);
void AddRegistrationCases(std::vector<ValidatorCase>& cases);
void AddDocumentCases(std::vector<ValidatorCase>& cases);
void AddTextCases(std::vector<ValidatorCase>& cases);
void AddFileCheckCases(std::vector<ValidatorCase>& cases);

}  // namespace headless
