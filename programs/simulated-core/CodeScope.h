#pragma once

// Whose code runs while the object lives: this module's or the plug-in's, which it calls back. The
// host lets allocations of the plug-in fail, and not those of this module.
class CodeScope {
public:
    explicit CodeScope(bool isPlugin);
    ~CodeScope();
    CodeScope(const CodeScope&) = delete;
    CodeScope& operator=(const CodeScope&) = delete;

private:
    const bool mBefore;
};
