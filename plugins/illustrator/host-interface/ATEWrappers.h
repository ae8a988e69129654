#pragma once

#include <exception>

#include "ATESuites.h"
#include "ATETypes.h"
#include "SuiteGlobals.h"

// Scoped owners of text engine references, good for the length of one host call. A wrapper takes
// over one count from the raw pointer it is made with and releases it in its destructor; a null
// reference is never released. Every operation but IFont's throws ATE::Exception with the text
// engine's code when that isn't 0.
namespace ATE {

class Exception : public std::exception {
public:
    explicit Exception(ATEErr code) : error(code) {}
    ~Exception() override;

    ATEErr error;  // never 0
};

// Throws ATE::Exception for any code but 0.
void Throw_ATE_Exception(ATEErr code);

// What all wrappers share: one reference, released through the suite at *kSuite. Movable only.
template <class Reference, class Suite, Suite** kSuite>
class Wrapper {
public:
    explicit Wrapper(Reference* reference) : mReference(reference) {}
    Wrapper(Wrapper&& other) noexcept : mReference(other.mReference) { other.mReference = nullptr; }
    Wrapper(const Wrapper&) = delete;
    Wrapper& operator=(const Wrapper&) = delete;
    Wrapper& operator=(Wrapper&&) = delete;
    virtual ~Wrapper()
    {
        // A destructor has nobody to tell a failure to.
        if (mReference != nullptr) (void)(*kSuite)->Release(mReference);
    }

protected:
    Reference* mReference;
};

class IFont : public Wrapper<_Font, FontSuite, &sFont> {
public:
    using Wrapper::Wrapper;
    bool IsNull() const;
    _Font* GetRef() const { return mReference; }  // still owned by the wrapper
};

// The fonts used in the inspected ranges.
class IArrayFontRef : public Wrapper<_ArrayFontRef, ArrayFontRefSuite, &sArrayFontRef> {
public:
    using Wrapper::Wrapper;
    int GetSize() const;
    IFont Item(int index) const;
};

class ICharInspector : public Wrapper<_CharInspector, CharInspectorSuite, &sCharInspector> {
public:
    using Wrapper::Wrapper;
    IArrayFontRef GetFont() const;
};

class ITextRanges : public Wrapper<_TextRanges, TextRangesSuite, &sTextRanges> {
public:
    using Wrapper::Wrapper;
    ICharInspector GetCharInspector() const;
};

// All stories of the document.
class IStories : public Wrapper<_Stories, StoriesSuite, &sStories> {
public:
    using Wrapper::Wrapper;
    ITextRanges GetTextRanges() const;
};

class IStory : public Wrapper<_Story, StorySuite, &sStory> {
public:
    using Wrapper::Wrapper;
    IStories GetStories() const;
};

class ITextFrame : public Wrapper<_TextFrame, TextFrameSuite, &sTextFrame> {
public:
    using Wrapper::Wrapper;
    IStory GetStory() const;
};

class ICharFeatures : public Wrapper<_CharFeatures, CharFeaturesSuite, &sCharFeatures> {
public:
    using Wrapper::Wrapper;
    // `isAssigned`, if not null, tells whether the font is set in these features.
    IFont GetFont(bool* isAssigned) const;
};

class ITextRunsIterator;

// The one wrapper that can be copied: a copy holds a count of its own.
class ITextRange : public Wrapper<_TextRange, TextRangeSuite, &sTextRange> {
public:
    using Wrapper::Wrapper;
    ITextRange(const ITextRange& other);
    ITextRange(ITextRange&& other) noexcept = default;

    ITextRunsIterator GetTextRunsIterator() const;
    // The features common to the whole range.
    ICharFeatures GetUniqueCharFeatures() const;
};

class ITextRunsIterator
    : public Wrapper<_TextRunsIterator, TextRunsIteratorSuite, &sTextRunsIterator> {
public:
    using Wrapper::Wrapper;
    bool IsNotDone() const;
    void Next();
    // The run of uniform attributes at the iterator.
    ITextRange Item() const;
};

}  // namespace ATE
