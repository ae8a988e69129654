#pragma once

// The trace: formats a text and discards it. Nothing is written to a stream, file or log. Debuggers
// and test doubles of this function see what the system does.
//
// indentChange   1 when a function is entered, -1 when it is left, otherwise 0
// format         as for printf; the text is truncated after 65,535 bytes
// [any thread] Needs 64 KiB of stack.
void OutputIndentedAndFormattedString(int indentChange, const char* format, ...)
    __attribute__((format(printf, 2, 3)));
