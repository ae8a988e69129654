#import "OSGuard_Mac.h"

NSException* OSGuard(OSGuardedAction action, void* context)
{
    @try {
        action(context);
    } @catch (NSException* exception) {
        return [[exception retain] autorelease];
    }
    return nil;
}
