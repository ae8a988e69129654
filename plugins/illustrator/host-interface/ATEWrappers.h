#pragma once

#include <exception>

#include "ATESuites.h"
#include "ATETypes.h"
#include "DropExceptions.h"
#include "SuiteGlobals.h"

// Scoped owners of text engine references. [main-thread]
//
// Ownership  A wrapper takes over one count from the raw pointer that it is constructed with, and
//            releases it in its destructor. A null reference is not released.
// Errors     Every operation, except those of IFont, throws ATE::Exception if the text engine
//            returns a code other than 0. Destructors ignore the code and never throw.
// Lifetime   A wrapper must not outlive the host message in which it was constructed.
// Suites     Operations call through SuiteGlobals.h without checking the suite for null.
namespace ATE {

class Exception : public std::exception {
public:
    explicit Exception(ATEErr code) : error(code) {}
    ~Exception() override;

    ATEErr error;  // the text engine's code, never 0
};

// Throws ATE::Exception if `code` isn't 0.
void Throw_ATE_Exception(ATEErr code);

// Base of all wrappers: one reference, released through the suite at *kSuite. Can be moved, which
// leaves null behind, but not copied.
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
        // A destructor can't report a failure.
        if (mReference == nullptr) return;
        DropExceptions([this] { (void)(*kSuite)->Release(mReference); });
    }

protected:
    Reference* mReference;
};

// A font of the document. Its operations don't throw.
class IFont : public Wrapper<_Font, FontSuite, &sFont> {
public:
    using Wrapper::Wrapper;
    // Returns whether this is the null font, the font of text without a common font.
    bool IsNull() const;
    // Returns the reference, which the wrapper still owns. Calls nothing.
    _Font* GetRef() const { return mReference; }
};

// An array of fonts, such as those that an inspector found.
class IArrayFontRef : public Wrapper<_ArrayFontRef, ArrayFontRefSuite, &sArrayFontRef> {
public:
    using Wrapper::Wrapper;
    int GetSize() const;
    // Returns the font at `index`, from 0 to GetSize() - 1.
    IFont Item(int index) const;
};

// Reports the character attributes in a set of text ranges.
class ICharInspector : public Wrapper<_CharInspector, CharInspectorSuite, &sCharInspector> {
public:
    using Wrapper::Wrapper;
    // Returns the fonts used in the ranges.
    IArrayFontRef GetFont() const;
};

// A set of text ranges.
class ITextRanges : public Wrapper<_TextRanges, TextRangesSuite, &sTextRanges> {
public:
    using Wrapper::Wrapper;
    ICharInspector GetCharInspector() const;
};

// All stories of a document.
class IStories : public Wrapper<_Stories, StoriesSuite, &sStories> {
public:
    using Wrapper::Wrapper;
    // Returns the text of all stories.
    ITextRanges GetTextRanges() const;
};

// A text that flows through one or several frames.
class IStory : public Wrapper<_Story, StorySuite, &sStory> {
public:
    using Wrapper::Wrapper;
    // Returns all stories of the same document.
    IStories GetStories() const;
};

// A frame that shows text.
class ITextFrame : public Wrapper<_TextFrame, TextFrameSuite, &sTextFrame> {
public:
    using Wrapper::Wrapper;
    IStory GetStory() const;
};

// The attributes that all characters of a range have in common.
class ICharFeatures : public Wrapper<_CharFeatures, CharFeaturesSuite, &sCharFeatures> {
public:
    using Wrapper::Wrapper;
    // Returns the font, or the null font if the characters have none in common. Sets `isAssigned`,
    // which may be null, to whether they have one.
    IFont GetFont(bool* isAssigned) const;
};

class ITextRunsIterator;

// A range of text. The only wrapper that can be copied: a copy owns a count of its own.
class ITextRange : public Wrapper<_TextRange, TextRangeSuite, &sTextRange> {
public:
    using Wrapper::Wrapper;
    ITextRange(const ITextRange& other);
    ITextRange(ITextRange&& other) noexcept = default;

    // Returns an iterator at the first run of the range.
    ITextRunsIterator GetTextRunsIterator() const;
    // Returns the features that the whole range has in common.
    ICharFeatures GetUniqueCharFeatures() const;
};

// Walks the runs of a range in text order. A run is text with uniform attributes.
class ITextRunsIterator
    : public Wrapper<_TextRunsIterator, TextRunsIteratorSuite, &sTextRunsIterator> {
public:
    using Wrapper::Wrapper;
    // Returns true while the iterator is at a run; only then may Next and Item be called.
    bool IsNotDone() const;
    void Next();
    // Returns the run at the iterator.
    ITextRange Item() const;
};

}  // namespace ATE
