#include "platform/host/editor/scripted_command_line.h"

#include <windows.h>

#include <algorithm>
#include <cmath>

#include "platform/host/editor/document.h"
#include "platform/host/editor/editor.h"
#include "platform/host/editor/history.h"
#include "platform/host/editor/script_run.h"
#include "platform/host/prompt/input_text.h"
#include "platform/host/view/drawing_pane.h"

namespace host {
namespace {

/// Painting only. A dialog whose handler asks is up all this time, and must get neither input nor the driver's timer.
void paint_windows() {
    MSG message;
    constexpr int enough = 100;  // a window that never finishes painting holds nobody up
    for (int count = 0; count < enough && PeekMessageW(&message, nullptr, WM_PAINT, WM_PAINT, PM_REMOVE) != 0;
         ++count) {
        DispatchMessageW(&message);
    }
}

/// Around what is drawn of the open drawing. What is a point, or nothing, or beyond all measure counts as one unit
/// wide.
Box2 drawn_area() {
    constexpr double largest = 1e15;  // beyond it the places beside the drawing are no longer apart
    Box2 area;
    if (const Document* const document = editor().documents.document()) {
        const auto space = document->database()->tilemode() ? DisplayList::Space::model : DisplayList::Space::paper;
        area = editor().view != nullptr ? editor().view->list().extents()
                                        : DisplayList::shared(document->drawing(), space)->extents();
    }
    const auto usable = [](double number) { return std::fabs(number) <= largest; };
    if (area.empty() || !usable(area.low.x) || !usable(area.low.y) || !usable(area.high.x) || !usable(area.high.y)) {
        return Box2::between({0, 0}, {1, 1});
    }
    const double unit = std::max(area.width(), area.height()) > 0 ? std::max(area.width(), area.height()) : 1;
    area.high.x = area.width() > 0 ? area.high.x : area.low.x + unit;
    return area;
}

/// A line whose last word is a point in percent of the drawn area, with that point in drawing units.
std::wstring with_place(const std::wstring& line) {
    const size_t blank = line.find_last_of(L" \t");
    const size_t word = blank == std::wstring::npos ? 0 : blank + 1;
    const std::optional<Point> parts = parse_percent_point(std::wstring_view(line).substr(word));
    if (!parts) {
        return line;
    }
    const Box2 area = drawn_area();
    return line.substr(0, word) +
           format_point({area.low.x + parts->x * area.width(), area.low.y + parts->y * area.height()});
}

}  // namespace

Answer ScriptedCommandLine::prompt(std::wstring_view text) {
    paint_windows();
    history_.print(text);
    Answer answer = run_.answer(text);
    answer.text = with_place(answer.text);
    history_.print(answer.kind == Answer::cancel ? L"*Cancel*" : answer.text);
    return answer;
}

void ScriptedCommandLine::print(std::wstring_view text) {
    history_.print(text);
}

void ScriptedCommandLine::report(std::wstring_view problem) {
    history_.print(L"\n" + std::wstring(problem));
    run_.fail(problem);
}

}  // namespace host
