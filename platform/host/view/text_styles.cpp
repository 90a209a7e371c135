#include "platform/host/view/text_styles.h"

#include "base/case_folding.h"
#include "platform/host/dxf/entities.h"
#include "platform/host/view/geometry.h"

namespace host {

namespace {

constexpr wchar_t standard_name[] = L"standard";
constexpr int extended_string = 1000;
constexpr int extended_integer = 1071;

struct KnownFile {
    const wchar_t* stem;
    const wchar_t* family;
};
constexpr KnownFile known_files[] = {
    {L"times", L"Times New Roman"}, {L"cour", L"Courier New"}, {L"david", L"David"},     {L"miriam", L"Miriam"},
    {L"verdana", L"Verdana"},       {L"tahoma", L"Tahoma"},    {L"calibri", L"Calibri"}, {L"georgia", L"Georgia"},
    {L"comic", L"Comic Sans MS"},   {L"simsun", L"SimSun"},    {L"gulim", L"Gulim"},     {L"malgun", L"Malgun Gothic"}};

FontFace face_of_file(const std::wstring& file) {
    const std::wstring name = base::lower(file.substr(file.find_last_of(L"/\\") + 1));
    for (const KnownFile& known : known_files) {
        if (name.rfind(known.stem, 0) == 0 && name.find(L".shx") == std::wstring::npos) {
            return {known.family};
        }
    }
    return {TextStyles::usual_family};
}

/// A TrueType style names its family in its extended data, with bold and italic as flags.
FontFace read_face(const dxf::RecordView& entry, const std::wstring& font_file) {
    const auto family = entry.extended_group(extended_string);
    if (!family || family->word().empty()) {
        return face_of_file(font_file);
    }
    const auto look = entry.extended_group(extended_integer);
    const int64_t flags = look ? look->integer() : 0;
    constexpr int64_t italic = 0x1000000;
    constexpr int64_t bold = 0x2000000;
    return {entry.decode(family->word()), (flags & bold) != 0, (flags & italic) != 0};
}

}  // namespace

TextStyles::TextStyles(const dxf::Drawing& drawing, std::vector<FontFace> known) : fonts_(std::move(known)) {
    standard_.font = font_number({TextStyles::usual_family});
    const dxf::Table* const table = drawing.table("STYLE");
    if (table == nullptr) {
        return;
    }
    for (const dxf::RecordId id : table->entries) {
        const dxf::RecordView entry = drawing.view(id);
        if (drawing.record(id).is(dxf::Record::erased)) {
            continue;
        }
        const auto said = dxf::read<dxf::TextStyle>(dxf::RecordFields(entry));
        styles_.emplace(base::lower(said.name),
                        TextStyle{said.width_factor, said.oblique, font_number(read_face(entry, said.font_file))});
    }
    standard_ = named(standard_name);
    lacking_ = false;
}

const TextStyle& TextStyles::named(const std::wstring& name) const {
    const auto found = styles_.find(name.empty() ? standard_name : base::lower(name));
    lacking_ |= found == styles_.end();
    return found == styles_.end() ? standard_ : found->second;
}

uint16_t TextStyles::font_number(const FontFace& face) {
    const auto found = std::find(fonts_.begin(), fonts_.end(), face);
    if (found == fonts_.end()) {
        fonts_.push_back(face);
        return static_cast<uint16_t>(fonts_.size() - 1);
    }
    return static_cast<uint16_t>(found - fonts_.begin());
}

}  // namespace host
