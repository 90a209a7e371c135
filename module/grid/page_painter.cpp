#include "grid/page_painter.h"

#include <algorithm>
#include <numeric>

#include "grid/cell_grid.h"
#include "grid/fitted_text.h"
#include "grid/page_layout.h"
#include "grid/widest_texts.h"

namespace corvanes {

namespace {

constexpr int heading_row = -1;

// Sizes in points.
constexpr int font_size = 9;
constexpr int margin = 42;

constexpr COLORREF ink = RGB(0, 0, 0);
constexpr COLORREF paper_color = RGB(255, 255, 255);
constexpr COLORREF heading_color = RGB(225, 225, 225);
constexpr COLORREF rule_color = RGB(128, 128, 128);

}  // namespace

PagePainter::PagePainter(CellGrid& grid, PrintTitles titles, HDC dc, const Paper& paper)
    : grid_(grid), titles_(std::move(titles)), paper_(paper) {
    dc_.Attach(dc);
    saved_ = dc_.SaveDC();
    LOGFONTW description{};
    description.lfHeight = -points(font_size);
    description.lfCharSet = DEFAULT_CHARSET;
    constexpr std::wstring_view face = L"Arial";
    face.copy(description.lfFaceName, face.size());
    font_.Attach(::CreateFontIndirectW(&description));
    dc_.SelectObject(&font_);
    line_height_ = static_cast<int>(text_size(dc_, L"X").cy);
    body_ = {points(margin), points(margin), paper_.width - points(margin), paper_.height - points(margin)};
    PlanColumns();
    PlanPages();
}

PagePainter::~PagePainter() {
    dc_.RestoreDC(saved_);
    dc_.Detach();  // the caller owns the context
}

void PagePainter::PlanColumns() {
    const ColumnLayout& columns = grid_.state().columns;
    std::vector<int> natural;
    for (int column = 0; column < columns.count(); ++column) {
        if (!columns.shows(column)) {
            continue;
        }
        columns_.push_back(column);
        WidestTexts widest([this](wchar_t character) { return text_width(dc_, {&character, 1}); });
        for (int row = heading_row; row < grid_.GetRowCount(); ++row) {
            const wchar_t* const text = grid_.GetCellText(column, row);
            widest.add(row, text != nullptr ? text : L"");
        }
        int width = 0;
        for (const int row : widest.rows()) {
            const wchar_t* const text = grid_.GetCellText(column, row);
            width = std::max(width, static_cast<int>(text_size(dc_, text != nullptr ? text : L"").cx));
        }
        natural.push_back(width + edges());
    }
    widths_ = fitted_widths(natural, static_cast<int>(body_.right - body_.left));
}

std::wstring PagePainter::Wrapped(int column, int row, std::size_t place) {
    const wchar_t* const text = grid_.GetCellText(column, row);
    const int room = std::max(1, widths_[place] - edges());
    if (text == nullptr || text_size(dc_, text).cx <= room) {
        return text != nullptr ? text : L"";
    }
    return wrapped_text(text, room, [this](std::wstring_view part) { return text_width(dc_, part); });
}

void PagePainter::PlanPages() {
    const auto height_of = [this](int row) {
        LONG height = line_height_;
        for (std::size_t place = 0; place < columns_.size(); ++place) {
            height = std::max(height, text_size(dc_, Wrapped(columns_[place], row, place)).cy);
        }
        return static_cast<int>(height) + 2 * points(1);
    };
    const int heading_height = height_of(heading_row);
    for (int row = 0; row < grid_.GetRowCount(); ++row) {
        heights_.push_back(height_of(row));
    }
    // The titles above and the page's number below take a line each, and a line of distance each.
    const int lines = 4 * line_height_;
    pages_ = rows_of_pages(heights_, static_cast<int>(body_.bottom - body_.top) - lines - heading_height);
    heights_.insert(heights_.begin(), heading_height);
}

void PagePainter::Paint(int page) {
    const RECT whole{0, 0, paper_.width, paper_.height};
    dc_.FillSolidRect(&whole, paper_color);
    PaintLine(titles_.left, body_.top, DT_LEFT);
    PaintLine(titles_.right, body_.top, DT_RIGHT);
    int top = PaintRow(heading_row, body_.top + 2 * line_height_);
    const RowSpan& rows = pages_[static_cast<std::size_t>(page)];
    for (int row = rows.first; row <= rows.last; ++row) {
        top = PaintRow(row, top);
    }
    PaintLine(L"Page " + std::to_wstring(page + 1) + L" of " + std::to_wstring(page_count()),
              body_.bottom - line_height_, DT_CENTER);
}

// Paints a row from `top` on and returns its lower edge.
int PagePainter::PaintRow(int row, int top) {
    const bool heading = row == heading_row;
    const int bottom = top + heights_[row + 1];
    LONG left = body_.left;
    for (std::size_t place = 0; place < columns_.size(); ++place) {
        const int column = columns_[place];
        const CellLook look{ink, heading ? heading_color : paper_color,
                            !heading && grid_.state().columns.aligned_right(column)};
        PaintCell({left, top, left + widths_[place], bottom}, Wrapped(column, row, place), look);
        left += widths_[place];
    }
    return bottom;
}

void PagePainter::PaintCell(const RECT& cell, const std::wstring& text, const CellLook& look) {
    dc_.FillSolidRect(&cell, rule_color);
    // The rules to the left and above are those of the neighbours.
    RECT inside = cell;
    inside.left += cell.left == body_.left ? rule() : 0;
    inside.right -= rule();
    inside.bottom -= rule();
    dc_.FillSolidRect(&inside, look.background);
    ::InflateRect(&inside, -points(padding), 0);
    DrawCellText(dc_, inside, text.c_str(), look);
}

void PagePainter::PaintLine(const std::wstring& text, int top, UINT alignment) {
    const int half = static_cast<int>(body_.left + body_.right) / 2;
    RECT line{body_.left, top, body_.right, top + line_height_};
    line.right = alignment == DT_LEFT ? half : line.right;
    line.left = alignment == DT_RIGHT ? half : line.left;
    dc_.SetBkMode(TRANSPARENT);
    dc_.SetTextColor(ink);
    dc_.DrawText(text.c_str(), static_cast<int>(text.size()), &line,
                 alignment | DT_SINGLELINE | DT_NOPREFIX | DT_PATH_ELLIPSIS);
}

}  // namespace corvanes
