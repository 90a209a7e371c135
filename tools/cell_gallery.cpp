// Shows a window with every kind of cell: from left to right, from right to left, disabled and selected. Prints what
// the cells notify their owner of. Escape ends it.
#include <fcntl.h>
#include <io.h>

#include <cstdio>

#include "base/code_page.h"
#include "grid/grid_control.h"

namespace {

using namespace corvanes;

constexpr struct {
    const wchar_t* name;
    int type;
    int height;
    DWORD options;
    const wchar_t* label;
    const wchar_t* text;
    const wchar_t* hebrew;  // the text for the cell in right-to-left order
} kinds[] = {
    {L"Arrow, up", type_arrow, 21, arrow_up, L"", L"Rising", L"\x5E2\x5D5\x5DC\x5D4"},
    {L"Arrow, left", type_arrow, 21, arrow_left, L"", L"Back", L"\x5D0\x5D7\x5D5\x5E8\x5D4"},
    {L"Button", type_button, 27, 0, L"", L"Recount", L"\x5E1\x5E4\x5D5\x5E8 \x5E9\x5D5\x5D1"},
    {L"Ellipsis", type_ellipsis, 21, 0, L"", L"C:\\prices.prc", L"\x5DE\x5D7\x5D9\x5E8\x5D9\x5DD"},
    {L"Spin button", type_spin_button, 23, 0, L"min=0; max=9.5; step=0.5; wrap", L"2.5", L"2.5"},
    {L"Slider", type_slider, 23, 0, L"min=0; max=10", L"3", L"3"},
    {L"Slider with its number", type_slider, 23, slider_shows_number, L"min=-50; max=50; step=5", L"20", L"20"},
    {L"Radio", type_radio, 23, 0, L"Oak\nPine\nAsh", L"Pine", L"Pine"},
    {L"Radio, in columns", type_radio, 47, 0, L"Oak\nPine\nAsh\nBirch\nCedar\nTeak", L"Ash", L"Cedar"},
    {L"Progress", type_progress, 23, 0, L"", L"45", L"45"},
    {L"Advanced progress", type_advanced_progress, 43, 0,
     L"min=0; max=200; bands=80 green, 150 orange, 200 red; ticks=10; labels=50", L"120", L"120"},
    {L"Pie chart, one number", type_pie_chart, 43, pie_chart_shows_text, L"max=100", L"30", L"30"},
    {L"Pie chart, several", type_pie_chart, 43, pie_chart_shows_text, L"colors=teal, orange, #B03060", L"5, 3, 2, 4",
     L"5, 3, 2, 4"},
    {L"Multi font", type_multi_font, 27, 0, L"4 bold red; 4 italic size=14; 8 underline; 9 blue font=Courier New",
     L"Oak door, bolted, 80 cm", L"\x5D3\x5DC\x5EA \x5D0\x5DC\x5D5\x5DF 80 cm \x5E2\x5DD \x5D1\x5E8\x5D9\x5D7"},
    {L"Auto font", type_auto_font, 39, 0, L"", L"As large as fits", L"\x5DB\x5D2\x5D5\x5D3\x5DC \x5D4\x5EA\x5D0"},
};
constexpr int kind_count = static_cast<int>(std::size(kinds));
constexpr int grid_width = 940;

class Gallery : public CUGCtrl {
  public:
    static int height() {
        int sum = 2 * 22;
        for (const auto& kind : kinds) {
            sum += kind.height;
        }
        return sum;
    }

    void OnGridSetup() override {
        SetSideHeadingWidth(0);
        SetColumnCount(5);
        SetRowCount(kind_count + 1);
        const wchar_t* const headings[] = {L"Kind", L"Left to right", L"Right to left", L"Disabled", L"Selected"};
        for (int column = 0; column < 5; ++column) {
            SetColumnWidth(column, column == 0 ? 140 : 200);
            SetCellText(column, -1, headings[column]);
        }
        for (int row = 0; row < kind_count; ++row) {
            const auto& kind = kinds[row];
            SetRowHeight(row, kind.height);
            SetCellText(0, row, kind.name);
            fill(1, row, kind.text, kind.options);
            fill(2, row, kind.hebrew, kind.options | control_right_to_left);
            fill(3, row, kind.text, kind.options | control_disabled);
            fill(4, row, kind.text, kind.options);
            SelectCell(4, row);
        }
        GotoCell(0, kind_count);
    }
    void OnGridCellTypeNotify(int column, long row, int kind, int part, LPCWSTR value) override {
        std::printf("%d %ld: kind %d part %d %s\n", column, row, kind, part, base::utf8_from_wide(value).c_str());
        std::fflush(stdout);
    }
    void OnGridKeyDown(UINT* key, BOOL) override {
        if (*key == VK_ESCAPE) {
            ::PostQuitMessage(0);
        }
    }

  private:
    void fill(int column, int row, LPCWSTR text, DWORD options) {
        SetCellText(column, row, text);
        SetCellLabel(column, row, kinds[row].label);
        SetCellTypeIndex(column, row, kinds[row].type);
        SetCellTypeOptions(column, row, options);
    }
};

}  // namespace

int main() {
    _setmode(_fileno(stdout), _O_BINARY);
    CWnd frame;
    const LPCWSTR window_class = AfxRegisterWndClass(0, ::LoadCursorW(nullptr, IDC_ARROW));
    const CRect place(0, 0, grid_width + 2, Gallery::height() + 2);
    frame.CreateEx(0, window_class, L"cells", WS_POPUP | WS_VISIBLE, place, nullptr, 0);
    Gallery gallery;
    gallery.CreateGrid(WS_VISIBLE, CRect(1, 1, place.right - 1, place.bottom - 1), &frame, 1);
    frame.SetForegroundWindow();
    gallery.SetFocus();
    std::printf("ready\n");
    std::fflush(stdout);
    MSG message;
    while (::GetMessageW(&message, nullptr, 0, 0) > 0) {
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
    return 0;
}
