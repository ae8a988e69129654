#include "documents/pdf/quick/QuickFile.h"

#include <utility>

#include "documents/bytes/Decompress.h"
#include "documents/bytes/ReadBudget.h"
#include "documents/pdf/filters/ByteSink.h"
#include "documents/pdf/filters/PngPredictor.h"

namespace documents {

namespace {

constexpr size_t kMostLoading = 16;    // a length in an object stream whose length is ...
constexpr size_t kMostTreeDepth = 64;  // of the pages
constexpr long long kMostRowBytes = 1 << 24;

bool HasType(const QuickObject& dictionary, std::string_view type)
{
    const QuickObject value = dictionary.getKey("/Type");
    return value.isName() && value.GetText() == type;
}

long long GetIntegerOr(const QuickObject& dictionary, std::string_view key, long long fallback)
{
    const QuickObject value = dictionary.getKey(key);
    if (value.isNull()) return fallback;
    if (!value.isInteger()) throw Irregular("a parameter that is no number");
    return value.getIntValue();
}

void CheckHeader(std::string_view bytes)
{
    const auto isDigit = [&](size_t at) { return bytes[at] >= '0' && bytes[at] <= '9'; };
    if (bytes.size() < 8 || bytes.substr(0, 5) != "%PDF-" || !isDigit(5) || bytes[6] != '.' ||
        !isDigit(7)) {
        throw Irregular("header");
    }
}

}  // namespace

QuickFile::QuickFile(std::string_view bytes) : mBytes(bytes)
{
    CheckHeader(bytes);
    mXref = ReadQuickXref(bytes, mNodes, [this](size_t position, ByteBuffer& data) {
        return ReadXrefStream(position, data);
    });
    CheckXrefStreams();
    mObjects.resize(mXref.entries.size());
    mIsPage.resize(mXref.entries.size());
    const QuickObject trailer = GetTrailer();
    const QuickObject root = trailer.getKey("/Root");
    if (!trailer.getKey("/Encrypt").isNull() || !trailer.getKey("/Size").isInteger() ||
        !root.isIndirect() || !root.isDictionary()) {
        throw Irregular("trailer");
    }
    const QuickObject pages = root.getKey("/Pages");
    if (!pages.isDictionary() || !pages.getKey("/Parent").isNull()) throw Irregular("/Pages");
    AddPages(pages, 0);
    if (mPages.empty()) throw Irregular("no page");
}

void QuickFile::AddPages(const QuickObject& node, size_t depth)
{
    const QuickObject kids = node.getKey("/Kids");
    const auto number = static_cast<size_t>(node.getObjGen().getObj());
    if (depth > kMostTreeDepth || !HasType(node, "/Pages") || !kids.isArray() || number == 0 ||
        mIsPage[number]) {
        throw Irregular("tree of pages");
    }
    mIsPage[number] = true;
    for (int i = 0; i < kids.getArrayNItems(); ++i) {
        const QuickObject kid = kids.getArrayItem(i);
        if (!kid.isDictionary() || !kid.isIndirect()) throw Irregular("tree of pages");
        if (!kid.getKey("/Kids").isNull()) {
            AddPages(kid, depth + 1);
            continue;
        }
        const auto page = static_cast<size_t>(kid.getObjGen().getObj());
        if (!HasType(kid, "/Page") || mIsPage[page]) throw Irregular("tree of pages");
        mIsPage[page] = true;
        mPages.push_back(kid);
    }
}

QuickObject QuickFile::GetResources(QuickObject page)
{
    QuickObject resources = page.getKey("/Resources");
    for (size_t depth = 0; resources.isNull(); ++depth) {
        page = page.getKey("/Parent");
        if (page.isNull()) break;
        if (!page.isDictionary() || depth > kMostTreeDepth) throw Irregular("/Parent");
        resources = page.getKey("/Resources");
    }
    return resources;
}

std::vector<QuickObject> QuickFile::GetContents(QuickObject page)
{
    std::vector<QuickObject> streams;
    const QuickObject contents = page.getKey("/Contents");
    if (contents.isArray()) {
        for (int i = 0; i < contents.getArrayNItems(); ++i) {
            streams.push_back(contents.getArrayItem(i));
        }
    } else if (!contents.isNull()) {
        streams.push_back(contents);
    }
    for (const QuickObject& stream : streams) {
        if (!stream.isStream()) throw Irregular("/Contents");
    }
    return streams;
}

void QuickFile::AppendStream(const QuickObject& stream, ByteBuffer& data)
{
    const QuickObject dictionary = stream.getDict();
    QuickObject filter = dictionary.getKey("/Filter");
    QuickObject parameters = dictionary.getKey("/DecodeParms");
    if (filter.isNull()) {
        data.AppendTaken(stream.GetText());
        return;
    }
    if (filter.isArray()) {
        if (filter.getArrayNItems() != 1) throw Irregular("several filters");
        filter = filter.getArrayItem(0);
        if (parameters.isArray()) {
            if (parameters.getArrayNItems() != 1) throw Irregular("several parameters");
            parameters = parameters.getArrayItem(0);
        }
    }
    if (!filter.isName() || filter.GetText() != "/FlateDecode") throw Irregular("filter");
    if (!parameters.isNull() && !parameters.isDictionary()) throw Irregular("parameters");
    Inflate(stream.GetText(), parameters, data);
}

void QuickFile::Inflate(std::string_view packed, const QuickObject& parameters, ByteBuffer& data)
{
    const long long predictor = parameters.isNull() ? 1 : GetIntegerOr(parameters, "/Predictor", 1);
    if (predictor == 1) {
        if (!InflateAtOnce(packed, data)) throw Irregular("cannot be inflated");
        return;
    }
    const long long columns = GetIntegerOr(parameters, "/Columns", 1);
    const long long colors = GetIntegerOr(parameters, "/Colors", 1);
    const long long bits = GetIntegerOr(parameters, "/BitsPerComponent", 8);
    if (colors <= 0 || colors > 32 || bits <= 0 || bits > 16) throw Irregular("predictor");
    const long long pixelBits = colors * bits;
    const bool isSound = predictor >= 10 && predictor <= 15 && columns > 0 &&
                         columns < kMostRowBytes && columns * pixelBits < kMostRowBytes;
    ByteBuffer predicted;
    if (!isSound || !InflateAtOnce(packed, predicted)) throw Irregular("predictor");
    ByteSink sink(data);
    PngPredictor decoder(&sink, static_cast<size_t>((columns * pixelBits + 7) / 8),
                         static_cast<size_t>((pixelBits + 7) / 8));
    decoder.write(reinterpret_cast<const unsigned char*>(predicted.GetView().data()),
                  predicted.GetSize());
    decoder.finish();
}

QuickObject QuickFile::Resolve(const QuickNode* node)
{
    if (node->type != QuickType::kReference) return {*this, node};
    const auto number = static_cast<size_t>(node->integer);
    if (number >= mObjects.size()) return {};
    return {*this, Load(number), QPDFObjGen(static_cast<int>(number), 0)};
}

const QuickNode* QuickFile::Load(size_t number)
{
    if (mObjects[number] != nullptr) return mObjects[number];
    const QuickEntry entry = mXref.entries[number];
    if (entry.place == QuickEntry::Place::kUnknown || entry.place == QuickEntry::Place::kFree) {
        return nullptr;
    }
    ReadBudget::Take(0);
    if (++mLoading > kMostLoading) throw Irregular("a loop of objects");
    if (entry.place == QuickEntry::Place::kInStream) {
        mObjects[number] = LoadFromStream(number, entry);
    } else {
        const QuickNode node = ReadObjectAt(entry.offset, number);
        mObjects[number] = mNodes.Add(&node, 1);
    }
    --mLoading;
    return mObjects[number];
}

const QuickNode* QuickFile::LoadFromStream(size_t number, const QuickEntry& entry)
{
    const ObjectStream& stream = LoadObjectStream(entry.offset);
    if (entry.index >= stream.objects.size() || stream.objects[entry.index].first != number) {
        throw Irregular("an object isn't in its object stream");
    }
    QuickParser parser(stream.data.GetView(), stream.objects[entry.index].second, mNodes);
    const QuickNode node = parser.ParseValue();
    if (node.type == QuickType::kReference) throw Irregular("an object that is a reference");
    return mNodes.Add(&node, 1);
}

QuickFile::ObjectStream& QuickFile::LoadObjectStream(size_t number)
{
    const auto [place, isNew] = mObjectStreams.try_emplace(number);
    ObjectStream& stream = place->second;
    if (!isNew) return stream;
    if (number >= mXref.entries.size() ||
        mXref.entries[number].place != QuickEntry::Place::kInFile) {
        throw Irregular("no object stream");
    }
    const QuickObject object(*this, Load(number));
    if (!object.isStream() || !HasType(object.getDict(), "/ObjStm")) {
        throw Irregular("no object stream");
    }
    const long long count = GetIntegerOr(object.getDict(), "/N", -1);
    const long long first = GetIntegerOr(object.getDict(), "/First", -1);
    AppendStream(object, stream.data);
    const auto size = static_cast<long long>(stream.data.GetSize());
    if (count < 0 || count > size || first < 0 || first > size) throw Irregular("object stream");
    QuickParser parser(stream.data.GetView(), 0, mNodes);
    for (long long i = 0; i < count; ++i) {
        const auto member = static_cast<size_t>(parser.NeedCount());
        const long long offset = parser.NeedCount();
        if (offset >= size - first) throw Irregular("object stream");
        stream.objects.emplace_back(member, static_cast<size_t>(first + offset));
    }
    return stream;
}

QuickNode QuickFile::ReadObjectAt(size_t position, size_t number)
{
    if (position >= mBytes.size()) throw Irregular("an object behind the end");
    QuickParser parser(mBytes, position, mNodes);
    const auto found = static_cast<size_t>(parser.NeedCount());
    if (number != 0 && found != number) throw Irregular("another object");
    if (parser.NeedCount() != 0) throw Irregular("generation");
    parser.NeedWord("obj");
    QuickNode node = parser.ParseValue();
    if (node.type == QuickType::kReference) throw Irregular("an object that is a reference");
    if (node.type == QuickType::kDictionary && parser.TakeWord("stream")) {
        node = ReadStream(parser, node);
    }
    parser.NeedWord("endobj");
    return node;
}

QuickNode QuickFile::ReadStream(QuickParser& parser, const QuickNode& dictionary)
{
    const std::string_view rest = parser.GetRest();
    size_t lineEnd = 0;
    if (rest.substr(0, 2) == "\r\n") {
        lineEnd = 2;
    } else if (rest.substr(0, 1) == "\n") {
        lineEnd = 1;
    } else {
        throw Irregular("stream without a line end");
    }
    const QuickObject length = QuickObject(*this, &dictionary).getKey("/Length");
    const size_t most = rest.size() - lineEnd;
    if (!length.isInteger() || length.getIntValue() < 0 ||
        static_cast<size_t>(length.getIntValue()) > most) {
        throw Irregular("length of a stream");
    }
    QuickNode stream;
    stream.type = QuickType::kStream;
    stream.text = rest.substr(lineEnd, static_cast<size_t>(length.getIntValue()));
    stream.items = mNodes.Add(&dictionary, 1);
    parser.SetPosition(parser.GetPosition() + lineEnd + stream.text.size());
    parser.NeedWord("endstream");
    return stream;
}

QuickNode QuickFile::ReadXrefStream(size_t position, ByteBuffer& data)
{
    QuickParser parser(mBytes, position, mNodes);
    mXrefStreams.emplace_back(static_cast<size_t>(parser.NeedCount()), position);
    const QuickNode node = ReadObjectAt(position, 0);
    if (node.type != QuickType::kStream) throw Irregular("no cross-reference stream");
    AppendStream(QuickObject(*this, &node), data);
    return *node.items;
}

// To the library, a cross-reference stream is the object of its number, whatever the table says.
void QuickFile::CheckXrefStreams() const
{
    for (const auto& [number, position] : mXrefStreams) {
        if (number >= mXref.entries.size() ||
            mXref.entries[number].place != QuickEntry::Place::kInFile ||
            mXref.entries[number].offset != position) {
            throw Irregular("a cross-reference stream that isn't in the table");
        }
    }
}

}  // namespace documents
