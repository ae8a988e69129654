#include "GStringUtils.h"

#include <algorithm>
#include <cstdio>

int GStringUtils::OSvsnprintf(char* buffer, unsigned long size, const char* format, va_list args)
{
    return std::vsnprintf(buffer, size, format, args);
}

std::string GStringUtils::OSToLowerCase(const std::string& text)
{
    std::string lowered = text;
    std::for_each(lowered.begin(), lowered.end(), GLowerCaseFunctor());
    return lowered;
}
