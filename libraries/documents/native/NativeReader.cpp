#include "documents/native/NativeReader.h"

#include <unordered_map>
#include <utility>

#include "documents/model/DocumentBuilder.h"
#include "documents/native/NativeAdditions.h"
#include "documents/native/NativeContainer.h"
#include "documents/native/NativeFontList.h"
#include "documents/native/NativeScan.h"
#include "documents/native/NativeTextTree.h"
#include "documents/pdf/ContentWalker.h"
#include "documents/pdf/PdfFile.h"
#include "documents/postscript/DscReader.h"

namespace documents {

namespace {

ReadResult Fail(const std::string& reason)
{
    return {ReadStatus::kFailed, "the native document cannot be read: " + reason};
}

// Builds a Document from what was found in the lines and in the text tree.
class Assembler {
public:
    Assembler(const NativeContents& contents, const NativeAdditions& additions,
              const std::vector<std::string>& fontList, const Limits& limits, Document& document)
        : mContents(contents),
          mAdditions(additions),
          mFontList(fontList),
          mLimits(limits),
          mDocument(document),
          mBuilder(document),
          mTree(contents.tree.GetView(), limits.hasDetails)
    {
    }

    void Assemble()
    {
        AddStories();
        for (const NativeText& text : mContents.texts) {
            switch (text.type) {
                case NativeText::Type::kFrame:
                    AddFrame(text);
                    break;
                case NativeText::Type::kObject:
                    mBuilder.AddFrameWithStory(text.runs);
                    break;
                case NativeText::Type::kPdf:
                    AddPdf(text);
                    break;
            }
        }
        // Before the additions, which only the list of a bare document includes.
        mBuilder.SetFontList(mFontList);
        for (const TextRun& text : mAdditions.texts) mBuilder.AddFrameWithStory({text});
        Note("text frames without a story", mLostFrames);
        Note("runs without a known font", mTree.GetUnknownFonts());
        Note("texts of an older version that cannot be read", mLostPdfs);
    }

private:
    void Note(const char* what, size_t count)
    {
        if (count > 0) mDocument.notes.push_back(what + (": " + std::to_string(count)));
    }

    // Adds the stories that at least one frame shows, in the order of the tree.
    void AddStories()
    {
        const std::vector<NativeTextTree::Story>& stories = mTree.GetStories();
        std::vector<bool> isShown(stories.size());
        for (const NativeText& text : mContents.texts) {
            const bool isFrame =
                text.type == NativeText::Type::kFrame && text.story < stories.size();
            if (isFrame) isShown[text.story] = true;
        }
        for (size_t i = 0; i < stories.size(); ++i) {
            if (!isShown[i]) continue;
            mStories.emplace(i, mBuilder.AddStory(stories[i].runs));
            for (const NativeTextTree::Words& words : stories[i].words) {
                mBuilder.AddWords(words.postScriptName, words.text);
            }
        }
    }

    void AddFrame(const NativeText& text)
    {
        const auto story = mStories.find(text.story);
        if (story == mStories.end()) {
            ++mLostFrames;
            return;
        }
        // The index of the new frame isn't needed.
        (void)mBuilder.AddFrame(story->second, mTree.GetFrameRuns(text.story, text.frame));
    }

    void AddPdf(const NativeText& text)
    {
        PdfFile file(text.pdf->GetView());
        if (!file.Open().empty()) {
            ++mLostPdfs;
            return;
        }
        ContentWalker walker(file, mLimits, mBuilder);
        for (const QPDFObjectHandle& page : file.GetPages()) walker.WalkPage(page);
    }

    const NativeContents& mContents;
    const NativeAdditions& mAdditions;
    const std::vector<std::string>& mFontList;
    const Limits& mLimits;
    Document& mDocument;
    DocumentBuilder mBuilder;
    NativeTextTree mTree;
    std::unordered_map<size_t, size_t> mStories;  // index in the tree -> in the document
    size_t mLostFrames = 0;
    size_t mLostPdfs = 0;
};

bool HasFrames(const NativeContents& contents)
{
    for (const NativeText& text : contents.texts) {
        if (text.type == NativeText::Type::kFrame) return true;
    }
    return false;
}

}  // namespace

ReadResult ReadNative(const DocumentSource& source, const Limits& limits, Document& document)
{
    const NativePart part = FindNativePart(source);
    if (!part.isThere) return {};
    if (!part.error.empty()) return Fail(part.error);
    const NativeContents contents = ScanNative(part.text);
    if (part.isBare && contents.texts.empty() && HasFontComments(source.postScript)) return {};
    if (!contents.error.empty()) return Fail(contents.error);
    if (!contents.isNative && part.head.empty()) return Fail("it has no format mark");
    if (!contents.hasTree && HasFrames(contents)) return Fail("its text is missing");
    const NativeAdditions additions = source.pdf != nullptr
                                          ? ReadAdditions(FindNativePage(source.pdf->GetPages()))
                                          : ReadAdditions(source.postScript);
    document.linkedFiles = contents.linkedFiles;
    // In a bare document, the comments that list placed files include the added ones.
    if (!part.isBare || !contents.linksAreListed) {
        document.linkedFiles.insert(document.linkedFiles.end(), additions.files.begin(),
                                    additions.files.end());
    }
    Assembler(contents, additions, ReadFontList(part.text), limits, document).Assemble();
    return {ReadStatus::kRead, {}};
}

}  // namespace documents
