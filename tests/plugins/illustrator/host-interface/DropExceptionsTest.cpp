#include "DropExceptions.h"

#include <stdexcept>

#include "HostInterfaceFixture.h"
#include "ScriptedHostSuites.h"

namespace {

struct ForeignException {};

// A host whose releasing operations throw, one type after the other, until it is told to stop.
class ReleaseThatThrows : public HostInterfaceTest {
protected:
    // Makes the operation throw while `isThrowing`, after it was logged and before it has an
    // effect.
    void ThrowFrom(const std::string& operation)
    {
        host.OnCall(operation, [this] {
            if (!isThrowing) return;
            switch (mCallCount++ % 5) {
                case 0:
                    throw ai::Error(4711);
                case 1:
                    throw ATE::Exception(4711);
                case 2:
                    throw 4711;
                case 3:
                    throw std::runtime_error("release");
                default:
                    throw ForeignException();
            }
        });
    }

    bool isThrowing = true;

private:
    int mCallCount = 0;
};

TEST_F(ReleaseThatThrows, DoesNotLeaveTheDestructorOfAString)
{
    ThrowFrom("AIUnicodeStringSuite.Destroy");
    for (int i = 0; i < 5; ++i) {
        const ai::UnicodeString string = ai::UnicodeString::FromUTF8("a");
    }
    EXPECT_EQ(5U, host.CountCalls("AIUnicodeStringSuite.Destroy"));
    EXPECT_EQ(5U, host.LiveStrings());
}

TEST_F(ReleaseThatThrows, DoesNotLeaveTheDestructorOfAPath)
{
    ThrowFrom("AIFilePathSuite.DisposeFilePath");
    void* const handle = host.NewHandle();
    host.paths[handle] = "/a.ai";
    for (int i = 0; i < 5; ++i) {
        ai::FilePath path;
        PathSlot(path) = handle;
    }
    EXPECT_EQ(5U, host.CountCalls("AIFilePathSuite.DisposeFilePath"));
    isThrowing = false;
    ai::FilePath path;
    PathSlot(path) = handle;
}

TEST_F(ReleaseThatThrows, DoesNotLeaveTheDestructorOfABuffer)
{
    ThrowFrom("SPBlocksSuite.FreeBlock");
    std::vector<char*> blocks;
    for (int i = 0; i < 5; ++i) {
        const ai::UnicodeString::Buffer buffer(12);
        blocks.push_back(buffer.GetBuffer());
    }
    EXPECT_EQ(5U, host.CountCalls("SPBlocksSuite.FreeBlock"));
    isThrowing = false;
    for (char* const block : blocks) ai::SPAlloc::DeleteBlock(block);
}

TEST_F(ReleaseThatThrows, DoesNotLeaveTheDestructorOfATextEngineWrapper)
{
    ThrowFrom("ATE TextRange.Release");
    auto* const raw = host.NewRunReference("A");
    for (int i = 0; i < 5; ++i) {
        const ATE::ITextRange range(raw);
    }
    EXPECT_EQ(5U, host.CountCalls("ATE TextRange.Release"));
    isThrowing = false;
    const ATE::ITextRange range(raw);
}

TEST_F(ReleaseThatThrows, DoesNotReplaceTheExceptionThatIsOnItsWay)
{
    ThrowFrom("SPBlocksSuite.FreeBlock");
    char* block = nullptr;
    try {
        const ai::UnicodeString::Buffer buffer(12);
        block = buffer.GetBuffer();
        throw ATE::Exception(1234);
    } catch (const ATE::Exception& exception) {
        EXPECT_EQ(1234, exception.error);
    }
    isThrowing = false;
    ai::SPAlloc::DeleteBlock(block);
}

TEST_F(ReleaseThatThrows, LeavesAFunctionThatIsNoDestructor)
{
    ThrowFrom("SPBlocksSuite.FreeBlock");
    EXPECT_THROW(ai::SPAlloc::DeleteBlock(&isThrowing), ai::Error);
}

}  // namespace
