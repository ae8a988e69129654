#pragma once

#include <cstddef>
#include <nlohmann/json.hpp>
#include <string>

#include "CppCoreMacros.h"

using nlohmann::json;

// Wraps the JSON library so that it returns error codes instead of throwing.
// Stateless; errors are written to the log. [any thread]
class GJSONUtils {
public:
    // How deep the arrays and objects of a text may be nested. Texts of PluginCore are nested fewer
    // than ten deep; to copy, print or search a value takes stack for each level.
    static constexpr size_t kMaximumNesting = 512;

    // Parses `text` (UTF-8) into `value`.
    // Returns 0, or kInvalidParam with `value` unchanged if the text isn't JSON or is nested too
    // deep. Comments are errors.
    static unsigned int Parse(const std::string& text, json& value);

    // Parses `text` as Parse does. Throws the JSON library's parse error, also for a text that is
    // nested too deep, and logs nothing.
    static json ParseOrThrow(const std::string& text);

    // Empties `value`, if it is an array or object, without allocating memory. The destructor of
    // one that isn't empty allocates, and ends the process if it can't.
    static void Clear(json& value) noexcept;

    // Copies the member `key` of the object `source` into `value`. T is json or std::string.
    //
    // On failure `value` is unchanged and the result is
    //   kNotFound      `source` is null, {} or [], has no such key (not logged, since callers
    //   expect
    //                  it), or the member can't be converted to T
    //   kInvalidParam  `source` is anything else but an object
    template <class T>
    static unsigned int GetValueForKey(const json& source, const std::string& key, T& value)
    {
        if (source.empty()) return Fail(1, CoreErrorCodes::kNotFound, "json.empty()", __LINE__);
        if (!source.is_object()) {
            return Fail(1, CoreErrorCodes::kInvalidParam, "!json.is_object()", __LINE__);
        }
        try {
            if (source.find(key) == source.end()) {
                return Fail(0, CoreErrorCodes::kNotFound, "json.find(key) == json.end()", __LINE__);
            }
            value = source[key].template get<T>();
        } catch (...) {
            return Fail(1, CoreErrorCodes::kNotFound, "CoreErrorCodes::kNotFound", __LINE__);
        }
        return CoreErrorCodes::kSuccess;
    }

private:
    // Logs the failure and returns the code.
    static unsigned int Fail(int level, unsigned int code, const char* expression, int line)
    {
        ReportCoreError("Miscellaneous", level, code, expression, __FILE__, line);
        return code;
    }
};

// Empties a JSON value at the end of the scope, so that its destructor needs no memory.
class GJSONScope {
public:
    // value   must outlive the scope
    explicit GJSONScope(json& value) : mValue(value) {}
    ~GJSONScope() { GJSONUtils::Clear(mValue); }
    GJSONScope(const GJSONScope&) = delete;
    GJSONScope& operator=(const GJSONScope&) = delete;

private:
    json& mValue;
};
