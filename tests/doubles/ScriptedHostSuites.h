#pragma once

#include <cstring>

#include "ScriptedHost.h"

// Inside of the scripted host: the suites' tables, one function per source file that fills them.

inline ScriptedHost& Host() { return ScriptedHost::Current(); }

// The table of the suite, null if the host hasn't got that name in that version. Suites that nobody
// calls have an empty table.
void* SuiteNamed(const char* name, int version);

AIDocumentSuite* DocumentSuite();
AIFilePathSuite* FilePathSuite();
AIUnicodeStringSuite* UnicodeStringSuite();
SPBlocksSuite* BlocksSuite();
AIMdMemorySuite* MdMemorySuite();
AIMatchingArtSuite* MatchingArtSuite();
AIPlacedSuite* PlacedSuite();
AITextFrameSuite* TextFrameSuiteOfHost();
AIArtSetSuite* ArtSetSuite();
AIFontSuite* FontSuiteOfHost();
AINotifierSuite* NotifierSuite();
AIFileFormatSuite* FileFormatSuite();
AITimerSuite* TimerSuite();
AIMenuSuite* MenuSuite();

// The text engine's table for an own name such as "TextRange"; null if it is never called.
void* TextEngineSuite(const std::string& ownName);

// The one pointer that a host string or path consists of.
inline void*& StringSlot(const ai::UnicodeString& string)
{
    static_assert(sizeof(ai::UnicodeString) == sizeof(void*));
    return *reinterpret_cast<void**>(const_cast<ai::UnicodeString*>(&string));
}
inline void*& PathSlot(const ai::FilePath& path)
{
    static_assert(sizeof(ai::FilePath) == sizeof(void*));
    return *reinterpret_cast<void**>(const_cast<ai::FilePath*>(&path));
}

// Makes the string of these bytes, in the place of what it held.
void SetHostString(ai::UnicodeString& string, const std::string& bytes);
std::string HostStringText(const ai::UnicodeString& string);

inline std::string Handle(const void* handle)
{
    return handle == nullptr ? "null" : std::to_string(reinterpret_cast<std::size_t>(handle));
}
