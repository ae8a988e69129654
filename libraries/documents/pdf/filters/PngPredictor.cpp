#include "documents/pdf/filters/PngPredictor.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace documents {

namespace {

// The filters of a row; any other value means no prediction.
enum RowFilter : unsigned char { kSub = 1, kUp = 2, kAverage = 3, kPaeth = 4 };

// The Paeth predictor: the neighbour nearest to left + above - aboveLeft; ties in this order.
int GetPaeth(int left, int above, int aboveLeft)
{
    const int estimate = left + above - aboveLeft;
    const int toLeft = std::abs(estimate - left);
    const int toAbove = std::abs(estimate - above);
    const int toAboveLeft = std::abs(estimate - aboveLeft);
    if (toLeft <= toAbove && toLeft <= toAboveLeft) return left;
    return toAbove <= toAboveLeft ? above : aboveLeft;
}

}  // namespace

PngPredictor::PngPredictor(Pipeline* output, size_t rowBytes, size_t pixelBytes)
    : Pipeline("PNG predictor", output),
      mPixelBytes(pixelBytes),
      mRow(rowBytes + 1, '\0'),
      mPrevious(rowBytes + 1, '\0')
{
}

void PngPredictor::write(unsigned char const* data, size_t length)
{
    while (length > 0) {
        const size_t count = std::min(length, mRow.size() - mFilled);
        std::memcpy(&mRow[mFilled], data, count);
        mFilled += count;
        data += count;
        length -= count;
        if (mFilled == mRow.size()) PutRow();
    }
}

void PngPredictor::finish()
{
    if (mFilled > 1) {
        std::fill(mRow.begin() + static_cast<std::ptrdiff_t>(mFilled), mRow.end(), '\0');
        PutRow();
    }
    getNext()->finish();
}

void PngPredictor::PutRow()
{
    auto* row = reinterpret_cast<unsigned char*>(mRow.data());
    const auto* previous = reinterpret_cast<const unsigned char*>(mPrevious.data());
    const unsigned char filter = row[0];
    for (size_t index = 1; index < mRow.size(); ++index) {
        const bool first = index <= mPixelBytes;
        const int left = first ? 0 : row[index - mPixelBytes];
        const int above = previous[index];
        const int aboveLeft = first ? 0 : previous[index - mPixelBytes];
        int prediction = 0;
        switch (filter) {
            case kSub:
                prediction = left;
                break;
            case kUp:
                prediction = above;
                break;
            case kAverage:
                prediction = (left + above) / 2;
                break;
            case kPaeth:
                prediction = GetPaeth(left, above, aboveLeft);
                break;
            default:
                break;
        }
        row[index] = static_cast<unsigned char>(row[index] + prediction);
    }
    getNext()->write(row + 1, mRow.size() - 1);
    mRow.swap(mPrevious);
    mFilled = 0;
}

}  // namespace documents
