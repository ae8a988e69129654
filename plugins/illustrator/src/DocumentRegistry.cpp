#include "DocumentRegistry.h"

#include <algorithm>
#include <cctype>
#include <functional>
#include <map>
#include <utility>

#include "DebugUtils.h"
#include "TraceArguments.h"

namespace {

std::map<_t_AIDocument*, DocumentData, std::less<_t_AIDocument*>> sMapOfHandlesToDocumentData;

void SetText(const char* function, _t_AIDocument* document, std::string DocumentData::*field,
             const std::string& text)
{
    OutputIndentedAndFormattedString(1, "Entering %s(%08x, '%s')", function, TracePointer(document),
                                     text.c_str());
    // Copy first: if there is no memory for the copy, the map is unchanged.
    std::string copy = text;
    sMapOfHandlesToDocumentData[document].*field = std::move(copy);
    OutputIndentedAndFormattedString(-1, "Exiting %s()", function);
}

std::string GetText(const char* function, _t_AIDocument* document, std::string DocumentData::*field)
{
    OutputIndentedAndFormattedString(1, "Entering %s(%08x)", function, TracePointer(document));
    std::string text = sMapOfHandlesToDocumentData[document].*field;
    OutputIndentedAndFormattedString(-1, "%s(%08x) returning '%s'", function,
                                     TracePointer(document), text.c_str());
    return text;
}

std::string ToLower(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

}  // namespace

void SetFilePathForDocumentHandle(_t_AIDocument* document, const std::string& path)
{
    SetText("SetFilePathForDocumentHandle", document, &DocumentData::filePath, path);
}

std::string GetFilePathForDocumentHandle(_t_AIDocument* document)
{
    return GetText("GetFilePathForDocumentHandle", document, &DocumentData::filePath);
}

void SetTimestampForDocumentHandle(_t_AIDocument* document, long time)
{
    OutputIndentedAndFormattedString(1, "Entering %s(%08x, 0x%08x)",
                                     "SetTimestampForDocumentHandle", TracePointer(document),
                                     static_cast<unsigned int>(time));
    sMapOfHandlesToDocumentData[document].timestamp = time;
    OutputIndentedAndFormattedString(-1, "Exiting %s()", "SetTimestampForDocumentHandle");
}

long GetTimestampForDocumentHandle(_t_AIDocument* document)
{
    OutputIndentedAndFormattedString(1, "Entering %s(%08x)", "GetTimestampForDocumentHandle",
                                     TracePointer(document));
    const long time = sMapOfHandlesToDocumentData[document].timestamp;
    OutputIndentedAndFormattedString(-1, "%s(%08x) returning 0x%08x",
                                     "GetTimestampForDocumentHandle", TracePointer(document),
                                     static_cast<unsigned int>(time));
    return time;
}

void SetFontUsageForDocumentHandle(_t_AIDocument* document, const std::string& usage)
{
    SetText("SetFontUsageForDocumentHandle", document, &DocumentData::fontUsage, usage);
}

std::string GetFontUsageForDocumentHandle(_t_AIDocument* document)
{
    return GetText("GetFontUsageForDocumentHandle", document, &DocumentData::fontUsage);
}

void SetTemplatePathForDocumentHandle(_t_AIDocument* document, const std::string& path)
{
    SetText("SetTemplatePathForDocumentHandle", document, &DocumentData::templatePath, path);
}

std::string GetTemplatePathForDocumentHandle(_t_AIDocument* document)
{
    return GetText("GetTemplatePathForDocumentHandle", document, &DocumentData::templatePath);
}

_t_AIDocument* GetDocumentHandleForTemplatePath(const std::string& path)
{
    const std::string wanted = ToLower(path);
    const auto found = std::find_if(
        sMapOfHandlesToDocumentData.begin(), sMapOfHandlesToDocumentData.end(),
        [&wanted](const auto& entry) { return ToLower(entry.second.templatePath) == wanted; });
    _t_AIDocument* const document =
        found != sMapOfHandlesToDocumentData.end() ? found->first : nullptr;
    OutputIndentedAndFormattedString(0, "%s('%s') returning %08x",
                                     "GetDocumentHandleForTemplatePath", path.c_str(),
                                     TracePointer(document));
    return document;
}

void ForgetAboutDocumentHandle(_t_AIDocument* document)
{
    const size_t erased = sMapOfHandlesToDocumentData.erase(document);
    OutputIndentedAndFormattedString(0, "%s(%08x) erased %d map entries.",
                                     "ForgetAboutDocumentHandle", TracePointer(document),
                                     static_cast<int>(erased));
}
