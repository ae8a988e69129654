#include "GScopedManagedMemory.h"

#import <Foundation/Foundation.h>

#include "CppCoreMacros.h"

void GScopedManagedMemory::OSSetupManagedMemory()
{
    mOSManagedMemory = [[NSAutoreleasePool alloc] init];
    if (mOSManagedMemory == nullptr) {
        LogCoreError("Miscellaneous", 1, CoreErrorCodes::kNullPointer,
                     "(mOSManagedMemory) == nullptr");
    }
}

void GScopedManagedMemory::OSTearDownManagedMemory()
{
    [static_cast<NSAutoreleasePool*>(mOSManagedMemory) release];
    mOSManagedMemory = nullptr;
}
