#pragma once

#include <stddef.h>

// What the simulated PluginCore asks of the host executable, which decides what each of its
// functions does. The host exports the function; the module looks it up by name.

extern "C" {

struct HostAnswer {
    unsigned int status;
    bool hasText;      // whether the buffer gets `text`
    const char* text;  // any bytes, without a zero byte at the end
    size_t textSize;
    bool isRaw;    // copies as much of the text as fits, without a zero byte
    bool hasSize;  // whether *ioSize gets `size`
    size_t size;
    bool hasNumber;  // whether the output number gets `number`
    int number;
    bool hasFlag;  // whether the output flag gets `flag`
    bool flag;
    bool rebuildsMenu;  // whether to call the callback that rebuilds the library menu
};

// Sets what this call does. The texts are valid until the next call of this function.
//
// argsJson   the call's arguments, as a JSON object
// Can throw anything: that is the function's exception.
typedef void (*HeadlessHostAnswerCoreFunction)(const char* function, const char* argsJson,
                                               struct HostAnswer* answer);

// Writes a line to the host's journal.
typedef void (*HeadlessHostJournalFunction)(const char* side, const char* op, const char* argsJson,
                                            const char* resultJson);

}  // extern "C"
