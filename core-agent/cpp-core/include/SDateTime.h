#pragma once

// The fields of a date and time in UTC; all 0 counts as empty. No field is checked.
struct SDateTime {
    SDateTime();

    short year;
    short month;
    short day;
    short hour;
    short minute;
    short second;
    short millisecond;
};
