#include "platform/host/editor/window_person.h"

#include <windows.h>

#include <algorithm>
#include <cmath>

#include "base/code_page.h"
#include "platform/host/editor/command_processor.h"
#include "platform/host/editor/main_window.h"
#include "platform/host/editor/script.h"
#include "platform/host/view/areas.h"

namespace host {
namespace {

/// Lets the windows paint, and handles no other message: a dialog whose handler asks is up all this time, and must get
/// neither input nor the driver's timer.
void paint_windows() {
    MSG message;
    constexpr int enough = 100;  // a window that never finishes painting holds nobody up
    for (int count = 0; count < enough && PeekMessageW(&message, nullptr, WM_PAINT, WM_PAINT, PM_REMOVE) != 0;
         ++count) {
        DispatchMessageW(&message);
    }
}

/// The rectangle around what is drawn; one unit wide where that is a point, nothing, or beyond all measure.
Box2 drawn_area(DrawingPane& pane) {
    constexpr double largest = 1e15;  // beyond it the places beside the drawing are no longer apart
    Box2 area = pane.list().extents();
    const auto usable = [](double number) { return std::fabs(number) <= largest; };
    if (area.empty() || !usable(area.low.x) || !usable(area.low.y) || !usable(area.high.x) || !usable(area.high.y)) {
        return Box2::between({0, 0}, {1, 1});
    }
    const double unit = std::max(area.width(), area.height()) > 0 ? std::max(area.width(), area.height()) : 1;
    area.high.x = area.width() > 0 ? area.high.x : area.low.x + unit;
    return area;
}

/// The corners of the block that was made last, at its place beside what is drawn.
Box2 place_of_last_block(DrawingPane& pane) {
    const dxf::Drawing* const drawing = pane.drawing();
    const Box2 area = drawn_area(pane);
    const bool has_blocks = drawing != nullptr && !drawing->blocks().empty();
    const auto last = static_cast<dxf::BlockId>(has_blocks ? drawing->blocks().size() - 1 : 0);
    const Box2 block = has_blocks ? block_area(*drawing, last) : Box2();
    const Vec2 size = block.empty() ? Vec2{1, 1} : Vec2{block.width(), block.height()};
    const BesidePlace place = place_beside(area, size);
    return {{place.upper_left.x, place.upper_left.y - place.scale * size.y},
            {place.upper_left.x + place.scale * size.x, place.upper_left.y}};
}

/// The point, in drawing units, that a word names: in percent of the drawn area, or beside it. Nothing for other words.
std::optional<Vec2> named_place(std::wstring_view word, DrawingPane& pane) {
    if (word == L"beside" || word == L"beside-end") {
        const Box2 place = place_of_last_block(pane);
        return word == L"beside" ? Vec2{place.low.x, place.high.y} : Vec2{place.high.x, place.low.y};
    }
    if (const std::optional<Point> parts = parse_percent_point(word)) {
        const Box2 area = drawn_area(pane);
        return Vec2{area.low.x + parts->x * area.width(), area.low.y + parts->y * area.height()};
    }
    return std::nullopt;
}

/// The line, with the point in place of its last word when that names one.
std::wstring with_place(const std::wstring& line, DrawingPane& pane) {
    const size_t blank = line.find_last_of(L" \t");
    const size_t word = blank == std::wstring::npos ? 0 : blank + 1;
    const std::optional<Vec2> place = named_place(std::wstring_view(line).substr(word), pane);
    return place ? line.substr(0, word) + format_point({place->x, place->y}) : line;
}

}  // namespace

Answer WindowPerson::prompt(std::wstring_view text, const PointerGuide& guide) {
    for (;;) {
        print(text);
        Answer answer = take_answer(text, guide);
        print(answer.kind == Answer::cancel ? L"*Cancel*" : answer.text);
        if (answer.kind != Answer::line || !processor_.run_transparent(answer.text)) {
            return answer;
        }
    }
}

Answer WindowPerson::take_answer(std::wstring_view text, const PointerGuide& guide) {
    return window_.wait_for_answer(text, guide);
}

std::optional<InputEvent> WindowPerson::next_event() {
    return window_.wait_for_event();
}

void WindowPerson::print(std::wstring_view text) {
    window_.append_history(text);
    if (echo_) {
        write_standard_error(text);
    }
}

void WindowPerson::report(std::wstring_view problem) {
    print(L"\n" + std::wstring(problem));
}

void WindowPerson::draw_vector(const Point& from, const Point& to, int colour, bool highlight) {
    window_.pane().draw_vector({{from.x, from.y}, {to.x, to.y}, colour, highlight});
}

bool WindowPerson::show_progress(std::wstring_view action, double part) {
    return window_.show_progress(action, part);
}

void WindowPerson::show_selected(const std::vector<dxf::RecordId>& entities) {
    window_.show_selected(entities);
}

bool WindowPerson::has_typed_ahead() const {
    return window_.has_typed_ahead();
}

Answer ScriptPerson::take_answer(std::wstring_view text, const PointerGuide&) {
    paint_windows();
    Answer answer = run_.answer(text);
    answer.text = with_place(answer.text, window().pane());
    return answer;
}

void ScriptPerson::report(std::wstring_view problem) {
    WindowPerson::report(problem);
    run_.fail(problem);
}

Watchdog::Watchdog(const ScriptRun& run, std::chrono::seconds patience)
    : run_(run), patience_(patience), thread_([this] { watch(); }) {}

Watchdog::~Watchdog() {
    {
        const std::lock_guard<std::mutex> lock(mutex_);
        done_ = true;
    }
    wake_.notify_one();
    thread_.join();
}

void Watchdog::watch() {
    std::unique_lock<std::mutex> lock(mutex_);
    for (;;) {
        const size_t before = run_.progress();
        if (wake_.wait_for(lock, patience_, [this] { return done_; })) {
            return;
        }
        if (run_.progress() == before) {
            const std::wstring reason = L"nothing happened for " + std::to_wstring(patience_.count()) + L" s";
            write_standard_error(run_.stall_failure(reason) + L"\n");
            // exit() would wait for the main thread, which is stuck somewhere.
            TerminateProcess(GetCurrentProcess(), 1);
        }
    }
}

void write_standard_error(std::wstring_view text) {
    const std::string bytes = base::utf8_from_wide(text);
    DWORD written = 0;
    WriteFile(GetStdHandle(STD_ERROR_HANDLE), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
}

}  // namespace host
