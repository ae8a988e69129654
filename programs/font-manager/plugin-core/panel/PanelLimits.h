#pragma once

#include <cstddef>
#include <cstdint>

namespace plugincore {

// What a client of the panel's socket may use up. docs/PANEL.md tells what happens beyond each.
struct PanelLimits {
    static constexpr size_t kFirstLine = 256;        // bytes
    static constexpr size_t kLine = 64u << 10;       // bytes
    static constexpr size_t kOutput = 1u << 20;      // bytes that wait for a client
    static constexpr size_t kBusyOutput = 1u << 16;  // bytes beyond which requests wait
    static constexpr size_t kClients = 32;
    static constexpr size_t kNewClientsInATick = 16;
    static constexpr size_t kReadInATick = 64u << 10;  // bytes
    static constexpr size_t kRequestsInATick = 8;
    static constexpr size_t kDiscarded = 1u << 20;  // bytes taken from a client that was refused
    static constexpr int64_t kTokenMilliseconds = 10000;
    static constexpr int64_t kFarewellMilliseconds = 2000;
};

}  // namespace plugincore
