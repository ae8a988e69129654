#pragma once

// Runs `action`, a call of the host in a destructor or another noexcept function, and drops
// whatever it throws.
//
// A host may throw instead of returning a code. Such an exception would end the process here, and
// during another exception it would replace the one that is on its way. Nothing is left to be done
// about it either: the owner of the handle or suite is gone. All other calls of the host let
// exceptions pass.
template <class Action>
void DropExceptions(Action action) noexcept
{
    try {
        action();
    } catch (...) {
        // See above.
    }
}
