#pragma once

namespace headless {

// The rules that the host checks while it runs, by their numbers, which never change their meaning.
// docs/VALIDATOR.md explains each one.
enum BrokenRule : int {
    kModuleNotLoaded = 101,
    kRefusesUnload = 104,
    kExceptionLeavesPlugin = 301,
    kCrash = 302,
    kTakesTooLong = 303,
    kNeedsTooMuchMemory = 304,
    kEndsProcess = 305,
    kSuiteNotAcquired = 401,
    kSuiteNotHeld = 402,
    kSuiteLeaked = 403,
    kBadAcquisition = 404,
    kNullHandle = 501,
    kUnknownHandle = 502,
    kExpiredHandle = 503,
    kWrongHandleType = 504,
    kReferenceLeaked = 505,
    kOutOfRange = 506,
    kNullArgument = 507,
    kBadArgument = 508,
    kMemoryLost = 609,
    kSessionNotBegun = 1201,
    kSessionNotReturned = 1202,
};

}  // namespace headless
