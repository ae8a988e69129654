// main() of the tests on macOS. Each test has an autorelease pool.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#import "PoolOfEachTest.h"

int main(int count, char** arguments)
{
    testing::InitGoogleMock(&count, arguments);
    testing::UnitTest::GetInstance()->listeners().Append(new PoolOfEachTest);
    return RUN_ALL_TESTS();
}
