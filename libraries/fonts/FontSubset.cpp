#include "fonts/FontSubset.h"

#include <hb-ot.h>
#include <hb-subset.h>
#include <hb.h>

#include <algorithm>
#include <cctype>
#include <climits>
#include <memory>
#include <string_view>

#include "base/Strings.h"
#include "fonts/MappedFile.h"

namespace fonts {
namespace {

template <typename T, void (*kDestroy)(T*)>
struct Destroyer {
    void operator()(T* object) const { kDestroy(object); }
};
template <typename T, void (*kDestroy)(T*)>
using Owned = std::unique_ptr<T, Destroyer<T, kDestroy>>;

using Blob = Owned<hb_blob_t, hb_blob_destroy>;
using SubsetFace = Owned<hb_face_t, hb_face_destroy>;
using Set = Owned<hb_set_t, hb_set_destroy>;
using Input = Owned<hb_subset_input_t, hb_subset_input_destroy>;

constexpr const char* kDamaged = "not a font, or damaged";

std::string_view GetText(hb_blob_t* blob)
{
    unsigned size = 0;
    const char* const bytes = hb_blob_get_data(blob, &size);
    return bytes == nullptr ? std::string_view() : std::string_view(bytes, size);
}

EmbeddingRights GetRights(hb_face_t* face)
{
    constexpr size_t kTypePosition = 8;
    constexpr unsigned kRestricted = 0x0002;
    constexpr unsigned kUsageMask = 0x000e;  // of several bits the least restrictive one is valid
    constexpr unsigned kNoSubsetting = 0x0100;
    constexpr unsigned kBitmapsOnly = 0x0200;
    const Blob table(hb_face_reference_table(face, HB_TAG('O', 'S', '/', '2')));
    const std::string_view bytes = GetText(table.get());
    if (bytes.size() < kTypePosition + 2) return EmbeddingRights::kAllowed;
    const unsigned type = static_cast<unsigned char>(bytes[kTypePosition]) << 8U |
                          static_cast<unsigned char>(bytes[kTypePosition + 1]);
    if ((type & kUsageMask) == kRestricted) return EmbeddingRights::kForbidden;
    if ((type & kNoSubsetting) != 0) return EmbeddingRights::kNoSubset;
    return (type & kBitmapsOnly) != 0 ? EmbeddingRights::kNoOutline : EmbeddingRights::kAllowed;
}

bool HasTable(hb_face_t* face, hb_tag_t tag)
{
    const Blob table(hb_face_reference_table(face, tag));
    return hb_blob_get_length(table.get()) != 0;
}

std::string GetTagText(hb_tag_t tag)
{
    char text[4];
    hb_tag_to_string(tag, text);
    const auto isPlain = [](unsigned char c) {
        return c < 0x80 && std::isprint(c) != 0 && c != '"' && c != '\'' && c != '\\';
    };
    return std::all_of(text, text + 4, isPlain) ? std::string(text, 4) : std::string();
}

// Where the axes are in a named instance; at their defaults for instance 0.
std::vector<float> GetPlaces(hb_face_t* face, const std::vector<hb_ot_var_axis_info_t>& axes,
                             unsigned instance)
{
    std::vector<float> places;
    places.reserve(axes.size());
    for (const hb_ot_var_axis_info_t& axis : axes) places.push_back(axis.default_value);
    if (instance == 0) return places;
    auto count = static_cast<unsigned>(places.size());
    (void)hb_ot_var_named_instance_get_design_coords(face, instance - 1, &count, places.data());
    return places;
}

std::vector<hb_ot_var_axis_info_t> GetAxes(hb_face_t* face)
{
    auto count = hb_ot_var_get_axis_count(face);
    std::vector<hb_ot_var_axis_info_t> axes(count);
    (void)hb_ot_var_get_axis_infos(face, 0, &count, axes.data());
    axes.resize(std::min<size_t>(count, axes.size()));
    return axes;
}

// Adds those of the characters that the face has.
void AddCharacters(hb_face_t* face, const std::u32string& characters, hb_set_t* wanted,
                   FontSubset& result)
{
    const Set available(hb_set_create());
    hb_face_collect_unicodes(face, available.get());
    const Set unavailable(hb_set_create());
    for (const char32_t character : characters) {
        const bool has = hb_set_has(available.get(), character) != 0;
        hb_set_add(has ? wanted : unavailable.get(), character);
    }
    result.missing = hb_set_get_population(unavailable.get());
    hb_codepoint_t first = HB_SET_VALUE_INVALID;
    hb_codepoint_t last = HB_SET_VALUE_INVALID;
    while (hb_set_next_range(available.get(), &first, &last) != 0) {
        result.available.push_back({first, last});
    }
}

// Returns "" if HarfBuzz fails.
std::string Execute(hb_face_t* face, hb_subset_input_t* input)
{
    const SubsetFace subset(hb_subset_or_fail(face, input));
    if (!subset) return {};
    const Blob blob(hb_face_reference_blob(subset.get()));
    return std::string(GetText(blob.get()));
}

// Fixes all axes in `input`. Returns false if HarfBuzz can't.
bool FixAxes(hb_face_t* face, hb_subset_input_t* input,
             const std::vector<hb_ot_var_axis_info_t>& axes, const std::vector<float>& places)
{
    // HarfBuzz 6 keeps the outlines of this table at their default.
    if (HasTable(face, HB_TAG('C', 'F', 'F', '2'))) return false;
    for (size_t axis = 0; axis < axes.size(); ++axis) {
        if (!hb_subset_input_pin_axis_location(input, face, axes[axis].tag, places[axis])) {
            return false;
        }
    }
    return true;
}

Input MakeInput(const hb_set_t* characters)
{
    Input input(hb_subset_input_create_or_fail());
    if (!input) throw std::bad_alloc();
    hb_subset_input_set_flags(input.get(), HB_SUBSET_FLAGS_NO_HINTING);
    hb_set_union(hb_subset_input_unicode_set(input.get()), characters);
    return input;
}

void MakeSubset(hb_face_t* face, unsigned instance, const hb_set_t* characters, FontSubset& result)
{
    const auto axes = GetAxes(face);
    const auto places = GetPlaces(face, axes, instance);
    const Input plain = MakeInput(characters);
    if (FixAxes(face, plain.get(), axes, places)) result.bytes = Execute(face, plain.get());
    if (!result.bytes.empty() || axes.empty()) return;
    const Input variable = MakeInput(characters);
    result.bytes = Execute(face, variable.get());
    for (size_t axis = 0; axis < axes.size(); ++axis) {
        const std::string tag = GetTagText(axes[axis].tag);
        if (!tag.empty()) result.axes.push_back({tag, places[axis]});
    }
}

// Of a file that has no face that HarfBuzz can read.
const char* GetFormatProblem(std::string_view bytes)
{
    const bool isType1 = base::StartsWith(bytes, "%!") || base::StartsWith(bytes, "\x80\x01");
    return isType1 ? "a Type 1 font, which browsers cannot draw" : kDamaged;
}

}  // namespace

std::string Describe(EmbeddingRights rights)
{
    switch (rights) {
        case EmbeddingRights::kAllowed:
            return {};
        case EmbeddingRights::kNoSubset:
            return "its licence bits forbid embedding a part of it";
        case EmbeddingRights::kNoOutline:
            return "its licence bits forbid embedding its outlines";
        case EmbeddingRights::kForbidden:
            break;
    }
    return "its licence bits forbid embedding";
}

FontSubset MakeFontSubset(const std::string& path, int index, const std::u32string& characters)
{
    FontSubset result;
    const MappedFile file(path);
    if (file.GetError() != nullptr || file.GetSize() > UINT_MAX) {
        result.problem = file.GetError() != nullptr ? file.GetError() : "too large";
        return result;
    }
    const std::string_view bytes(reinterpret_cast<const char*>(file.GetBytes()), file.GetSize());
    const Blob blob(hb_blob_create(bytes.data(), static_cast<unsigned>(bytes.size()),
                                   HB_MEMORY_MODE_READONLY, nullptr, nullptr));
    const auto number = static_cast<unsigned>(index) & 0xffffU;
    const auto instance = static_cast<unsigned>(index) >> 16U & 0x7fffU;
    const SubsetFace face(hb_face_create(blob.get(), number));
    if (hb_face_get_glyph_count(face.get()) == 0) {
        const unsigned count = hb_face_count(blob.get());
        result.problem = count > 1 && number >= count ? "has no face " + std::to_string(number)
                                                      : GetFormatProblem(bytes);
        return result;
    }
    result.rights = GetRights(face.get());
    result.problem = Describe(result.rights);
    if (!result.problem.empty()) return result;
    const Set wanted(hb_set_create());
    AddCharacters(face.get(), characters, wanted.get(), result);
    if (hb_set_is_empty(wanted.get())) {
        result.problem = "has none of the characters";
        return result;
    }
    MakeSubset(face.get(), instance, wanted.get(), result);
    if (result.bytes.empty()) result.problem = kDamaged;
    return result;
}

}  // namespace fonts
