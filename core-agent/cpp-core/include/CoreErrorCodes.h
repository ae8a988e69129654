#pragma once

// Makes the code of a failure below the host boundary: 32 bits, 0 for success.
//
// ordinal       the error's number within its class, from 1; bits 24 to 31 of the code
// classNumber   identifies the class that declares it; bits 0 to 23. 0 is CoreErrorCodes.
constexpr unsigned int MakeErrorCode(unsigned int ordinal, unsigned int classNumber)
{
    return (ordinal << 24) + classNumber;
}

// The codes that every class may return. GetNameForErrorCode (CppCoreMacros.h) gives their names.
struct CoreErrorCodes {
    static constexpr unsigned int kSuccess = 0;
    static constexpr unsigned int kError = MakeErrorCode(1, 0);
    static constexpr unsigned int kFatalError = MakeErrorCode(2, 0);
    static constexpr unsigned int kUnstatic = MakeErrorCode(3, 0);
    static constexpr unsigned int kInvalidParam = MakeErrorCode(4, 0);
    static constexpr unsigned int kNullPointer = MakeErrorCode(5, 0);
    static constexpr unsigned int kOutOfMemory = MakeErrorCode(6, 0);
    static constexpr unsigned int kNotFound = MakeErrorCode(7, 0);
    static constexpr unsigned int kNotImplemented = MakeErrorCode(8, 0);
    static constexpr unsigned int kItemAlreadyExists = MakeErrorCode(9, 0);
    static constexpr unsigned int kItemNotHandled = MakeErrorCode(10, 0);
    // Ordinal 11 is unused.
    static constexpr unsigned int kIndexOutOfRange = MakeErrorCode(12, 0);
    static constexpr unsigned int kDatabaseError = MakeErrorCode(13, 0);
    static constexpr unsigned int kVersionMismatch = MakeErrorCode(14, 0);
    static constexpr unsigned int kNotANumber = MakeErrorCode(15, 0);
    static constexpr unsigned int kNotSupported = MakeErrorCode(16, 0);
    static constexpr unsigned int kNotInitialized = MakeErrorCode(17, 0);
    static constexpr unsigned int kAlreadyInitialized = MakeErrorCode(18, 0);
    static constexpr unsigned int kMissingParam = MakeErrorCode(19, 0);
    static constexpr unsigned int kStopped = MakeErrorCode(20, 0);
    static constexpr unsigned int kUnknownError = MakeErrorCode(21, 0);
};
