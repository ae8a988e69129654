#include <gmock/gmock.h>

#include <cstdarg>
#include <cstddef>
#include <string>
#include <vector>

#include "FreshProcess.h"
#include "LoggerFixture.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

bool gIsRecording = false;
std::vector<std::size_t> gSizes;

}  // namespace

// The linker replaces the program's calls of vsnprintf by calls of this function (--wrap).
extern "C" int __real_vsnprintf(char* buffer, std::size_t size, const char* format, va_list args);
extern "C" int __wrap_vsnprintf(char* buffer, std::size_t size, const char* format, va_list args)
{
    if (gIsRecording) gSizes.push_back(size);
    return __real_vsnprintf(buffer, size, format, args);
}

namespace {

// The buffer is a static that never shrinks, so each test runs in a process of its own.
class BufferGrowth : public LoggerFixture {
protected:
    // Logs a text of `length` characters and returns the buffer's size at each call of vsnprintf.
    std::vector<std::size_t> SizesFor(std::size_t length)
    {
        const std::string prefix = "[x]\t[Error]\t";
        const std::string text(length - prefix.size(), 'a');
        gSizes.clear();
        gIsRecording = true;
        logger.LogError("x", "%s", text.c_str());
        gIsRecording = false;
        return gSizes;
    }
};

TEST_F(BufferGrowth, TextThatFitsIsFormattedOnce)
{
    InFreshProcess([this] { EXPECT_THAT(SizesFor(255), ElementsAre(256U)); });
}

TEST_F(BufferGrowth, TextOfOneCharacterMoreGrowsTheBufferByOneStep)
{
    InFreshProcess([this] {
        EXPECT_THAT(SizesFor(256), ElementsAre(256U, 512U));
        EXPECT_THAT(SizesFor(511), ElementsAre(512U));
    });
}

TEST_F(BufferGrowth, TextThatEndsAtAStepGrowsTheBufferByTwoSteps)
{
    InFreshProcess([this] { EXPECT_THAT(SizesFor(511), ElementsAre(256U, 768U)); });
}

TEST_F(BufferGrowth, BufferNeverShrinks)
{
    InFreshProcess([this] {
        EXPECT_THAT(SizesFor(5000), ElementsAre(256U, 5120U));
        EXPECT_THAT(SizesFor(20), ElementsAre(5120U));
    });
}

TEST_F(BufferGrowth, NothingIsFormattedWithoutAppendersOrBelowTheThreshold)
{
    logger.RemoveAllAppenders();
    EXPECT_THAT(SizesFor(100), IsEmpty());
    logger.AddAppender("again", new ScriptedAppender(record));
    logger.SetLoggingLevelForIdentifier("x", kNone);
    EXPECT_THAT(SizesFor(100), IsEmpty());
}

}  // namespace
