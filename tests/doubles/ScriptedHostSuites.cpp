#include "ScriptedHostSuites.h"

#include <map>
#include <utility>

namespace {

AIErr AcquireOne(const char* name, int version, void* suite)
{
    return ScriptedHost::Current().Acquire(name, version, static_cast<void**>(suite));
}

AIErr GiveBackOne(const char* name, int version)
{
    return ScriptedHost::Current().ReleaseOne(name, version);
}

int TextsAreEqual(const char* a, const char* b)
{
    ScriptedHost& host = ScriptedHost::Current();
    (void)host.Record("SPBasicSuite.IsEqual", Quoted(a) + ", " + Quoted(b));
    if (host.isEqual) return host.isEqual(a, b) ? 1 : 0;
    return std::strcmp(a, b) == 0 ? 1 : 0;
}

int TextEngineVersion(const std::string& ownName)
{
    static const std::map<std::string, int> versions = {
        {"TextFrame", 101},    {"TextLine", 2},        {"DocumentTextResources", 101},
        {"CharFeatures", 102}, {"CharInspector", 102}, {"Find", 101},
        {"ParaFeatures", 101}, {"ParaInspector", 101}, {"Spell", 102}};
    const auto found = versions.find(ownName);
    return found == versions.end() ? 1 : found->second;
}

void* TextEngineSuiteOfVersion(const std::string& name, int version)
{
    static void* emptyTable[1] = {nullptr};
    const std::string start = "ATE ";
    const std::string end = " Suite";
    if (name.size() <= start.size() + end.size()) return nullptr;
    const std::string ownName = name.substr(start.size(), name.size() - start.size() - end.size());
    if (version != TextEngineVersion(ownName)) return nullptr;
    void* const table = TextEngineSuite(ownName);
    return table != nullptr ? table : static_cast<void*>(emptyTable);
}

}  // namespace

SPBasicSuite* ScriptedHost::Basic()
{
    static SPBasicSuite basic = {AcquireOne, GiveBackOne, TextsAreEqual};
    return &basic;
}

void* SuiteNamed(const char* name, int version)
{
    static void* emptyTable[1] = {nullptr};
    static const std::map<std::pair<std::string, int>, void*> suites = {
        {{"AI File Path Suite", 1006}, FilePathSuite()},
        {{"AI User Suite", 1017}, emptyTable},
        {{"AI Font Suite", 1006}, FontSuiteOfHost()},
        {{"AI Notifier Suite", 1004}, NotifierSuite()},
        {{"AI Matching Art Suite", 1007}, MatchingArtSuite()},
        {{"AI Placed Suite", 1009}, PlacedSuite()},
        {{"AI Text Frame Suite", 1004}, TextFrameSuiteOfHost()},
        {{"SP Blocks Suite", 2}, BlocksSuite()},
        {{"AI MdMemory Suite", 1003}, MdMemorySuite()},
        {{"AI Art Set Suite", 1009}, ArtSetSuite()},
        {{"AI Unicode String Suite", 1008}, UnicodeStringSuite()},
        {{"AI Document Suite", 1017}, DocumentSuite()},
        {{"AI File Format Suite", 1015}, FileFormatSuite()},
        {{"AI Menu Suite", 1011}, MenuSuite()},
        {{"AI Timer Suite", 1005}, TimerSuite()}};
    const auto found = suites.find({name, version});
    if (found != suites.end()) return found->second;
    const std::string text = name;
    return text.compare(0, 4, "ATE ") == 0 ? TextEngineSuiteOfVersion(text, version) : nullptr;
}
