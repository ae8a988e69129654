#pragma once

#include "GLockStrategy.h"

// Locks by waiting, without limit, until the lockable is free. Stateless. [any thread]
class GBlockingLockStrategy : public GLockStrategy {
public:
    // Returns the result of lockable.Lock().
    unsigned int Lock(GLockable& lockable) override;
};
