#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "DocumentRegistry.h"
#include "RecordingTrace.h"

// Each test works with handles of its own making, and forgets them.
class RegistryTest : public testing::Test {
protected:
    RegistryTest() { ClearTraces(); }
    ~RegistryTest() override
    {
        for (_t_AIDocument* document : mUsed) ForgetAboutDocumentHandle(document);
        ForgetAboutDocumentHandle(nullptr);
        ClearTraces();
    }

    // The handle of that number; the registry compares it and never looks behind it.
    _t_AIDocument* Document(std::uintptr_t number)
    {
        mUsed.push_back(reinterpret_cast<_t_AIDocument*>(number));
        return mUsed.back();
    }

private:
    std::vector<_t_AIDocument*> mUsed;
};
