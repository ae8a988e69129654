#pragma once

#include <cstddef>
#include <map>
#include <string_view>
#include <vector>

#include "documents/bytes/ByteBuffer.h"
#include "documents/pdf/quick/QuickObject.h"
#include "documents/pdf/quick/QuickParser.h"
#include "documents/pdf/quick/QuickXref.h"

namespace documents {

// A PDF without faults and without rare features, read without the PDF library, which takes three
// times as long: it parses all objects of an object stream where few are needed, and each value of
// it is an object with a count of its owners.
//
// Any fault, and anything that is rare in sound files, throws Irregular: encryption, a header that
// isn't at the start, hybrid files, generations other than 0, filters other than Flate. The PDF
// library then reads the file from its start, and says what is wrong with it, so that every file
// has the same answer as from the library alone.
//
// `bytes` must outlive the object. [one thread at a time]
class QuickFile : private QuickTargets {
public:
    using Object = QuickObject;

    // Reads the cross-reference table and the pages. Throws Irregular, LimitExceeded, bad_alloc.
    explicit QuickFile(std::string_view bytes);
    QuickFile(const QuickFile&) = delete;
    QuickFile& operator=(const QuickFile&) = delete;

    const std::vector<QuickObject>& GetPages() const { return mPages; }
    QuickObject GetTrailer() { return {*this, &mXref.trailer}; }

    // The page's resources, or those that it inherits.
    static QuickObject GetResources(QuickObject page);
    static std::vector<QuickObject> GetContents(QuickObject page);

    // Appends the decoded data of a stream. Throws also LimitExceeded.
    void AppendStream(const QuickObject& stream, ByteBuffer& data);

private:
    struct ObjectStream {
        ByteBuffer data;
        std::vector<std::pair<size_t, size_t>> objects;  // number and position
    };

    QuickObject Resolve(const QuickNode* node) override;
    const QuickNode* Load(size_t number);
    const QuickNode* LoadFromStream(size_t number, const QuickEntry& entry);
    ObjectStream& LoadObjectStream(size_t number);
    // Reads an object with its number in front. `number` is 0 if any is right.
    QuickNode ReadObjectAt(size_t position, size_t number);
    QuickNode ReadStream(QuickParser& parser, const QuickNode& dictionary);
    QuickNode ReadXrefStream(size_t position, ByteBuffer& data);
    void CheckXrefStreams() const;
    void AddPages(const QuickObject& node, size_t depth);
    void Inflate(std::string_view packed, const QuickObject& parameters, ByteBuffer& data);

    std::string_view mBytes;
    QuickNodes mNodes;
    QuickXref mXref;
    std::vector<const QuickNode*> mObjects;  // by number; null if it isn't loaded
    size_t mLoading = 0;                     // objects that are being loaded
    std::map<size_t, ObjectStream> mObjectStreams;
    std::vector<std::pair<size_t, size_t>> mXrefStreams;  // number and position
    std::vector<bool> mIsPage;
    std::vector<QuickObject> mPages;
};

}  // namespace documents
