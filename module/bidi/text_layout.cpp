#include "bidi/text_layout.h"

#include <algorithm>

namespace corvanes {
namespace {

/// The lines of a painted text, in the order in which they are painted from the top.
std::vector<TextRange> split_lines(std::wstring_view text, bool left_to_right) {
    std::vector<TextRange> lines;
    for (size_t start = 0;;) {
        const size_t end = std::min(text.find(L'\n', start), text.size());
        lines.push_back({start, end});
        if (end == text.size()) {
            break;
        }
        start = end + 1;
    }
    if (!left_to_right) {
        std::reverse(lines.begin(), lines.end());
    }
    return lines;
}

int width_between(const TextPositions& positions, size_t start, size_t end) {
    return static_cast<int>(positions[end] - positions[start]);
}

int line_left(const LayoutRect& rect, int line_width, unsigned alignment, bool left_to_right) {
    if ((alignment & align_center) != 0) {
        const int margin = (rect.width() - line_width) / 2;
        return left_to_right ? rect.left + margin : rect.right - margin - line_width;
    }
    return (alignment & align_right) != 0 ? rect.right - line_width : rect.left;
}

int block_top(const LayoutRect& rect, int block_height, unsigned alignment) {
    if ((alignment & align_middle) != 0) {
        return rect.top + std::max(0, (rect.height() - block_height) / 2);
    }
    return (alignment & align_bottom) != 0 ? rect.bottom - block_height - 1 : rect.top + 1;
}

/// The painted line at a row of the view, without what is scrolled out; `line` is its number in the model.
struct ViewLine {
    int line;
    TextRange shown;
    std::wstring_view text;
};

ViewLine view_line(const TextModel& model, const TextView& view, int line) {
    const TextRange whole = model.visual_line(line);
    const TextRange shown{std::min(whole.start + static_cast<size_t>(view.first_visible_column), whole.end), whole.end};
    return {line, shown, std::wstring_view(model.visual()).substr(shown.start, shown.length())};
}

int view_block_top(const TextModel& model, const TextView& view) {
    const int rows = std::max(1, std::min(visible_line_count(view), model.line_count() - view.first_visible_line));
    return block_top(view.client, rows * view.line_height, view.alignment);
}

}  // namespace

std::optional<TextLayout> lay_out_text(std::wstring_view text, const TextPositions& positions, const LayoutRect& rect,
                                       int line_height, unsigned alignment, bool left_to_right) {
    TextLayout layout;
    if (text.empty()) {
        return layout;
    }
    if (positions.back() == 0) {
        return std::nullopt;
    }
    const std::vector<TextRange> lines = split_lines(text, left_to_right);
    const int top = block_top(rect, static_cast<int>(lines.size()) * line_height, alignment);
    for (const TextRange& line : lines) {
        const int row = layout.line_count++;
        layout.longest_line = std::max(layout.longest_line, static_cast<int>(line.length()));
        if ((row + 1) * line_height > rect.height()) {
            continue;
        }
        const int left = line_left(rect, width_between(positions, line.start, line.end), alignment, left_to_right);
        for (size_t i = 0; i < line.length(); ++i) {
            const size_t index = left_to_right ? line.start + i : line.end - 1 - i;
            const int offset = left_to_right ? width_between(positions, line.start, index)
                                             : width_between(positions, index + 1, line.end);
            if (left + offset >= rect.left && left + offset < rect.right) {
                layout.characters.push_back({index, left + offset, top + row * line_height});
            }
        }
    }
    return layout;
}

TextHit CharFromPoint(const TextModel& model, const TextView& view, const MeasureText& measure, LayoutPoint point) {
    const int x = std::max(point.x, 0);
    const int y = std::max(point.y, 0);
    if (model.line_count() == 0) {
        return {};
    }
    const int row = std::min(y / view.line_height + view.first_visible_line, model.line_count() - 1);
    const ViewLine line = view_line(model, view, model.line_of_row(row));
    const TextPositions positions = measure(line.text);
    const int width = static_cast<int>(positions.back());
    const int left = line_left(view.client, width, view.alignment, !model.right_to_left());
    const auto before_point = [&](size_t column) {
        return model.right_to_left() ? x < left + width - static_cast<int>(positions[column])
                                     : left + static_cast<int>(positions[column + 1]) <= x;
    };
    size_t column = 0;
    while (column < line.text.size() && before_point(column)) {
        ++column;
    }
    return {line.line,
            static_cast<int>(column) + static_cast<int>(line.shown.start - model.visual_line(line.line).start)};
}

int PosFromChar(const TextModel& model, const TextView& view, const MeasureText& measure, int line, int column) {
    const ViewLine shown = view_line(model, view, line);
    const size_t count = static_cast<size_t>(std::max(0, column - view.first_visible_column));
    return static_cast<int>(measure(shown.text)[std::min(count, shown.text.size())]);
}

LayoutPoint caret_point(const TextModel& model, const TextView& view, const MeasureText& measure, size_t gap) {
    const int line = model.visual_line_at(gap);
    const int column = static_cast<int>(gap - model.visual_line(line).start);
    const int width = static_cast<int>(measure(view_line(model, view, line).text).back());
    const int left = line_left(view.client, width, view.alignment, !model.right_to_left());
    const int offset = PosFromChar(model, view, measure, line, column);
    const int row = std::max(0, model.line_of_row(line)) - view.first_visible_line;
    return {model.right_to_left() ? left + width - offset : left + offset,
            view_block_top(model, view) + row * view.line_height};
}

ScrollPlace scroll_to_caret(const TextModel& model, const TextView& view, const MeasureText& measure, size_t gap) {
    const int line = model.visual_line_at(gap);
    const TextRange range = model.visual_line(line);
    const size_t column = gap - range.start;
    const TextPositions positions = measure(std::wstring_view(model.visual()).substr(range.start, range.length()));
    const auto width = static_cast<std::uint32_t>(std::max(0, view.client.width()));
    size_t first = std::min(static_cast<size_t>(view.first_visible_column), column);
    if (positions.back() <= width) {
        first = 0;
    }
    while (first < column && positions[column] - positions[first] > width) {
        ++first;
    }
    const int row = std::max(0, model.line_of_row(line));
    const int lowest_first = std::max(0, row - visible_line_count(view) + 1);
    return {static_cast<int>(first), std::clamp(view.first_visible_line, lowest_first, row)};
}

VisibleText visible_text(const TextModel& model, const TextView& view, TextRange selection) {
    VisibleText visible;
    if (view.first_visible_line >= model.line_count()) {
        return visible;
    }
    const auto is_selected = [&](size_t painted) {
        const size_t typed = model.map()[painted];
        return typed >= selection.start && typed < selection.end;
    };
    const int last_row = std::min(view.first_visible_line + visible_line_count(view), model.line_count()) - 1;
    const auto [first, last] = std::minmax({model.line_of_row(view.first_visible_line), model.line_of_row(last_row)});
    for (int line = first; line <= last; ++line) {
        if (line > first) {
            visible.text.push_back(L'\n');
            visible.selected.push_back(is_selected(model.visual_line(line).start - 1));
        }
        const ViewLine shown = view_line(model, view, line);
        visible.text += shown.text;
        for (size_t i = shown.shown.start; i < shown.shown.end; ++i) {
            visible.selected.push_back(is_selected(i));
        }
    }
    return visible;
}

TextView rows_of_view(const TextView& view, int first, int count) {
    TextView rows = view;
    rows.first_visible_line += first;
    rows.client.top += first * view.line_height;
    rows.client.bottom = std::min(view.client.bottom, rows.client.top + count * view.line_height);
    return rows;
}

RowRange rows_between(const TextView& view, int top, int bottom) {
    const int text_top = block_top(view.client, 0, 0);
    const int rows = visible_line_count(view);
    const int first = std::clamp((top - text_top) / view.line_height, 0, rows);
    const int end = std::clamp((bottom - text_top + view.line_height - 1) / view.line_height, first, rows);
    return {first, end - first};
}

int visible_line_count(const TextView& view) {
    return std::max(1, view.client.height() / view.line_height);
}

}  // namespace corvanes
