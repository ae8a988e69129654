#pragma once

#include <qpdf/Pipeline.hh>

#include "documents/bytes/ByteBuffer.h"

namespace documents {

// The end of a row of the PDF library's filters: appends what arrives to a buffer, whose limit and
// budget apply. Throws LimitExceeded. The buffer must outlive the object.
class ByteSink : public Pipeline {
public:
    explicit ByteSink(ByteBuffer& data) : Pipeline("sink", nullptr), mData(data) {}
    void write(unsigned char const* data, size_t length) override
    {
        mData.AppendTaken({reinterpret_cast<const char*>(data), length});
    }
    void finish() override {}

private:
    ByteBuffer& mData;
};

}  // namespace documents
