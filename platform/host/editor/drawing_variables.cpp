#include "platform/host/editor/drawing_variables.h"

#include <algorithm>
#include <cstring>

#include "base/case_folding.h"
#include "platform/host/dxf/drawing.h"
#include "platform/host/dxf/record_fields.h"

namespace host {
namespace {

constexpr int point_code = 10;
constexpr int colour_code = 62;
constexpr int by_block = 0;
constexpr int by_layer = 256;

/// Where a variable's place in a header differs from what its type says.
struct Place {
    std::wstring_view name;
    int code = 0;  ///< 0: the usual one of the type
    std::string_view first_version = "AC";
    std::string_view last_version = "AC9999";
};

constexpr Place places[] = {
    {L"ANGBASE", 50},
    {L"CECOLOR", colour_code},
    {L"CELTSCALE", 0, "AC1012"},
    {L"CELTYPE", 6},
    {L"CLAYER", 8},
    {L"INSUNITS", 0, "AC1015"},
    {L"TEXTSTYLE", 7},
    {L"SNAPMODE", 0, "AC", "AC1014"},  // later versions keep it in each viewport
};

Place place_of(std::wstring_view name) {
    const Place* const found =
        std::find_if(std::begin(places), std::end(places), [name](const Place& place) { return place.name == name; });
    return found == std::end(places) ? Place{name} : *found;
}

std::string header_name(std::wstring_view name) {
    return "$" + std::string(name.begin(), name.end());
}

/// The group that holds the value: the one after the variable's name.
std::optional<dxf::Group> value_group(const dxf::RecordView& view) {
    const dxf::RecordFields fields(view);
    return fields.groups().size() > 1 ? std::optional(fields.groups()[1]) : std::nullopt;
}

std::wstring colour_text(int64_t number) {
    return number == by_layer ? L"BYLAYER" : number == by_block ? L"BYBLOCK" : std::to_wstring(number);
}

VariableValue read_value(const dxf::RecordView& view, const dxf::Group& group, const VariableValue& kind) {
    if (std::holds_alternative<int>(kind)) {
        return static_cast<int>(group.integer());
    }
    if (std::holds_alternative<double>(kind)) {
        return group.real();
    }
    if (std::holds_alternative<Point>(kind)) {
        return Point{view.real(point_code), view.real(point_code + 10), view.real(point_code + 20)};
    }
    return group.code == colour_code ? colour_text(group.integer()) : view.decode(group.value);
}

dxf::Value encoded(int code, const VariableValue& value) {
    if (const int* whole = std::get_if<int>(&value)) {
        return static_cast<int64_t>(*whole);
    }
    if (const double* real = std::get_if<double>(&value)) {
        return *real;
    }
    const auto& text = std::get<std::wstring>(value);
    return code == colour_code ? dxf::Value(static_cast<int64_t>(current_colour_number(text))) : dxf::Value(text);
}

/// Some programs leave NaN in a header, which is not equal to itself.
bool same(double left, double right) {
    return std::memcmp(&left, &right, sizeof left) == 0;
}

bool same(const VariableValue& left, const VariableValue& right) {
    if (const double* real = std::get_if<double>(&left)) {
        return left.index() == right.index() && same(*real, std::get<double>(right));
    }
    if (const Point* point = std::get_if<Point>(&left); point != nullptr && left.index() == right.index()) {
        const Point& other = std::get<Point>(right);
        return same(point->x, other.x) && same(point->y, other.y) && same(point->z, other.z);
    }
    return left == right;
}

/// Writes the parts of the value that differ from `known`, the value that stands there.
void write_value(dxf::Drawing& drawing, dxf::RecordId record, int code, const VariableValue& value,
                 const VariableValue& known) {
    const Point* point = std::get_if<Point>(&value);
    if (point == nullptr) {
        drawing.replace_value(record, code, encoded(code, value));
        return;
    }
    const Point& before = std::get<Point>(known);
    const auto write = [&](int axis_code, double now, double then) {
        if (!same(now, then)) {
            drawing.replace_value(record, axis_code, now);
        }
    };
    write(point_code, point->x, before.x);
    write(point_code + 10, point->y, before.y);
    write(point_code + 20, point->z, before.z);
}

void add_variable(dxf::Drawing& drawing, const Place& place, const VariableValue& value) {
    dxf::RecordWriter writer(drawing.manner());
    writer.text(9, L"$" + std::wstring(place.name));
    if (const Point* point = std::get_if<Point>(&value)) {
        writer.real(point_code, point->x).real(point_code + 10, point->y);
        if (!place.name.starts_with(L"LIM")) {  // limits lie in the plane
            writer.real(point_code + 20, point->z);
        }
        drawing.append_header_variable(writer.take());
        return;
    }
    const dxf::Value coded = encoded(place.code, value);
    if (const int64_t* whole = std::get_if<int64_t>(&coded)) {
        writer.integer(place.code == 0 ? 70 : place.code, *whole);
    } else if (const double* real = std::get_if<double>(&coded)) {
        writer.real(place.code == 0 ? 40 : place.code, *real);
    } else {
        writer.text(place.code, std::get<std::wstring>(coded));
    }
    drawing.append_header_variable(writer.take());
}

/// The value in the header; nothing when the header lacks the variable.
std::optional<VariableValue> header_value(const dxf::Drawing& drawing, std::wstring_view name,
                                          const VariableValue& kind) {
    const dxf::RecordId record = drawing.header_variable(header_name(name));
    if (record == dxf::no_record) {
        return std::nullopt;
    }
    const dxf::RecordView view = drawing.view(record);
    const std::optional<dxf::Group> group = value_group(view);
    return group ? std::optional<VariableValue>(read_value(view, *group, kind)) : std::nullopt;
}

}  // namespace

void DrawingVariables::load(const dxf::Drawing& drawing) {
    variables_.reset_drawing_values();
    loaded_.clear();
    for (const std::wstring_view name : variables_.drawing_names()) {
        loaded_.emplace(name, *variables_.get(name));
    }
    follow(drawing);
}

void DrawingVariables::follow(const dxf::Drawing& drawing) {
    for (auto& [name, loaded] : loaded_) {
        VariableValue value = header_value(drawing, name, loaded).value_or(variables_.initial(name));
        if (!same(value, loaded)) {
            variables_.put(name, value);
            loaded = std::move(value);
        }
    }
}

void DrawingVariables::store(dxf::Drawing& drawing) {
    for (const auto& known : loaded_) {
        store(drawing, known.first);
    }
}

void DrawingVariables::store_current_names(dxf::Drawing& drawing) {
    store(drawing, L"CECOLOR");
    store(drawing, L"CLAYER");
    store(drawing, L"TEXTSTYLE");
}

void DrawingVariables::store(dxf::Drawing& drawing, std::wstring_view name) {
    const auto known = loaded_.find(name);
    if (known == loaded_.end()) {
        return;
    }
    const VariableValue value = *variables_.get(name);
    if (same(value, known->second)) {
        return;
    }
    const Place place = place_of(name);
    const dxf::RecordId record = drawing.header_variable(header_name(name));
    if (record == dxf::no_record) {
        if (drawing.version() < place.first_version || drawing.version() > place.last_version) {
            return;
        }
        add_variable(drawing, place, value);
    } else if (const std::optional<dxf::Group> group = value_group(drawing.view(record))) {
        write_value(drawing, record, group->code, value, known->second);
    }
    known->second = value;
}

std::optional<std::wstring> current_colour_from_text(std::wstring_view text) {
    for (const wchar_t* const word : {L"BYLAYER", L"BYBLOCK"}) {
        if (base::compare_ignoring_case(text, word) == 0) {
            return word;
        }
    }
    const std::optional<int> number = parse_integer(text);
    return number && *number > by_block && *number < by_layer ? std::optional(std::to_wstring(*number)) : std::nullopt;
}

std::optional<std::wstring> added_colour_from_text(std::wstring_view text) {
    return text.empty() || text == L"." ? std::wstring() : current_colour_from_text(text);
}

int current_colour_number(const std::wstring& text) {
    return text == L"BYLAYER" ? by_layer : text == L"BYBLOCK" ? by_block : parse_integer(text).value_or(by_layer);
}

}  // namespace host
