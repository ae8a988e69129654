#include "Utf8Check.h"

namespace {

struct Form {
    unsigned char firstLead;
    unsigned char lastLead;
    unsigned char firstSecond;  // excludes overlong forms, surrogates and values that are too large
    unsigned char lastSecond;
    int length;
};

constexpr Form kForms[] = {
    {0x01, 0x7F, 0, 0, 1},       {0xC2, 0xDF, 0x80, 0xBF, 2}, {0xE0, 0xE0, 0xA0, 0xBF, 3},
    {0xE1, 0xEC, 0x80, 0xBF, 3}, {0xED, 0xED, 0x80, 0x9F, 3}, {0xEE, 0xEF, 0x80, 0xBF, 3},
    {0xF0, 0xF0, 0x90, 0xBF, 4}, {0xF1, 0xF3, 0x80, 0xBF, 4}, {0xF4, 0xF4, 0x80, 0x8F, 4},
};

// Returns the number of bytes of the first character, or 0 if it is ill-formed. Never reads beyond
// the zero byte at the end, which no form allows after the first byte.
int MeasureCharacter(const unsigned char* text)
{
    for (const Form& form : kForms) {
        if (text[0] < form.firstLead || text[0] > form.lastLead) continue;
        if (form.length == 1) return 1;
        if (text[1] < form.firstSecond || text[1] > form.lastSecond) return 0;
        for (int i = 2; i < form.length; ++i) {
            if (text[i] < 0x80 || text[i] > 0xBF) return 0;
        }
        return form.length;
    }
    return 0;
}

}  // namespace

bool IsValidUtf8(const char* text)
{
    const auto* next = reinterpret_cast<const unsigned char*>(text);
    while (*next != 0) {
        const int length = MeasureCharacter(next);
        if (length == 0) return false;
        next += length;
    }
    return true;
}
