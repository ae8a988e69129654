#pragma once

// A class that derives from it, non-publicly, can't be copied.
class GNoncopyable {
protected:
    GNoncopyable() = default;
    ~GNoncopyable() = default;

public:
    GNoncopyable(const GNoncopyable&) = delete;
    GNoncopyable& operator=(const GNoncopyable&) = delete;
};
