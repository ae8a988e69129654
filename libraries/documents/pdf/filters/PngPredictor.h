#pragma once

#include <cstddef>
#include <qpdf/Pipeline.hh>
#include <string>

namespace documents {

// Reverses the PNG prediction of a Flate or LZW stream (predictors 10 to 15). Each row consists of
// a byte for the filter and `rowBytes` bytes of data. Fills a last row that is cut off with zeros.
// LzwDecoder.h says why the PDF library's own predictor isn't used.
class PngPredictor : public Pipeline {
public:
    PngPredictor(Pipeline* output, size_t rowBytes, size_t pixelBytes);
    void write(unsigned char const* data, size_t length) override;
    void finish() override;

private:
    void PutRow();

    size_t mPixelBytes;
    std::string mRow;       // the filter byte and the row
    std::string mPrevious;  // the row above, decoded
    size_t mFilled = 0;     // bytes of mRow received so far
};

}  // namespace documents
