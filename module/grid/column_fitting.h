// The fitting of a column's width to what the column shows.
#pragma once

namespace corvanes {

class CellGrid;

// The width in which the heading and the longest text of the column show whole, in pixels.
int fitting_width(CellGrid& grid, int column);

}  // namespace corvanes
