#include "platform/host/view/dim_style.h"

#include "base/case_folding.h"
#include "platform/host/dxf/record_writer.h"

namespace host {

namespace {

constexpr size_t steps_of_an_entry = 20;
constexpr size_t steps_of_a_text = 1000;

/// The values behind "DSTYLE" in an entity's extended data of "ACAD", by the codes that a style has them under.
std::map<int, dxf::Group> read_overrides(const dxf::RecordView& record) {
    std::map<int, dxf::Group> overrides;
    dxf::GroupCursor cursor = record.groups();
    dxf::Group group;
    bool own_type = true;
    bool inside = false;
    std::optional<int> code;
    while (cursor.next(group) && (own_type || group.code != 0)) {
        own_type = false;
        if (group.code == 1000) {
            inside = group.word() == "DSTYLE";
            code.reset();
        } else if (group.code == 1001 || (group.code == 1002 && group.word() == "}")) {
            inside = false;
        } else if (inside && code) {
            overrides.emplace(*std::exchange(code, std::nullopt), group);
        } else if (inside && group.code == 1070) {
            code = static_cast<int>(group.integer());
        }
    }
    return overrides;
}

}  // namespace

DimStyle::DimStyle(const EntityScope& scope) : scope_(scope), overrides_(read_overrides(scope.record)) {
    const dxf::Table* const table = scope.drawing.table("DIMSTYLE");
    if (table == nullptr || !scope.out.budget().work(steps_of_an_entry * table->entries.size())) {
        return;
    }
    const dxf::RecordId id = scope.drawing.table_entry("DIMSTYLE", scope.fields.text(3, L"Standard"));
    if (scope.may_read(id)) {
        style_.emplace(scope.drawing.view(id));
    }
}

const dxf::Group* DimStyle::find(int code) const {
    const auto found = overrides_.find(code);
    return found != overrides_.end() ? &found->second : style_ ? style_->group(code) : nullptr;
}

double DimStyle::real(int code, const char* variable, double absent) const {
    const dxf::Group* const said = find(code);
    return said != nullptr ? said->real() : style_ ? absent : scope_.settings.header_real(variable, 40, absent);
}

double DimStyle::scaled(int code, const char* variable, double absent) const {
    const double scale = real(40, "$DIMSCALE", 1);
    return real(code, variable, absent) * (scale > 0 ? scale : 1);
}

int DimStyle::decimals() const {
    const dxf::Group* const said = find(271);
    return said != nullptr ? static_cast<int>(std::clamp<int64_t>(said->integer(), 0, 8)) : 4;
}

bool DimStyle::drops_trailing_zeros() const {
    const dxf::Group* const said = find(78);
    return said != nullptr && (said->integer() & 8) != 0;
}

std::wstring DimStyle::text_style() const {
    const dxf::Group* const said = find(340);
    const dxf::RecordId id = said != nullptr ? scope_.settings.by_handle(said->handle()) : dxf::no_record;
    return scope_.text_of(id, 2);
}

std::optional<Ink> DimStyle::ink(int code) const {
    const dxf::Group* const said = find(code);
    const auto index = said != nullptr ? static_cast<int>(said->integer()) : 0;
    return index > 0 && index < 256 ? std::optional(indexed_ink(index)) : std::nullopt;
}

std::wstring DimStyle::arrow(int code) const {
    constexpr int both_ends = 342;
    const dxf::Group* said = find(code);
    if (said == nullptr && code > both_ends) {
        said = find(both_ends);
    }
    return said == nullptr ? std::wstring() : scope_.settings.block_name(said->handle());
}

void draw_arrow_head(const EntityScope& scope, const std::wstring& block, const Vec3& tip, const Vec3& from,
                     double size) {
    const Vec3 shaft = tip - from;
    const double length = shaft.length();
    if (!(size > 0) || !(length > 0) || !std::isfinite(length) || base::compare_ignoring_case(block, L"_None") == 0) {
        return;
    }
    const Transform3 where = Transform3::translation(tip) * Transform3::rotation(std::atan2(shaft.y, shaft.x)) *
                             Transform3::scaling({size, size, size});
    if (!block.empty() && scope.blocks.place(block, where)) {
        return;
    }
    const Transform3 map = scope.space * where;
    scope.out.fill({map(Vec3{}).plan(), map({-1, 1.0 / 6, 0}).plan(), map({-1, -1.0 / 6, 0}).plan()});
}

void draw_made_text(const EntityScope& scope, const MadeText& text) {
    if (!scope.out.budget().work(steps_of_a_text)) {
        return;
    }
    const dxf::Manner manner{dxf::Encoding::ascii, "\n", scope.record.codec()};
    dxf::RecordWriter writer(manner);
    const auto point = [&writer](int code, const Vec3& at) { writer.point(code, at.x, at.y, at.z); };
    writer.type(L"MTEXT").text(1, text.value).text(7, text.style).real(40, text.height).real(41, text.width);
    point(10, text.position);
    point(11, text.direction);
    point(210, text.normal);
    if (text.framed || text.ground) {
        const bool mask = text.ground == Ink::background();
        writer.integer(90, (text.framed ? 16 : 0) + (mask ? 2 : text.ground ? 1 : 0));
        writer.real(45, 1 + text.margin / text.height);
        if (text.ground && text.ground->value <= 0xFFFFFF) {
            writer.integer(421, text.ground->value);
        }
    }
    const std::string bytes = writer.integer(71, text.attachment).take();
    const dxf::RecordView record(bytes, manner.encoding, manner.codec);
    const dxf::RecordFields fields(record);
    draw_paragraphs({scope.drawing, record, fields, scope.space, scope.styles, scope.settings, scope.layers,
                     scope.line_types, scope.blocks, scope.out, scope.in_block});
}

}  // namespace host
