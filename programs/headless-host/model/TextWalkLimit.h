#pragma once

#include <functional>
#include <optional>
#include <string>

#include "model/HostObjects.h"

namespace headless {

// Limits the time that the plug-in spends on walking the text of a document, in all messages
// together. The plug-in compares each font with those before, so a document with a hundred thousand
// fonts would take hours. Once a document is over the limit, its text gives the plug-in an error
// (kHostTakesTooLong), which ends the walk.
class TextWalkLimit {
public:
    static constexpr double kSeconds = 30;

    TextWalkLimit();

    // Call it before each message to the plug-in: the time between two messages doesn't count.
    void BeginMessage() { mLast.reset(); }

    // Adds the time since the last call in this message, and returns whether the document is over
    // the limit.
    bool IsOver(DocumentObject& document);

    // "takes the plug-in longer than 30 s to read"
    static std::string Describe();

    std::function<double()> clock;  // seconds since any time; monotonic

    // Called once for each document that gets over the limit; may be empty.
    std::function<void(const DocumentObject&)> sink;

private:
    std::optional<double> mLast;
};

}  // namespace headless
