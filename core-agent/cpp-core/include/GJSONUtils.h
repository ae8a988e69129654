#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "CppCoreMacros.h"

using nlohmann::json;

// The JSON library with codes in the place of exceptions. No state; any thread.
class GJSONUtils {
public:
    // kInvalidParam for a text that isn't JSON, comments included; `value` then keeps what it held.
    static unsigned int Parse(const std::string& text, json& value);

    // kNotFound for an empty value, an absent key and a value of another type than T, kInvalidParam
    // for what isn't an object; `value` then keeps what it held. An absent key is a normal outcome
    // and its report silent. T is json or string.
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
    // Reports and returns the code.
    static unsigned int Fail(int level, unsigned int code, const char* expression, int line)
    {
        ReportCoreError("Miscellaneous", level, code, expression, __FILE__, line);
        return code;
    }
};
