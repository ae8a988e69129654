#include "plugin-core/Buffers.h"

#include <cstring>

#include "base/Plural.h"
#include "plugin-core/storage/Failure.h"

std::string plugincore::ReadBuffer(const char* buffer, size_t size)
{
    return {buffer, strnlen(buffer, size)};
}

void plugincore::WriteBuffer(const std::string& text, char* buffer, size_t size)
{
    if (text.size() < size) {
        std::memcpy(buffer, text.c_str(), text.size() + 1);
        return;
    }
    if (size != 0) buffer[0] = '\0';
    throw Failure(StatusCodes::kIndexOutOfRange, "the buffer is too small: expected " +
                                                     base::Count(text.size() + 1, "byte") +
                                                     ", but it has " + std::to_string(size));
}
