#pragma once

#include <array>

namespace documents {

// The classes of characters in PDF, as bits.
enum PdfCharacterClass : unsigned char {
    kPdfRegular,
    kPdfSpace = 1,
    kPdfDelimiter = 2,
    kPdfNumberPart = 4
};

constexpr std::array<unsigned char, 256> MakeCharacterClasses()
{
    std::array<unsigned char, 256> classes{};
    for (unsigned char c : {0, 9, 10, 12, 13, 32}) classes[c] = kPdfSpace;
    for (char c : {'(', ')', '<', '>', '[', ']', '{', '}', '/', '%'}) {
        classes[static_cast<unsigned char>(c)] = kPdfDelimiter;
    }
    for (char c : {'0', '1', '2', '3', '4', '5', '6', '7', '8', '9', '.', '-', '+'}) {
        classes[static_cast<unsigned char>(c)] = kPdfNumberPart;
    }
    return classes;
}

inline constexpr std::array<unsigned char, 256> kCharacterClasses = MakeCharacterClasses();

inline unsigned char GetCharacterClass(char c)
{
    return kCharacterClasses[static_cast<unsigned char>(c)];
}

// White space in PDF: NUL, tab, line feed, form feed, carriage return and space.
inline bool IsPdfSpace(char c) { return GetCharacterClass(c) == kPdfSpace; }

// What ends a name or number: white space, brackets, a slash or a percent sign.
inline bool IsPdfDelimiter(char c)
{
    return (GetCharacterClass(c) & (kPdfSpace | kPdfDelimiter)) != 0;
}

}  // namespace documents
