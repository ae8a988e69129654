#pragma once

#include "DebugUtils.h"
#include "HostInterface.h"
#include "TraceArguments.h"

// The trace lines around a handler of host messages. `body` takes no argument and returns an AIErr,
// which becomes the result. An exception of `body` passes through, and then the second line isn't
// written.

// Runs `body` between the entry and the exit line of the function `name`.
template <class Body>
AIErr TraceHandler(const char* name, Body body)
{
    OutputIndentedAndFormattedString(1, "Entering %s", name);
    const AIErr result = body();
    OutputIndentedAndFormattedString(-1, "%s returning %d", name, result);
    return result;
}

// Like TraceHandler, but returns kHostBadParameter without a trace if `message` is null.
template <class Message, class Body>
AIErr HandleMessage(const char* name, const Message* message, Body body)
{
    if (message == nullptr) return kHostBadParameter;
    return TraceHandler(name, body);
}

// Like HandleMessage, for a notifier that carries a document: the entry line prints the document.
template <class Body>
AIErr HandleDocumentMessage(const char* name, const AINotifierMessage* message, Body body)
{
    if (message == nullptr) return kHostBadParameter;
    OutputIndentedAndFormattedString(1, "Entering %s(message->notifyData = 0x%08x)", name,
                                     TracePointer(message->notifyData));
    const AIErr result = body();
    OutputIndentedAndFormattedString(-1, "%s returning %d", name, result);
    return result;
}
