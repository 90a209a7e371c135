// PagePainter, which paints a grid as a table on pages of paper.
#pragma once

#include <afxwin.h>

#include <string>
#include <vector>

#include "grid/cell_text.h"
#include "grid/print_titles.h"
#include "grid/selected_cells.h"

namespace corvanes {

class CellGrid;

// A page of paper in pixels of its device, with one resolution in both directions.
struct Paper {
    int width;
    int height;
    int dots_per_inch;
};

// The columns that are shown, with their headings on each page; long texts are broken into lines. Grid and context must
// outlive it, and the cells stay as they are.
class PagePainter {
  public:
    PagePainter(CellGrid& grid, PrintTitles titles, HDC dc, const Paper& paper);
    PagePainter(const PagePainter&) = delete;
    PagePainter& operator=(const PagePainter&) = delete;
    ~PagePainter();

    int page_count() const { return static_cast<int>(pages_.size()); }
    // Pages count from 0.
    void Paint(int page);

  private:
    static constexpr int padding = 2;  // in points
    // The pixels of so many points; a point is a 72nd of an inch.
    int points(int count) const { return ::MulDiv(count, paper_.dots_per_inch, 72); }
    int rule() const { return points(1) > 2 ? points(1) / 2 : 1; }
    // The pixels that a cell has beside its text, left and right together.
    int edges() const { return 2 * (points(padding) + cell_text_margin + rule()); }
    void PlanColumns();
    void PlanPages();
    std::wstring Wrapped(int column, int row, std::size_t place);
    int PaintRow(int row, int top);
    void PaintCell(const RECT& cell, const std::wstring& text, const CellLook& look);
    void PaintLine(const std::wstring& text, int top, UINT alignment);

    CellGrid& grid_;
    PrintTitles titles_;
    CDC dc_;
    Paper paper_;
    CFont font_;
    int saved_ = 0;
    RECT body_{};  // between the margins
    int line_height_ = 1;
    std::vector<int> columns_;
    std::vector<int> widths_;
    std::vector<int> heights_;  // by row
    std::vector<RowSpan> pages_;
};

}  // namespace corvanes
