#include "replay/JournalReader.h"

#include <zlib.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "model/Journal.h"

namespace headless {

namespace {

using nlohmann::json;

constexpr unsigned kPiece = 64 << 10;

// Null if the text isn't JSON, or is nested too deeply.
json Parse(const std::string& text)
{
    bool isTooDeep = false;
    const auto limit = [&isTooDeep](int depth, json::parse_event_t, json&) {
        isTooDeep = isTooDeep || depth > static_cast<int>(JournalReader::kDeepestJson);
        return !isTooDeep;
    };
    json value = json::parse(text, limit, false);
    return isTooDeep || !value.is_object() ? json() : value;
}

bool ReadMembers(const json& value, RecordedLine& line)
{
    const auto side = value.find("side");
    const auto op = value.find("op");
    const auto args = value.find("args");
    const auto result = value.find("result");
    if (side == value.end() || op == value.end() || args == value.end() || result == value.end() ||
        !side->is_string() || !op->is_string()) {
        return false;
    }
    const auto seconds = value.find("t");
    if (seconds != value.end() && seconds->is_number()) line.seconds = seconds->get<double>();
    line.side = *side;
    line.op = *op;
    line.args = *args;
    line.result = *result;
    return true;
}

}  // namespace

void JournalReader::Close::operator()(gzFile_s* file) const
{
    (void)gzclose_r(file);  // nothing was written
}

bool JournalReader::Fail(const std::string& what)
{
    mHasEnded = true;
    mError = mPath + ": line " + std::to_string(mNumber) + ": " + what;
    return false;
}

bool JournalReader::Open(const std::string& path, std::string& error)
{
    mPath = path;
    mFile.reset(gzopen(path.c_str(), "re"));  // "e": no program that is started inherits it
    if (!mFile) {
        error = path + ": " + std::strerror(errno);
        return false;
    }
    if (!ReadLine()) {
        error = mError.empty() ? path + ": is empty, or cut off in its first line" : mError;
        return false;
    }
    mHeader = Take();
    const std::string needed = "a replay needs version " + std::to_string(Journal::kVersion);
    if (mHeader.side != "host" || mHeader.op != "journal" || !mHeader.args.is_object()) {
        error = path + ": is a journal of version 1, " + needed + "; record it again";
        return false;
    }
    const auto version = mHeader.args.find("version");
    if (version != mHeader.args.end() && *version == Journal::kVersion) return true;
    error = path + ": is a journal of version " +
            (version == mHeader.args.end() ? "?" : version->dump()) + ", " + needed;
    return false;
}

// Returns false, with the reason in mError, if the file cannot be read. At its end nothing is
// added.
bool JournalReader::ReadPiece()
{
    const size_t size = mBuffer.size();
    mBuffer.resize(size + kPiece);
    const int count = gzread(mFile.get(), &mBuffer[size], kPiece);
    mBuffer.resize(size + static_cast<size_t>(std::max(count, 0)));
    if (count >= 0) return true;
    int code = 0;
    const int systemError = errno;
    const char* const message = gzerror(mFile.get(), &code);
    if (code == Z_BUF_ERROR) return true;  // the end of the compressed file is missing
    // The messages of zlib itself begin with the path.
    mError = code == Z_ERRNO ? mPath + ": " + std::strerror(systemError) : message;
    return false;
}

// Returns false at the end of the file, within a line or not.
bool JournalReader::ReadText(std::string& text)
{
    size_t looked = mAt;
    for (;;) {
        const size_t end = mBuffer.find('\n', looked);
        if (end != std::string::npos) {
            text = mBuffer.substr(mAt, end - mAt);
            mAt = end + 1;
            return true;
        }
        mBuffer.erase(0, mAt);
        mAt = 0;
        looked = mBuffer.size();
        if (looked > kLongestLine) {
            ++mNumber;
            return Fail("is longer than " + std::to_string(kLongestLine >> 20) + " MiB");
        }
        if (!ReadPiece()) {
            mHasEnded = true;
            return false;
        }
        if (mBuffer.size() > looked) continue;
        mHasEnded = true;
        text = std::move(mBuffer);
        mBuffer.clear();
        return false;
    }
}

bool JournalReader::ReadLine()
{
    if (mHasEnded) return false;
    std::string text;
    const bool isWhole = ReadText(text);
    if (!isWhole && (!mError.empty() || text.empty())) return false;
    RecordedLine line;
    line.number = ++mNumber;
    const json value = Parse(text);
    if (value.is_null() || !ReadMembers(value, line)) {
        if (isWhole) return Fail("is not a line of a journal");
        mCutLine = mNumber;
        return false;
    }
    mLines.push_back(std::move(line));
    return true;
}

const RecordedLine* JournalReader::Peek(size_t ahead)
{
    while (mLines.size() <= ahead) {
        if (!ReadLine()) return nullptr;
    }
    return &mLines[ahead];
}

RecordedLine JournalReader::Take()
{
    RecordedLine line = std::move(mLines.front());
    mLines.pop_front();
    return line;
}

}  // namespace headless
