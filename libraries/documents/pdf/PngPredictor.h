#pragma once

#include <cstddef>
#include <qpdf/Pipeline.hh>
#include <string>

namespace documents {

// Undoes the PNG prediction of a Flate or LZW stream (predictors 10 to 15). Each row is a byte that
// tells its filter and `rowBytes` bytes of data; a last row that is cut off is filled with zeros.
class PngPredictor : public Pipeline {
public:
    PngPredictor(Pipeline* output, size_t rowBytes, size_t pixelBytes);
    void write(unsigned char const* data, size_t length) override;
    void finish() override;

private:
    void PutRow();

    size_t mPixelBytes;
    std::string mRow;  // the filter byte and the row
    std::string mPrevious;
    size_t mFilled = 0;
};

}  // namespace documents
