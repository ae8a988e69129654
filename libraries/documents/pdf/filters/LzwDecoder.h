#pragma once

#include <cstddef>
#include <cstdint>
#include <qpdf/Pipeline.hh>
#include <string>
#include <vector>

namespace documents {

// Decodes the LZW of PDF: codes of 9 to 12 bits, high bit first; 256 clears the table, 257 ends the
// data. Throws std::runtime_error at an invalid code, after writing what comes before it.
//
// The PDF library's own LZW decoder and PNG predictor are private classes. Its public way to
// decode, getStreamData(), returns the whole stream without this project's ReadBudget.
class LzwDecoder : public Pipeline {
public:
    // earlyChange: codes become one bit longer one code earlier than necessary (PDF's default).
    LzwDecoder(Pipeline* output, bool earlyChange);
    void write(unsigned char const* data, size_t length) override;
    void finish() override;

private:
    // A string of the table: that of the entry `prefix` and one more byte.
    struct Entry {
        uint16_t prefix;
        uint16_t length;
        unsigned char last;
        unsigned char first;
    };

    void Clear();
    void Take(unsigned code);
    // Appends the string of an entry to the output.
    void Put(unsigned code);
    void Flush();

    bool mEarlyChange;
    bool mEnded = false;
    std::vector<Entry> mEntries;
    int mPrevious = -1;      // the previous code; -1 after kClear
    unsigned mBits = 0;      // input bits that aren't a whole code yet
    unsigned mBitCount = 0;  // number of bits in mBits
    unsigned mCodeBits = 9;
    std::string mOutput;
};

}  // namespace documents
