#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "DocumentRegistry.h"
#include "RecordingTrace.h"

// Erases the records of all handles that a test has used.
class RegistryFixture : public testing::Test {
protected:
    RegistryFixture() { ClearTraces(); }
    ~RegistryFixture() override
    {
        for (_t_AIDocument* document : mUsed) ForgetAboutDocumentHandle(document);
        ForgetAboutDocumentHandle(nullptr);
        ClearTraces();
    }

    // A handle with this value; the registry never dereferences handles.
    _t_AIDocument* Document(std::uintptr_t number)
    {
        mUsed.push_back(reinterpret_cast<_t_AIDocument*>(number));
        return mUsed.back();
    }

private:
    std::vector<_t_AIDocument*> mUsed;
};
