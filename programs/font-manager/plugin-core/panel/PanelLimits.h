#pragma once

#include <cstddef>
#include <cstdint>

namespace plugincore {

// The limits for clients of the panel's port. docs/PANEL.md describes what happens beyond each.
struct PanelLimits {
    static constexpr uint32_t kHeader = 8U << 10;     // bytes of an HTTP request
    static constexpr size_t kFirstMessage = 256;      // bytes
    static constexpr size_t kMessage = 64U << 10;     // bytes
    static constexpr size_t kOutput = 1U << 20;       // bytes queued for a client
    static constexpr uint64_t kFontFile = 64U << 20;  // bytes
    static constexpr size_t kFontPiece = 256U << 10;  // bytes of a font file in memory
    static constexpr size_t kClients = 32;
    static constexpr size_t kNewClientsInATick = 16;
    static constexpr int64_t kTickMicroseconds = 1000;  // see PanelBudget
    // Bytes read from a client in a step of the budget. Boost.Asio sends at most 64 KiB in one.
    static constexpr size_t kReadInAStep = 16U << 10;
    static constexpr size_t kDiscarded = 1U << 20;          // bytes received after an answer
    static constexpr int64_t kTokenMilliseconds = 10000;    // to send the header and the token
    static constexpr int64_t kAnswerMilliseconds = 30000;   // to receive a piece of an answer
    static constexpr int64_t kFarewellMilliseconds = 2000;  // to receive the last output
};

}  // namespace plugincore
