#pragma once

#include <cstddef>
#include <cstdint>

namespace plugincore {

// The limits for clients of the panel's socket. docs/PANEL.md describes what happens beyond each.
struct PanelLimits {
    static constexpr size_t kFirstLine = 256;        // bytes
    static constexpr size_t kLine = 64U << 10;       // bytes
    static constexpr size_t kOutput = 1U << 20;      // bytes queued for a client
    static constexpr size_t kBusyOutput = 1U << 16;  // queued bytes beyond which requests wait
    static constexpr size_t kClients = 32;
    static constexpr size_t kNewClientsInATick = 16;
    static constexpr int64_t kTickMicroseconds = 1000;  // see PanelBudget
    // Of a client, in a step of the budget: bytes.
    static constexpr size_t kReadInAStep = 16U << 10;
    static constexpr size_t kSentInAStep = 64U << 10;
    static constexpr size_t kDiscarded = 1U << 20;          // bytes received from a refused client
    static constexpr int64_t kTokenMilliseconds = 10000;    // to present the token
    static constexpr int64_t kFarewellMilliseconds = 2000;  // to receive the last line
};

}  // namespace plugincore
