// TOLERANCE, and ACAD_TABLE where its block is missing: texts in frames.
#include "platform/host/view/dim_style.h"
#include "platform/host/view/text_codes.h"
#include "platform/host/view/text_item.h"

namespace host {

namespace {

/// A rectangle of a plane, from its upper left corner.
void draw_frame(const EntityScope& scope, const Transform3& plane, Vec2 corner, double width, double height) {
    const auto at = [&](double x, double y) { return plane({x, y, 0}).plan(); };
    const Vec2 low{corner.x, corner.y - height};
    const Vec2 high{corner.x + width, corner.y};
    scope.out.strip({at(low.x, low.y), at(high.x, low.y), at(high.x, high.y), at(low.x, high.y), at(low.x, low.y)});
}

/// The signs that the letters of the font for tolerances stand for, from a to u.
constexpr wchar_t tolerance_signs[] =
    L"\u2220\u27C2\u23E5\u2313\u25CB\u2225\u232D\u2197\u232F\u2316\u2312\u24C1\u24C2\u2300\u25A1\u24C5q\u25CE\u24C8"
    L"\u2330\u23E4";

/// A cell's text: "{\Fgdt;j}" is a sign.
std::wstring with_signs(std::wstring cell) {
    constexpr std::wstring_view opening = L"{\\Fgdt;";
    for (size_t at = cell.find(opening); at != std::wstring::npos; at = cell.find(opening, at)) {
        const size_t end = cell.find(L'}', at);
        std::wstring letters = cell.substr(at + opening.size(), end - std::min(end, at + opening.size()));
        for (wchar_t& letter : letters) {
            letter = letter >= L'a' && letter <= L'u' ? tolerance_signs[letter - L'a'] : letter;
        }
        cell.replace(at, end == std::wstring::npos ? end : end + 1 - at, letters);
        at += letters.size();
    }
    return cell;
}

std::vector<std::wstring> parts_of(const std::wstring& text, std::wstring_view separator) {
    std::vector<std::wstring> parts;
    size_t begin = 0;
    for (size_t end = text.find(separator); end != std::wstring::npos; end = text.find(separator, begin)) {
        parts.push_back(text.substr(begin, end - begin));
        begin = end + separator.size();
    }
    parts.push_back(text.substr(begin));
    return parts;
}

/// Cells of a TABLE in the order of its rows.
struct TableCell {
    std::wstring text;
    double height = 0;
    int64_t alignment = 0;
    size_t columns = 1;  ///< that it takes with those that were merged into it
    size_t rows = 1;
    bool covered = false;
};

std::vector<TableCell> read_cells(const EntityScope& scope) {
    const auto span = [](const dxf::Group& group) {
        return static_cast<size_t>(std::max<int64_t>(group.integer(), 1));
    };
    std::vector<TableCell> cells;
    bool in_value = false;  // in which 140 is a number that is shown
    for (const dxf::Group& group : scope.fields.groups()) {
        if (group.code == 171) {
            cells.emplace_back();
        } else if (cells.empty()) {
            continue;
        } else if (group.code == 1 || (group.code == 302 && cells.back().text.empty())) {
            cells.back().text = scope.fields.decode(group.value);
        } else if (group.code == 301 || group.code == 304) {
            in_value = group.code == 301;
        } else if (group.code == 140 && !in_value) {
            cells.back().height = group.real();
        } else if (group.code == 170) {
            cells.back().alignment = group.integer();
        } else if (group.code == 175) {
            cells.back().columns = span(group);
        } else if (group.code == 176) {
            cells.back().rows = span(group);
        }
    }
    return cells;
}

/// A table's rows and columns: where each begins, and where the last one ends.
std::vector<double> places(const std::vector<double>& sizes) {
    std::vector<double> places{0};
    for (const double size : sizes) {
        places.push_back(places.back() + size);
    }
    return places;
}

/// Heights of texts by the table's style, which has them for data, the title and the heading.
double usual_height(const std::vector<double>& of_style, size_t row) {
    constexpr double without_style = 0.18;
    const size_t kind = row == 0 ? 1 : row == 1 ? 2 : 0;
    return kind < of_style.size() ? of_style[kind] : without_style;
}

}  // namespace

/// Lines of cells; the insertion point is in the middle of the first line's left side.
void draw_tolerance(const EntityScope& scope) {
    const DimStyle style(scope);
    const double height = style.text_height();
    const Vec3 along = scope.fields.point(11, {1, 0, 0});
    const Transform3 world =
        Transform3::translation(scope.fields.point(10)) * Transform3::rotation(std::atan2(along.y, along.x));
    const Transform3 plane = scope.space * world;
    const Ink own = scope.out.ink();
    double top = height;
    for (const std::wstring& line : parts_of(scope.fields.text(1), L"\n")) {
        double left = 0;
        for (const std::wstring& cell : parts_of(line, L"%%v")) {
            const std::wstring value = plain_text(with_signs(cell));
            if (value.empty()) {
                continue;
            }
            const double width = std::max(estimated_width(value) + 1, 2.0) * height;
            scope.out.set_ink(style.ink(176).value_or(own));
            draw_frame(scope, plane, {left, top}, width, 2 * height);
            scope.out.set_ink(style.ink(178).value_or(own));
            MadeText text;
            text.value = value;
            text.style = style.text_style();
            text.position = world({left + width / 2, top - height, 0});
            text.direction = along;
            text.height = height;
            text.attachment = 5;
            draw_made_text(scope, text);
            left += width;
        }
        top -= 2 * height;
    }
}

void draw_table(const EntityScope& scope) {
    std::vector<TableCell> cells = read_cells(scope);
    const std::vector<double> rows = places(scope.fields.reals(141));
    const std::vector<double> columns = places(scope.fields.reals(142));
    const size_t column_count = columns.size() - 1;
    if (column_count == 0 || rows.size() < 2) {
        return;
    }
    const dxf::RecordId table_style = scope.settings.by_handle(scope.fields.handle(342));
    const std::vector<double> heights = scope.may_read(table_style)
                                            ? dxf::RecordFields(scope.drawing.view(table_style)).reals(140)
                                            : std::vector<double>();
    const Vec3 along = scope.fields.point(11, {1, 0, 0});
    const Transform3 world =
        Transform3::translation(scope.fields.point(10)) * Transform3::rotation(std::atan2(along.y, along.x));
    for (size_t i = 0; i < cells.size() && i / column_count + 1 < rows.size(); ++i) {
        const TableCell& cell = cells[i];
        const size_t row = i / column_count;
        const size_t column = i % column_count;
        const size_t last_row = std::min(row + cell.rows, rows.size() - 1);
        const size_t last_column = std::min(column + cell.columns, column_count);
        if (cell.covered || !scope.out.budget().work((last_row - row) * (last_column - column))) {
            continue;
        }
        for (size_t down = row; down < last_row; ++down) {
            for (size_t across = column; across < last_column && down * column_count + across < cells.size();
                 ++across) {
                cells[down * column_count + across].covered = true;
            }
        }
        const double width = columns[last_column] - columns[column];
        const double depth = rows[last_row] - rows[row];
        draw_frame(scope, scope.space * world, {columns[column], -rows[row]}, width, depth);
        MadeText text;
        text.value = cell.text;
        text.height = cell.height > 0 ? cell.height : usual_height(heights, row);
        text.position = world({columns[column] + width / 2, -rows[row] - depth / 2, 0});
        text.direction = along;
        text.width = width;
        text.attachment = 5;
        if (!text.value.empty()) {
            draw_made_text(scope, text);
        }
    }
}

}  // namespace host
