// The scroll bars of the grid window: when they are there, their ranges, and what their messages ask for.
#pragma once

#include <windows.h>

namespace corvanes {

struct GridState;

// How many pixels one click on a horizontal arrow scrolls.
constexpr int horizontal_line = 16;

// Adds up the turns of a wheel: a touchpad sends them in small parts of a notch.
class WheelSum {
  public:
    // Adds a turn and gives the whole steps that it completes, at `steps_a_notch`. The rest is kept for the next turn;
    // a change of direction drops it.
    int add(int turn, int steps_a_notch);

  private:
    int rest_ = 0;
};

// How many pixels the cells get inside the grid window, less the scroll bars that are needed.
struct CellSpace {
    int width;
    int height;
};

// Shows, hides and sets the scroll bars of `window` for the cells that `state` describes and pulls the scroll position
// in `state` back to where there is something to show.
CellSpace fit_scroll_bars(HWND window, GridState& state);

// The top row or the horizontal position that a scroll message asks for; not yet held within the range.
int scrolled_row(HWND window, const GridState& state, UINT code, int page);
int scrolled_x(HWND window, const GridState& state, UINT code, int page);

}  // namespace corvanes
