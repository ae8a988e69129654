#include "ATEWrappers.h"

namespace ATE {

Exception::~Exception() = default;

void Throw_ATE_Exception(ATEErr code)
{
    if (code != 0) throw Exception(code);
}

bool IFont::IsNull() const { return sFont->IsNull(mReference); }

int IArrayFontRef::GetSize() const
{
    int size = 0;
    Throw_ATE_Exception(sArrayFontRef->GetSize(mReference, &size));
    return size;
}

IFont IArrayFontRef::Item(int index) const
{
    _Font* font = nullptr;
    Throw_ATE_Exception(sArrayFontRef->Item(mReference, index, &font));
    return IFont(font);
}

IArrayFontRef ICharInspector::GetFont() const
{
    _ArrayFontRef* fonts = nullptr;
    Throw_ATE_Exception(sCharInspector->GetFont(mReference, &fonts));
    return IArrayFontRef(fonts);
}

ICharInspector ITextRanges::GetCharInspector() const
{
    _CharInspector* inspector = nullptr;
    Throw_ATE_Exception(sTextRanges->GetCharInspector(mReference, &inspector));
    return ICharInspector(inspector);
}

ITextRanges IStories::GetTextRanges() const
{
    _TextRanges* ranges = nullptr;
    Throw_ATE_Exception(sStories->GetTextRanges(mReference, &ranges));
    return ITextRanges(ranges);
}

IStories IStory::GetStories() const
{
    _Stories* stories = nullptr;
    Throw_ATE_Exception(sStory->GetStories(mReference, &stories));
    return IStories(stories);
}

IStory ITextFrame::GetStory() const
{
    _Story* story = nullptr;
    Throw_ATE_Exception(sTextFrame->GetStory(mReference, &story));
    return IStory(story);
}

IFont ICharFeatures::GetFont(bool* isAssigned) const
{
    _Font* font = nullptr;
    Throw_ATE_Exception(sCharFeatures->GetFont(mReference, isAssigned, &font));
    return IFont(font);
}

ITextRange::ITextRange(const ITextRange& other) : Wrapper(other.mReference)
{
    // The constructor ignores the code: if AddRef fails, the next operation on the copy fails too.
    if (mReference != nullptr) (void)sTextRange->AddRef(mReference);
}

ITextRunsIterator ITextRange::GetTextRunsIterator() const
{
    _TextRunsIterator* iterator = nullptr;
    Throw_ATE_Exception(sTextRange->GetTextRunsIterator(mReference, &iterator));
    return ITextRunsIterator(iterator);
}

ICharFeatures ITextRange::GetUniqueCharFeatures() const
{
    _CharFeatures* features = nullptr;
    Throw_ATE_Exception(sTextRange->GetUniqueCharFeatures(mReference, &features));
    return ICharFeatures(features);
}

bool ITextRunsIterator::IsNotDone() const
{
    bool isNotDone = false;
    Throw_ATE_Exception(sTextRunsIterator->IsNotDone(mReference, &isNotDone));
    return isNotDone;
}

void ITextRunsIterator::Next() { Throw_ATE_Exception(sTextRunsIterator->Next(mReference)); }

ITextRange ITextRunsIterator::Item() const
{
    _TextRange* run = nullptr;
    Throw_ATE_Exception(sTextRunsIterator->Item(mReference, &run));
    return ITextRange(run);
}

}  // namespace ATE
