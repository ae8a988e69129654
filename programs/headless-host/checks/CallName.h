#pragma once

#include <string>

namespace headless {

// The name of a call by the plug-in, for violations and the journal. It becomes a text only when
// one is wanted, because the plug-in makes millions of calls and almost none is wrong.
class CallName {
public:
    // The texts must outlive the object.
    CallName(const char* name) : mName(name) {}
    CallName(const char* suite, const char* name) : mSuite(suite), mName(name) {}

    // "AI Font Suite, GetPostScriptFontName"; without a suite the name alone.
    std::string Get() const
    {
        return mSuite == nullptr ? std::string(mName) : std::string(mSuite) + ", " + mName;
    }

private:
    const char* mSuite = nullptr;
    const char* mName;
};

inline std::string operator+(const CallName& name, const std::string& text)
{
    return name.Get() + text;
}

}  // namespace headless
