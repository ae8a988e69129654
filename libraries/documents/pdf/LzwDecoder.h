#pragma once

#include <cstddef>
#include <cstdint>
#include <qpdf/Pipeline.hh>
#include <string>
#include <vector>

namespace documents {

// Decodes LZW as PDF has it: codes of 9 to 12 bits, high bit first, 256 clears, 257 ends. A code
// that can't be throws std::runtime_error; what came before has been put out by then.
class LzwDecoder : public Pipeline {
public:
    // earlyChange: codes grow by a bit one code earlier than they must.
    LzwDecoder(Pipeline* output, bool earlyChange);
    void write(unsigned char const* data, size_t length) override;
    void finish() override;

private:
    struct Entry {
        uint16_t prefix;
        uint16_t length;
        unsigned char last;
        unsigned char first;
    };

    void Clear();
    void Take(unsigned code);
    void Put(unsigned code);
    void Flush();

    bool mEarlyChange;
    bool mEnded = false;
    std::vector<Entry> mEntries;
    int mPrevious = -1;
    unsigned mBits = 0;
    unsigned mBitCount = 0;
    unsigned mCodeBits = 9;
    std::string mOutput;
};

}  // namespace documents
