#include "platform/host/editor/drawing_variables.h"

#include "platform/host/dxf/drawing.h"

namespace host {
namespace {

constexpr int point_code = 10;

dxf::RecordId header_record(const dxf::Drawing& drawing, std::wstring_view name) {
    return drawing.header_variable("$" + std::string(name.begin(), name.end()));
}

/// The group that holds the value: the one after the variable's name.
std::optional<dxf::Group> value_group(const dxf::RecordView& view) {
    const std::vector<dxf::Group> groups = view.own_groups();
    return groups.size() > 1 ? std::optional<dxf::Group>(groups[1]) : std::nullopt;
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
    return view.decode(group.value);
}

void write_value(dxf::Drawing& drawing, dxf::RecordId record, int code, const VariableValue& value) {
    if (const int* whole = std::get_if<int>(&value)) {
        drawing.replace_value(record, code, static_cast<int64_t>(*whole));
    } else if (const double* real = std::get_if<double>(&value)) {
        drawing.replace_value(record, code, *real);
    } else if (const Point* point = std::get_if<Point>(&value)) {
        drawing.replace_value(record, point_code, point->x);
        drawing.replace_value(record, point_code + 10, point->y);
        drawing.replace_value(record, point_code + 20, point->z);
    } else {
        drawing.replace_value(record, code, std::get<std::wstring>(value));
    }
}

}  // namespace

void DrawingVariables::load(const dxf::Drawing& drawing) {
    variables_.reset_drawing_values();
    loaded_.clear();
    for (const std::wstring_view name : variables_.drawing_names()) {
        const dxf::RecordId record = header_record(drawing, name);
        if (record == dxf::no_record) {
            continue;
        }
        const dxf::RecordView view = drawing.view(record);
        if (const std::optional<dxf::Group> group = value_group(view)) {
            const VariableValue value = read_value(view, *group, *variables_.get(name));
            variables_.put(name, value);
            loaded_[std::wstring(name)] = value;
        }
    }
}

void DrawingVariables::store(dxf::Drawing& drawing) {
    for (auto& [name, loaded] : loaded_) {
        const VariableValue value = *variables_.get(name);
        const dxf::RecordId record = header_record(drawing, name);
        if (value == loaded || record == dxf::no_record) {
            continue;
        }
        if (const std::optional<dxf::Group> group = value_group(drawing.view(record))) {
            write_value(drawing, record, group->code, value);
            loaded = value;
        }
    }
}

}  // namespace host
