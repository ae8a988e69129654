#pragma once

#include "AISuites.h"
#include "ATESuites.h"
#include "Life.h"

// What is held of the host, and given back whatever happens.
namespace wrong {

// Performs `release`, which returns a status, once more if it fails: nothing may be left behind.
template <class Release>
void GiveBack(Release release)
{
    for (int attempt = 0; attempt < 2; ++attempt) {
        try {
            if (release() == kHostSuccess) return;
        } catch (...) {  // as a status
        }
    }
}

template <class Table>
class Suite {
public:
    Suite(const char* name, int version) : mName(name), mVersion(version)
    {
        life.failedSuite = name;
        Expect("AcquireSuite", life.data->basic->AcquireSuite(name, version, &mTable));
    }
    ~Suite()
    {
        try {
            (void)life.data->basic->ReleaseSuite(mName, mVersion);
        } catch (...) {  // the host has released it, even so
        }
    }
    Suite(const Suite&) = delete;
    Suite& operator=(const Suite&) = delete;
    const Table* operator->() const { return mTable; }

private:
    const char* mName;
    int mVersion;
    const Table* mTable = nullptr;
};

// A reference of the text engine, released through its suite, unless its document is gone.
template <class Table, class Type>
class Reference {
public:
    explicit Reference(const Suite<Table>& suite) : mSuite(suite), mClosed(life.closedInside) {}
    ~Reference()
    {
        if (mType == nullptr || mClosed != life.closedInside) return;
        GiveBack([this] { return mSuite->Release(mType); });
    }
    Reference(const Reference&) = delete;
    Reference& operator=(const Reference&) = delete;
    Type** operator&() { return &mType; }
    operator Type*() const { return mType; }

private:
    const Suite<Table>& mSuite;
    const size_t mClosed;
    Type* mType = nullptr;
};

// A string or path of the host: one word, whose address is passed.
class Word {
public:
    using Release = AIErr (*)(void** word);
    explicit Word(Release release) : mRelease(release) {}
    ~Word()
    {
        if (mWord != nullptr) GiveBack([this] { return mRelease(&mWord); });
    }
    Word(const Word&) = delete;
    Word& operator=(const Word&) = delete;
    template <class Type>
    Type& As()
    {
        return *reinterpret_cast<Type*>(&mWord);
    }
    void* Get() const { return mWord; }
    void** operator&() { return &mWord; }

private:
    Release mRelease;
    void* mWord = nullptr;
};

// Release a string and a path.
AIErr DestroyString(void** word);
AIErr DisposePath(void** word);

// Returns the text of a string of the host.
std::string ReadString(const ai::UnicodeString& string);

// Returns the text of a path of the host, which may be null.
std::string ReadPath(void* path);

// Allocates a block and frees it.
void UseBlock();

// Creates a string and destroys it.
void UseString();

// Reads the text of the current document: tells kFrame and kWalked.
void Walk();

}  // namespace wrong
