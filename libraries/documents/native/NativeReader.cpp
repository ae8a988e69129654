#include "documents/native/NativeReader.h"

#include <unordered_map>
#include <utility>

#include "documents/model/DocumentBuilder.h"
#include "documents/native/NativeAdditions.h"
#include "documents/native/NativeContainer.h"
#include "documents/native/NativeScan.h"
#include "documents/native/NativeTextTree.h"
#include "documents/pdf/ContentWalker.h"
#include "documents/pdf/PdfFile.h"

namespace documents {

namespace {

ReadResult Fail(const std::string& reason)
{
    return {ReadStatus::kFailed, "the native document can't be read: " + reason};
}

// Puts the text of a native document together.
class Assembler {
public:
    Assembler(const NativeContents& contents, const NativeAdditions& additions,
              const Limits& limits, Document& document)
        : mContents(contents),
          mAdditions(additions),
          mLimits(limits),
          mDocument(document),
          mBuilder(document),
          mTree(contents.tree.GetView())
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
        for (const TextRun& text : mAdditions.texts) mBuilder.AddFrameWithStory({text});
        Note(mLostFrames, "text frames lead to no story");
        Note(mTree.GetUnknownFonts(), "stretches of text name no font");
        Note(mLostPdfs, "texts of an older version can't be read");
    }

private:
    void Note(size_t count, const char* what)
    {
        if (count > 0) mDocument.notes.push_back(std::to_string(count) + " " + what);
    }

    // The stories that a frame shows, in the order of the tree.
    void AddStories()
    {
        const std::vector<NativeTextTree::Story>& stories = mTree.GetStories();
        std::vector<bool> isShown(stories.size());
        for (const NativeText& text : mContents.texts) {
            const bool leads = text.type == NativeText::Type::kFrame && text.story < stories.size();
            if (leads) isShown[text.story] = true;
        }
        for (size_t i = 0; i < stories.size(); ++i) {
            if (isShown[i]) mStories.emplace(i, mBuilder.AddStory(stories[i].runs));
        }
    }

    void AddFrame(const NativeText& text)
    {
        const auto story = mStories.find(text.story);
        if (story == mStories.end()) {
            ++mLostFrames;
            return;
        }
        // Nobody asks for the index.
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
    const Limits& mLimits;
    Document& mDocument;
    DocumentBuilder mBuilder;
    NativeTextTree mTree;
    std::unordered_map<size_t, size_t> mStories;  // from the tree's index to the document's
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
    if (part.isBare && contents.texts.empty()) return {};
    if (!contents.error.empty()) return Fail(contents.error);
    if (!contents.isNative) return Fail("it is none");
    if (!contents.hasTree && HasFrames(contents)) return Fail("its text is missing");
    const NativeAdditions additions = source.pdf != nullptr
                                          ? ReadAdditions(FindNativePage(source.pdf->GetPages()))
                                          : ReadAdditions(source.postScript);
    document.linkedFiles = contents.linkedFiles;
    // The comments of a bare document tell of the added files as well.
    if (!part.isBare || !contents.linksAreListed) {
        document.linkedFiles.insert(document.linkedFiles.end(), additions.files.begin(),
                                    additions.files.end());
    }
    Assembler(contents, additions, limits, document).Assemble();
    return {ReadStatus::kRead, {}};
}

}  // namespace documents
