#pragma once

// The fields of a date and time in UTC. No field is checked; GDateTime has the bounds of a valid
// one. All fields 0 means "empty": no date.
struct SDateTime {
    // Sets all fields to 0.
    SDateTime();

    short year;
    short month;  // from 1
    short day;    // from 1
    short hour;
    short minute;
    short second;
    short millisecond;
};
