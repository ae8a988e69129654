#include "documents/pdf/filters/StreamFilters.h"

#include <memory>
#include <mutex>
#include <optional>
#include <qpdf/Pl_Buffer.hh>
#include <qpdf/Pl_Flate.hh>
#include <qpdf/Pl_RunLength.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFStreamFilter.hh>
#include <string>

#include "documents/bytes/ReadBudget.h"
#include "documents/pdf/filters/LzwDecoder.h"
#include "documents/pdf/filters/PngPredictor.h"

namespace documents {

namespace {

constexpr long long kMaximumRowBytes = 1 << 24;
// What one stream may give that the PDF library decodes for itself (a cross-reference or object
// stream). The library has such data in memory twice, and objects take far more than their text.
constexpr size_t kMaximumLibraryBytes = size_t{64} << 20;

// Takes the number of bytes that pass through it from the ReadBudget.
class BudgetPipeline : public Pipeline {
public:
    // The PDF library decodes into a Pl_Buffer, and nothing else does.
    BudgetPipeline(Pipeline* output, const Pipeline* receiver)
        : Pipeline("budget", output), mIsForLibrary(dynamic_cast<const Pl_Buffer*>(receiver))
    {
    }
    void write(unsigned char const* data, size_t length) override
    {
        ReadBudget::Take(length);
        mBytes += length;
        if (mIsForLibrary && mBytes > kMaximumLibraryBytes) {
            ReadBudget::Refuse("too large: an object stream inflates to more than " +
                               std::to_string(kMaximumLibraryBytes >> 20) + " MiB");
        }
        getNext()->write(data, length);
    }
    void finish() override { getNext()->finish(); }

private:
    bool mIsForLibrary;
    size_t mBytes = 0;
};

// The parameters that Flate and LZW share.
struct DecodeParameters {
    size_t rowBytes = 0;  // 0: no prediction
    size_t pixelBytes = 0;
    bool earlyChange = true;
};

long long GetNumber(QPDFObjectHandle parameters, const char* key, long long fallback)
{
    QPDFObjectHandle value = parameters.getKey(key);
    return value.isInteger() ? value.getIntValue() : fallback;
}

// Returns nothing if the parameters are invalid or unsupported (the TIFF predictor).
std::optional<DecodeParameters> GetParameters(QPDFObjectHandle parameters)
{
    DecodeParameters result;
    if (parameters.isNull()) return result;
    if (!parameters.isDictionary()) return std::nullopt;
    result.earlyChange = GetNumber(parameters, "/EarlyChange", 1) != 0;
    const long long predictor = GetNumber(parameters, "/Predictor", 1);
    if (predictor == 1) return result;
    const long long columns = GetNumber(parameters, "/Columns", 1);
    const long long colors = GetNumber(parameters, "/Colors", 1);
    const long long bits = GetNumber(parameters, "/BitsPerComponent", 8);
    const bool sound = predictor >= 10 && predictor <= 15 && columns > 0 &&
                       columns <= kMaximumRowBytes && colors > 0 && colors <= 32 && bits > 0 &&
                       bits <= 16;
    if (!sound || columns * colors * bits > kMaximumRowBytes * 8) return std::nullopt;
    result.rowBytes = static_cast<size_t>((columns * colors * bits + 7) / 8);
    result.pixelBytes = static_cast<size_t>((colors * bits + 7) / 8);
    return result;
}

// A filter with a predictor: decoder -> budget -> predictor -> next.
class PredictedFilter : public QPDFStreamFilter {
public:
    bool setDecodeParms(QPDFObjectHandle parameters) override
    {
        const std::optional<DecodeParameters> sound = GetParameters(parameters);
        if (sound) mParameters = *sound;
        return sound.has_value();
    }

    Pipeline* getDecodePipeline(Pipeline* next) override
    {
        const Pipeline* const receiver = next;
        if (mParameters.rowBytes > 0) {
            mPredictor =
                std::make_unique<PngPredictor>(next, mParameters.rowBytes, mParameters.pixelBytes);
            next = mPredictor.get();
        }
        mBudget = std::make_unique<BudgetPipeline>(next, receiver);
        mDecoder = MakeDecoder(mBudget.get(), mParameters);
        return mDecoder.get();
    }

private:
    virtual std::unique_ptr<Pipeline> MakeDecoder(Pipeline* next,
                                                  const DecodeParameters& parameters) = 0;

    DecodeParameters mParameters;
    std::unique_ptr<Pipeline> mPredictor;
    std::unique_ptr<Pipeline> mBudget;
    std::unique_ptr<Pipeline> mDecoder;
};

class FlateFilter : public PredictedFilter {
    std::unique_ptr<Pipeline> MakeDecoder(Pipeline* next, const DecodeParameters&) override
    {
        auto decoder = std::make_unique<Pl_Flate>("Flate", next, Pl_Flate::a_inflate);
        // Ignore the warning about a stream that ends early: what could be decoded is used.
        decoder->setWarnCallback([](char const*, int) {});
        return decoder;
    }
};

class LzwFilter : public PredictedFilter {
    std::unique_ptr<Pipeline> MakeDecoder(Pipeline* next,
                                          const DecodeParameters& parameters) override
    {
        return std::make_unique<LzwDecoder>(next, parameters.earlyChange);
    }
};

class RunLengthFilter : public QPDFStreamFilter {
public:
    Pipeline* getDecodePipeline(Pipeline* next) override
    {
        mBudget = std::make_unique<BudgetPipeline>(next, next);
        mDecoder =
            std::make_unique<Pl_RunLength>("run length", mBudget.get(), Pl_RunLength::a_decode);
        return mDecoder.get();
    }

private:
    std::unique_ptr<Pipeline> mBudget;
    std::unique_ptr<Pipeline> mDecoder;
};

template <class Filter>
std::shared_ptr<QPDFStreamFilter> MakeFilter()
{
    return std::make_shared<Filter>();
}

}  // namespace

void InstallStreamFilters()
{
    static std::once_flag once;
    std::call_once(once, [] {
        QPDF::registerStreamFilter("/FlateDecode", MakeFilter<FlateFilter>);
        QPDF::registerStreamFilter("/LZWDecode", MakeFilter<LzwFilter>);
        QPDF::registerStreamFilter("/RunLengthDecode", MakeFilter<RunLengthFilter>);
    });
}

}  // namespace documents
