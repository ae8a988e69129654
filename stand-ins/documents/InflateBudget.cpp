#include "InflateBudget.h"

#include <string>

namespace documents {

namespace {

thread_local InflateBudget* sCurrent = nullptr;

}  // namespace

InflateBudget::InflateBudget(size_t bytes) : mLeft(bytes), mLimit(bytes) { sCurrent = this; }

InflateBudget::~InflateBudget() { sCurrent = nullptr; }

void InflateBudget::Take(size_t bytes)
{
    InflateBudget* budget = sCurrent;
    if (budget == nullptr) return;
    if (bytes > budget->mLeft) budget->mExceeded = true;
    budget->Check();
    budget->mLeft -= bytes;
}

void InflateBudget::Check() const
{
    if (!mExceeded) return;
    throw TooLarge("too large: inflates to more than " + std::to_string(mLimit >> 20) + " MiB");
}

}  // namespace documents
