#include "GLockStrategy.h"

#include "GLockable.h"

GLockStrategy::~GLockStrategy() = default;

unsigned int GLockStrategy::Unlock(GLockable& lockable) { return lockable.Unlock(); }
