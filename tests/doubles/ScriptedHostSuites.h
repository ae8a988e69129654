#pragma once

#include <cstring>

#include "ScriptedHost.h"

// Internal to the scripted host: access to the tables of the suites.

inline ScriptedHost& Host() { return ScriptedHost::Current(); }

// Returns the table of the suite, or null for an unknown name or version. Suites that the plug-in
// never calls have an empty table.
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

// Returns the table of the text engine suite, by its own name, such as "TextRange"; null for a
// suite that the plug-in never calls.
void* TextEngineSuite(const std::string& ownName);

// Returns the pointer that a host string or path consists of.
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

// Sets a host string to these bytes and frees what it held.
void SetHostString(ai::UnicodeString& string, const std::string& bytes);
std::string HostStringText(const ai::UnicodeString& string);

inline std::string Handle(const void* handle)
{
    return handle == nullptr ? "null" : std::to_string(reinterpret_cast<std::size_t>(handle));
}
