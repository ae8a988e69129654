#pragma once

// The trace. It formats its text and lets it go: no stream, no file, no log. A debugger or a double
// of this function sees what the system does.
//
// `indentChange` is 1 on entry to a function, -1 on its way out and 0 within it. A text longer than
// 65,535 bytes is cut. Any thread may call; it uses the stack alone.
void OutputIndentedAndFormattedString(int indentChange, const char* format, ...)
    __attribute__((format(printf, 2, 3)));
