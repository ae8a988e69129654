#pragma once

#include <vector>

#include "validator/Case.h"

namespace headless {

// The parts of AddPluginCoreCases, by subject. Each appends its cases.

void AddRefusalCases(std::vector<ValidatorCase>& cases);    // PluginCore can't be used at all
void AddCoreFaultCases(std::vector<ValidatorCase>& cases);  // functions fail or throw
void AddCoreBufferCases(std::vector<ValidatorCase>& cases);
void AddDocumentCallCases(std::vector<ValidatorCase>& cases);  // which calls a document causes
void AddFontListCases(std::vector<ValidatorCase>& cases);      // what JSON can contain
void AddMenuTreeCases(std::vector<ValidatorCase>& cases);

}  // namespace headless
