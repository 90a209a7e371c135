#include "platform/host/view/style_tables.h"

#include <algorithm>
#include <cmath>

#include "base/case_folding.h"
#include "platform/host/dxf/entities.h"
#include "platform/host/dxf/record_fields.h"

namespace host {

namespace {

/// Calls visit(entry) with the view of each entry of a table that is not erased. A drawing may lack the table.
template <class Visit>
void visit_entries(const dxf::Drawing& drawing, const char* name, Visit visit) {
    const dxf::Table* const table = drawing.table(name);
    if (table == nullptr) {
        return;
    }
    for (const dxf::RecordId id : table->entries) {
        if (!drawing.record(id).is(dxf::Record::erased)) {
            visit(drawing.view(id));
        }
    }
}

LayerState read_state(const dxf::Layer& layer, const dxf::RecordFields& entry) {
    const dxf::Group* const true_colour = entry.group(420);
    LayerState state;
    state.ink = true_colour != nullptr ? Ink::rgb(static_cast<uint32_t>(true_colour->integer()))
                                       : indexed_ink(layer.colour_index());
    state.on = layer.on();
    state.frozen = layer.frozen();
    state.locked = layer.locked();
    state.line_type = layer.line_type;
    state.weight = LineWeight::in_pixels(entry.integer(370, -1));
    return state;
}

/// Dashes, gaps and dots. Texts and shapes of complex linetypes are left out.
LinePattern read_pattern(const dxf::RecordView& entry, double scale) {
    constexpr int dash_length = 49;
    LinePattern pattern;
    pattern.lengths = dxf::RecordFields(entry).reals(dash_length);
    return pattern.scaled(scale);
}

double drawing_scale(const dxf::Drawing& drawing) {
    const dxf::RecordId id = drawing.header_variable("$LTSCALE");
    const double scale = id == dxf::no_record ? 1 : drawing.view(id).real(40, 1);
    return scale > 0 ? scale : 1;
}

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

LayerStates::LayerStates(const dxf::Drawing& drawing)
    : states_(drawing.layer_names().size()), zero_(drawing.layer_names().find(L"0")) {
    visit_entries(drawing, "LAYER", [&](const dxf::RecordView& record) {
        const dxf::RecordFields entry(record);
        const auto layer = dxf::read<dxf::Layer>(entry);
        const LayerState state = read_state(layer, entry);
        if (layer.name == L"0") {
            zero_state_ = state;
        }
        const dxf::NameId used = drawing.layer_names().find(layer.name);
        if (used != dxf::no_name) {
            states_[used] = state;
        }
    });
}

LineTypes::LineTypes(const dxf::Drawing& drawing, std::vector<LinePattern> known) : patterns_(std::move(known)) {
    const double scale = drawing_scale(drawing);
    visit_entries(drawing, "LTYPE", [&](const dxf::RecordView& entry) {
        LinePattern pattern = read_pattern(entry, scale);
        if (pattern.total() > 0 && std::isfinite(pattern.total())) {
            types_[base::lower(entry.text(2))] = std::move(pattern);
        }
    });
}

uint16_t LineTypes::pattern(const std::wstring& name, double scale) {
    if (types_.empty()) {
        return LinePattern::continuous;
    }
    const auto type = types_.find(base::lower(name));
    if (type == types_.end() || !(scale > 0) || patterns_.size() > LinePattern::last) {
        return LinePattern::continuous;
    }
    const auto [number, added] = numbers_.try_emplace({type->first, scale}, static_cast<uint16_t>(patterns_.size()));
    if (added) {
        patterns_.push_back(type->second.scaled(scale));
    }
    return number->second;
}

TextStyles::TextStyles(const dxf::Drawing& drawing, std::vector<FontFace> known) : fonts_(std::move(known)) {
    standard_.font = font_number({TextStyles::usual_family});
    visit_entries(drawing, "STYLE", [&](const dxf::RecordView& entry) {
        const auto said = dxf::read<dxf::TextStyle>(dxf::RecordFields(entry));
        styles_.emplace(base::lower(said.name),
                        TextStyle{said.width_factor, said.oblique, font_number(read_face(entry, said.font_file))});
    });
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
