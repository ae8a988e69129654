#include "GBlockingLockStrategy.h"

#include "GLockable.h"

unsigned int GBlockingLockStrategy::Lock(GLockable& lockable) { return lockable.Lock(); }
