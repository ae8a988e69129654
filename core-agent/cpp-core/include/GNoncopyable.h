#pragma once

// Base of classes that can't be copied. Derive privately: it is not an interface, and its
// destructor is not virtual.
class GNoncopyable {
protected:
    GNoncopyable() = default;
    ~GNoncopyable() = default;

public:
    GNoncopyable(const GNoncopyable&) = delete;
    GNoncopyable& operator=(const GNoncopyable&) = delete;
};
