#pragma once

// The numbering of all failures below the host boundary: an unsigned 32-bit code, 0 for success.
// Bits 24 to 31 hold the ordinal within a class, counted from 1; bits 0 to 23 the class number,
// which is 0 for the codes common to all.
constexpr unsigned int MakeErrorCode(unsigned int ordinal, unsigned int classNumber)
{
    return (ordinal << 24) + classNumber;
}

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
    // The ordinal 11 is not in use.
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
