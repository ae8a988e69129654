#include "documents/pdf/quick/QuickXref.h"

#include <array>
#include <set>

namespace documents {

namespace {

constexpr size_t kTailBytes = 1024;
constexpr size_t kEntryBytes = 20;
constexpr size_t kMostObjects = size_t{1} << 23;

long long GetInteger(const QuickNode* node)
{
    if (node == nullptr || node->type != QuickType::kInteger || node->integer < 0) {
        throw Irregular("a number of the cross-reference table");
    }
    return node->integer;
}

uint64_t ParseDigits(std::string_view digits)
{
    uint64_t value = 0;
    for (const char c : digits) {
        if (c < '0' || c > '9') throw Irregular("an entry of the cross-reference table");
        value = value * 10 + static_cast<uint64_t>(c - '0');
    }
    return value;
}

// One reading of the chain, the newest section first: older sections only add entries.
class XrefReading {
public:
    XrefReading(std::string_view bytes, QuickNodes& nodes, const ReadQuickStream& read)
        : mBytes(bytes), mNodes(nodes), mReadStream(read)
    {
    }

    QuickXref Run()
    {
        for (size_t position = FindStart(); position != 0;) {
            if (!mSeen.insert(position).second) throw Irregular("a loop of sections");
            QuickParser parser(mBytes, position, mNodes);
            // The library notes white space in front of a table.
            const bool isTable = mBytes.substr(position, 4) == "xref" && parser.TakeWord("xref");
            const QuickNode trailer = isTable ? ReadTable(parser) : ReadStream(position);
            if (mXref.trailer.items == nullptr) mXref.trailer = trailer;
            const QuickNode* const former = FindDirect(trailer, "/Prev");
            position = former == nullptr ? 0 : static_cast<size_t>(GetInteger(former));
            if (former != nullptr && position == 0) throw Irregular("/Prev");
        }
        return std::move(mXref);
    }

private:
    size_t FindStart()
    {
        const size_t tail = mBytes.size() > kTailBytes ? mBytes.size() - kTailBytes : 0;
        const size_t found = mBytes.rfind("startxref");
        if (found == std::string_view::npos || found < tail) throw Irregular("no startxref");
        QuickParser parser(mBytes, found, mNodes);
        parser.NeedWord("startxref");
        const auto start = static_cast<size_t>(parser.NeedCount());
        if (start == 0 || start >= mBytes.size()) throw Irregular("startxref");
        return start;
    }

    void Add(uint64_t number, const QuickEntry& entry)
    {
        if (number >= kMostObjects || number > mBytes.size()) throw Irregular("too many objects");
        if (number >= mXref.entries.size()) mXref.entries.resize(number + 1);
        QuickEntry& place = mXref.entries[number];
        if (place.place == QuickEntry::Place::kUnknown) place = entry;
    }

    QuickNode ReadTable(QuickParser& parser)
    {
        while (!parser.TakeWord("trailer")) {
            const auto first = static_cast<size_t>(parser.NeedCount());
            const auto count = static_cast<size_t>(parser.NeedCount());
            parser.SkipSpace();
            const std::string_view rest = parser.GetRest();
            if (count > rest.size() / kEntryBytes) throw Irregular("a table that is cut off");
            for (size_t i = 0; i < count; ++i) {
                AddLine(first + i, rest.substr(i * kEntryBytes, kEntryBytes));
            }
            parser.SetPosition(parser.GetPosition() + count * kEntryBytes);
        }
        const QuickNode trailer = parser.ParseValue();
        if (trailer.type != QuickType::kDictionary || FindDirect(trailer, "/XRefStm") != nullptr) {
            throw Irregular("trailer");
        }
        return trailer;
    }

    // "0000000016 00000 n", and two bytes of line end
    void AddLine(size_t number, std::string_view line)
    {
        const bool isInUse = line[17] == 'n';
        const bool isSpaced = line[10] == ' ' && line[16] == ' ' &&
                              (line[18] == ' ' || line[18] == '\r') &&
                              (line[19] == '\n' || line[19] == '\r');
        if (!isSpaced || (!isInUse && line[17] != 'f')) throw Irregular("a line of the table");
        QuickEntry entry;
        entry.offset = ParseDigits(line.substr(0, 10));
        const uint64_t generation = ParseDigits(line.substr(11, 5));
        entry.place = isInUse ? QuickEntry::Place::kInFile : QuickEntry::Place::kFree;
        if (isInUse && (generation != 0 || entry.offset == 0)) throw Irregular("a used entry");
        Add(number, entry);
    }

    QuickNode ReadStream(size_t position)
    {
        ByteBuffer data;
        const QuickNode dictionary = mReadStream(position, data);
        const QuickNode* const type = FindDirect(dictionary, "/Type");
        if (type == nullptr || type->text != "/XRef") throw Irregular("no cross-reference stream");
        const QuickNode* const widths = FindDirect(dictionary, "/W");
        if (widths == nullptr || widths->type != QuickType::kArray || widths->count != 3) {
            throw Irregular("/W");
        }
        std::array<size_t, 3> sizes{};
        for (size_t i = 0; i < 3; ++i) {
            sizes[i] = static_cast<size_t>(GetInteger(widths->items + i));
            if (sizes[i] > 8) throw Irregular("/W");
        }
        std::vector<size_t> sections;
        const QuickNode* const index = FindDirect(dictionary, "/Index");
        if (index == nullptr) {
            sections = {0, static_cast<size_t>(GetInteger(FindDirect(dictionary, "/Size")))};
        } else {
            if (index->type != QuickType::kArray || index->count % 2 != 0) {
                throw Irregular("/Index");
            }
            for (size_t i = 0; i < index->count; ++i) {
                sections.push_back(static_cast<size_t>(GetInteger(index->items + i)));
            }
        }
        AddFields(data.GetView(), sizes, sections);
        return dictionary;
    }

    void AddFields(std::string_view data, const std::array<size_t, 3>& sizes,
                   const std::vector<size_t>& sections)
    {
        size_t at = 0;
        const auto take = [&](size_t size) {
            uint64_t value = 0;
            for (; size > 0; --size) value = value << 8 | static_cast<unsigned char>(data[at++]);
            return value;
        };
        const size_t bytes = sizes[0] + sizes[1] + sizes[2];
        if (bytes == 0) throw Irregular("/W");
        for (size_t section = 0; section < sections.size(); section += 2) {
            if (sections[section + 1] > (data.size() - at) / bytes) throw Irregular("too short");
            for (size_t i = 0; i < sections[section + 1]; ++i) {
                const uint64_t type = sizes[0] == 0 ? 1 : take(sizes[0]);
                QuickEntry entry;
                entry.offset = take(sizes[1]);
                const uint64_t last = take(sizes[2]);
                if (type > 2) throw Irregular("type of an entry");
                entry.place = static_cast<QuickEntry::Place>(type + 1);
                if (type == 1 && (last != 0 || entry.offset == 0)) throw Irregular("a used entry");
                if (last > kMostObjects && type == 2) throw Irregular("index of an object");
                entry.index = static_cast<uint32_t>(last);
                Add(sections[section] + i, entry);
            }
        }
        if (at != data.size()) throw Irregular("too long");
    }

    std::string_view mBytes;
    QuickNodes& mNodes;
    const ReadQuickStream& mReadStream;
    QuickXref mXref;
    std::set<size_t> mSeen;
};

}  // namespace

const QuickNode* FindDirect(const QuickNode& dictionary, std::string_view key)
{
    for (size_t i = dictionary.count; i > 0; --i) {
        if (dictionary.items[2 * i - 2].text == key) return &dictionary.items[2 * i - 1];
    }
    return nullptr;
}

QuickXref ReadQuickXref(std::string_view bytes, QuickNodes& nodes, const ReadQuickStream& read)
{
    return XrefReading(bytes, nodes, read).Run();
}

}  // namespace documents
