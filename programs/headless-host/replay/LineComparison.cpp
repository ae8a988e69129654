#include "replay/LineComparison.h"

#include <algorithm>
#include <cctype>
#include <charconv>

#include "base/JsonText.h"
#include "checks/HandleType.h"

namespace headless {

namespace {

using nlohmann::json;

// Whether the text is the name of a handle, such as "text range#12". Sets `type`.
bool IsHandle(const std::string& text, std::string& type)
{
    const size_t mark = text.rfind('#');
    if (mark == std::string::npos || mark + 1 == text.size()) return false;
    if (!std::all_of(text.begin() + static_cast<std::ptrdiff_t>(mark) + 1, text.end(),
                     [](unsigned char c) { return std::isdigit(c) != 0; })) {
        return false;
    }
    type = text.substr(0, mark);
    for (int each = 0; each <= static_cast<int>(HandleType::kFont); ++each) {
        if (type == GetTypeName(static_cast<HandleType>(each))) return true;
    }
    return false;
}

// The host numbers its handles from 1, whatever their types; a file can have any number.
constexpr size_t kMostNumbers = size_t{1} << 28;

// Of the name of a handle; kMostNumbers if it is greater than that.
size_t GetNumber(const std::string& name)
{
    size_t number = kMostNumbers;
    const char* const end = name.data() + name.size();
    const auto read = std::from_chars(name.data() + name.rfind('#') + 1, end, number);
    return read.ec == std::errc() ? std::min(number, kMostNumbers) : kMostNumbers;
}

// The text without the numbers of handles, which violations have in their sentences.
std::string DropNumbers(const std::string& text)
{
    std::string plain;
    bool isNumber = false;
    for (const char c : text) {
        isNumber = c == '#' || (isNumber && std::isdigit(static_cast<unsigned char>(c)) != 0);
        if (!isNumber || c == '#') plain += c;
    }
    return plain;
}

}  // namespace

bool LineComparison::IsSame(const std::string& name) const
{
    const size_t number = GetNumber(name);
    return number < mSame.size() && mSame[number];
}

bool LineComparison::Pair(const std::string& recorded, const std::string& arisen)
{
    const size_t number = GetNumber(recorded);
    if (recorded == arisen && number < kMostNumbers) {
        if (mPresent.count(recorded) != 0 || mRecorded.count(arisen) != 0) return false;
        if (number >= mSame.size()) mSame.resize(number + 1);
        mSame[number] = true;
        return true;
    }
    if (IsSame(recorded) || IsSame(arisen)) return false;
    const auto present = mPresent.emplace(recorded, arisen);
    const auto before = mRecorded.emplace(arisen, recorded);
    return present.first->second == arisen && before.first->second == recorded;
}

bool LineComparison::AreEqual(const std::string& recorded, std::string arisen)
{
    for (size_t at = mRoot.empty() ? std::string::npos : arisen.find(mRoot);
         at != std::string::npos; at = arisen.find(mRoot, at)) {
        arisen.erase(at, mRoot.size());
    }
    std::string recordedType;
    std::string arisenType;
    if (IsHandle(recorded, recordedType) && IsHandle(arisen, arisenType)) {
        return recordedType == arisenType && Pair(recorded, arisen);
    }
    return recorded == arisen;
}

std::string LineComparison::CompareValues(const json& recorded, const json& arisen,
                                          const std::string& place)
{
    if (recorded.is_string() && arisen.is_string()) {
        return AreEqual(recorded.get<std::string>(), arisen.get<std::string>()) ? "" : place;
    }
    if (recorded.is_object() && arisen.is_object()) {
        for (const auto& [key, value] : recorded.items()) {
            const auto other = arisen.find(key);
            std::string found = other == arisen.end()
                                    ? place + "/" + key
                                    : CompareValues(value, *other, place + "/" + key);
            if (!found.empty()) return found;
        }
        for (const auto& [key, value] : arisen.items()) {
            if (!recorded.contains(key)) return place + "/" + key;
        }
        return {};
    }
    if (recorded.is_array() && arisen.is_array() && recorded.size() == arisen.size()) {
        for (size_t i = 0; i < recorded.size(); ++i) {
            std::string found =
                CompareValues(recorded[i], arisen[i], place + "/" + std::to_string(i));
            if (!found.empty()) return found;
        }
        return {};
    }
    return recorded == arisen ? "" : place;
}

std::string LineComparison::FindDifference(const RecordedLine& recorded, const RecordedLine& arisen)
{
    if (recorded.side != arisen.side) return "side";
    if (recorded.op != arisen.op) return "op";
    // As the file has it, where bytes that aren't UTF-8 are replaced.
    const json args = json::parse(base::PrintJson(arisen.args));
    const json result = json::parse(base::PrintJson(arisen.result));
    std::string place = CompareValues(recorded.args, args, "args");
    if (!place.empty()) return place;
    if (recorded.op == "plug-in error" && recorded.result.is_string() && result.is_string()) {
        return DropNumbers(recorded.result) == DropNumbers(result) ? "" : "result";
    }
    return CompareValues(recorded.result, result, "result");
}

std::string LineComparison::GetPresentName(const std::string& recorded) const
{
    const auto found = mPresent.find(recorded);
    return found == mPresent.end() ? recorded : found->second;
}

std::string DescribeLine(const RecordedLine& line)
{
    return line.side + " | " + line.op + " | " + base::PrintJson(line.args) + " | " +
           base::PrintJson(line.result);
}

}  // namespace headless
