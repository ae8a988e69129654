#include "model/Journal.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <system_error>

#include "base/JsonText.h"
#include "base/ReadWrite.h"

namespace headless {

using nlohmann::json;

Journal::~Journal() { Close(); }

void Journal::Close()
{
    // Every line was written completely, so a failure of close loses nothing.
    if (mFile >= 0) (void)close(mFile);
    mFile = -1;
}

bool Journal::Open(const std::string& path, std::string& error)
{
    Close();
    mFile = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_APPEND | O_CLOEXEC, 0644);
    if (mFile < 0) {
        error = path + ": " + std::strerror(errno);
        return false;
    }
    mPath = path;
    mError.clear();
    mSequence = 0;
    mBytes = 0;
    mStart = std::chrono::steady_clock::now();
    return true;
}

void Journal::WriteHeader(json args)
{
    args["version"] = kVersion;
    Write("host", "journal", args, nullptr);
}

void Journal::Write(const char* side, const std::string& op, const json& args, const json& result)
{
    if (mObserver) mObserver(op, args, result);
    if (mFollower) mFollower(side, op, args, result);
    if (mFile < 0) return;
    const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - mStart;
    nlohmann::ordered_json line;
    line["seq"] = ++mSequence;
    line["t"] = passed.count();
    line["side"] = side;
    line["op"] = op;
    line["args"] = args;
    line["result"] = result;
    std::string text = base::PrintJson(line) + "\n";
    for (size_t at = mLeftOut.empty() ? std::string::npos : text.find(mLeftOut);
         at != std::string::npos; at = text.find(mLeftOut, at)) {
        text.erase(at, mLeftOut.size());
    }
    Append(text);
}

void Journal::Append(const std::string& text)
{
    std::error_code failure;
    if (mBytes > 0 && mBytes + text.size() > mMostBytes) {
        if (ftruncate(mFile, 0) != 0) failure = {errno, std::generic_category()};
        mBytes = 0;
    }
    mBytes += text.size();
    if (!failure) failure = base::WriteAll(mFile, text);
    if (!failure) return;
    mError = mPath + ": cannot be written: " + failure.message();
    Close();
}

}  // namespace headless
