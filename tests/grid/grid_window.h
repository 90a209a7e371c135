// A fixture: a grid that records all its notifications, in a window to which tests send real messages.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "grid/grid_control.h"

namespace grid_test {

using Log = std::vector<std::string>;

inline std::string narrow(const wchar_t* text) {
    const std::wstring wide = text != nullptr ? text : L"(null)";
    return std::string(wide.begin(), wide.end());
}

// Runs every message that is waiting, as a program without dialogs does.
inline void pump() {
    MSG message;
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
}

class RecordingGrid : public CUGCtrl {
  public:
    Log log;
    int sizing_result = -1;  // the width that OnGridColumnSizing sets; -1 leaves it
    bool may_move = true;
    bool changeable = false;  // whether commands may change cells
    bool edit_on_click = false;
    int allow_start = 1;
    int verified = 1;
    int finished = 1;
    UINT replace_key = ~0U;
    CWnd* editor = nullptr;
    std::function<void()> on_verify;
    std::function<void()> on_notify;

    bool AllowsChanges() const override { return changeable; }
    bool GoesToTyped() const override { return !changeable; }
    Log take() { return std::exchange(log, {}); }

    void OnGridSetup() override {
        log.push_back("setup");
        SetSideHeadingWidth(0);
        SetDefaultRowHeight(20);
        SetTopHeadingHeight(20);
        SetColumnCount(3);
        for (int column = 0; column < 3; ++column) {
            SetColumnWidth(column, 100);
        }
    }
    void OnGridColumnSizing(int col, int* width) override {
        note("sizing", {col, *width});
        *width = sizing_result >= 0 ? sizing_result : *width;
    }
    void OnGridRowChange(long from, long to) override { note("row", {from, to}); }
    void OnGridCellChange(int from_col, int to_col, long from, long to) override {
        note("cell", {from_col, to_col, from, to});
    }
    void OnGridLeftClick(int col, long row, int updn, RECT* rect, POINT* point, int processed) override {
        note("click",
             {col, row, updn, rect->left, rect->top, rect->right, rect->bottom, point->x, point->y, processed});
        if (edit_on_click && updn == 1) {
            StartEdit();
        }
    }
    void OnGridHeadingClick(int col, long row, int updn, RECT* rect, POINT*, int) override {
        note("heading", {col, row, updn, rect->left, rect->right});
    }
    void OnGridKeyDown(UINT* key, BOOL processed) override {
        note("key", {static_cast<long>(*key), processed});
        *key = replace_key != ~0U ? replace_key : *key;
    }
    void OnGridCharDown(UINT* character, BOOL processed) override {
        note("char", {static_cast<long>(*character), processed});
    }
    int OnGridEditStart(int col, long row, CWnd** edit) override {
        note("start", {col, row});
        *edit = editor != nullptr ? editor : *edit;
        return allow_start;
    }
    int OnGridEditVerify(int col, long row, CWnd*, LPCWSTR text) override {
        note("verify " + narrow(text), {col, row});
        if (on_verify) {
            on_verify();
        }
        return verified;
    }
    int OnGridEditFinish(int col, long row, CWnd*, LPCWSTR text, BOOL cancelled) override {
        note("finish " + narrow(text), {col, row, cancelled});
        return finished;
    }
    void OnGridCellTypeNotify(int col, long row, int kind, int part, LPCWSTR value) override {
        note("notify " + narrow(value), {col, row, kind, part});
        if (on_notify) {
            on_notify();
        }
    }
    int OnGridCanMove(int from_col, long from, int to_col, long to) override {
        note("can move", {from_col, from, to_col, to});
        return may_move ? 1 : 0;
    }

  private:
    void note(std::string what, const std::vector<long>& values) {
        for (const long value : values) {
            what += ' ' + std::to_string(value);
        }
        log.push_back(std::move(what));
    }
};

// A top-level window with a grid of 3 columns of 100 pixels in its client area of 400 by 220, and 20 rows of texts.
class GridTest : public testing::Test {
  public:
    // One frame for all tests: without a window manager Wine takes two seconds to destroy a top-level window.
    static void SetUpTestSuite() {
        const CRect place(50, 50, 450, 270);
        ASSERT_TRUE(frame.CreateEx(0, AfxRegisterWndClass(0), L"grid", WS_POPUP | WS_VISIBLE, place, nullptr, 0));
    }
    static void TearDownTestSuite() { frame.DestroyWindow(); }

  protected:
    void SetUp() override {
        ASSERT_TRUE(grid.CreateGrid(WS_VISIBLE | WS_TABSTOP, CRect(0, 0, 400, 220), &frame, 7));
        Fill(20);
        grid.SetFocus();
        pump();
        grid.take();
    }
    void TearDown() override {
        release_keys();
        grid.DestroyWindow();
        pump();
    }
    void Fill(int rows) {
        grid.SetRowCount(rows);
        for (int row = 0; row < rows; ++row) {
            for (int column = 0; column < 3; ++column) {
                grid.SetCellText(column, row, (std::to_wstring(row) + L"abc"[column]).c_str());
            }
        }
    }
    // Sends the message, and handles all messages that follow from it.
    static void send(CWnd& window, UINT message, WPARAM wParam, int x, int y) {
        window.SendMessage(message, wParam, MAKELPARAM(x, y));
        pump();
    }
    void press(CWnd& window, int x, int y, WPARAM keys = 0) { send(window, WM_LBUTTONDOWN, MK_LBUTTON | keys, x, y); }
    void drag(CWnd& window, int x, int y) { send(window, WM_MOUSEMOVE, MK_LBUTTON, x, y); }
    void release(CWnd& window, int x, int y) { send(window, WM_LBUTTONUP, 0, x, y); }
    void click(CWnd& window, int x, int y, WPARAM keys = 0) {
        press(window, x, y, keys);
        release(window, x, y);
    }
    void key(UINT code) {
        ::SendMessageW(::GetFocus(), WM_KEYDOWN, code, 1);
        pump();
    }
    void type(const wchar_t* text) {
        for (; *text != 0; ++text) {
            ::SendMessageW(::GetFocus(), WM_CHAR, *text, 1);
        }
        pump();
    }
    static void hold(std::initializer_list<int> keys) {
        BYTE states[256] = {};
        for (const int held : keys) {
            states[held] = 0x80;
        }
        ::SetKeyboardState(states);
    }
    static void release_keys() { hold({}); }
    std::string current() const {
        return std::to_string(grid.GetCurrentColumn()) + "," + std::to_string(grid.GetCurrentRow());
    }
    // The grid as text: a line for each row, * after a selected cell's text.
    std::string picture() {
        std::string lines;
        for (int row = 0; row < grid.GetRowCount(); ++row) {
            for (int column = 0; column < grid.GetColumnCount(); ++column) {
                const wchar_t* text = grid.GetCellText(column, row);
                lines += (column > 0 ? "|" : "") + (text != nullptr ? narrow(text) : "") +
                         (grid.IsSelected(column, row) ? "*" : "");
            }
            lines += '\n';
        }
        return lines;
    }

    inline static CWnd frame;
    RecordingGrid grid;
};

}  // namespace grid_test
