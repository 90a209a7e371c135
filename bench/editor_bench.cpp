// Times a key in the editor until its character is painted, in the longest text that the editor allows.
#include <afxwin.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <numeric>
#include <vector>

#include "bidi/multi_edit.h"

using namespace corvanes;

namespace {

constexpr int text_length = 1024;
constexpr int rounds = 400;

std::wstring mixed_text(int length, wchar_t gap) {
    const std::wstring phrase = L"\x5D1\x5E8\x5D2 M8 (x12.5) \x5E4\x5DC\x5D3\x5D4, 30%";
    std::wstring text;
    while (static_cast<int>(text.size()) < length) {
        text += phrase;
        text += gap;
    }
    text.resize(static_cast<size_t>(length));
    return text;
}

void dispatch_all() {
    MSG message;
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
}

/// Milliseconds from posting a key until the window is painted.
double time_key(CUGMultiEdit& editor, UINT key) {
    const auto start = std::chrono::steady_clock::now();
    editor.PostMessage(WM_KEYDOWN, key, 1);
    dispatch_all();
    editor.UpdateWindow();
    ::GdiFlush();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

void measure(CUGMultiEdit& editor, const char* what, ParagraphDirection direction, wchar_t gap) {
    editor.SetDirection(direction);
    editor.SetWindowText(mixed_text(text_length - 1, gap).c_str());
    editor.SetSel(text_length / 2, text_length / 2);
    dispatch_all();
    std::vector<double> times;
    for (int round = 0; round < rounds; ++round) {
        // Types a character and deletes it in turn, at the end of the line and in its middle.
        times.push_back(time_key(editor, round % 2 == 0 ? 'A' : VK_BACK));
        if (round == rounds / 2) {
            time_key(editor, VK_END);
        }
    }
    const double mean = std::accumulate(times.begin(), times.end(), 0.0) / rounds;
    std::printf("%s: %.2f ms from key to painted text, at worst %.2f\n", what, mean,
                *std::max_element(times.begin(), times.end()));
}

}  // namespace

int main() {
    CWnd owner;
    CUGMultiEdit editor;
    owner.CreateEx(0, AfxRegisterWndClass(0, nullptr), L"", WS_POPUP | WS_VISIBLE, CRect(0, 0, 700, 600), nullptr, 0);
    editor.Create(WS_CHILD | WS_VISIBLE | ES_MULTILINE, CRect(0, 0, 700, 600), &owner, 1);
    editor.SetFocus();
    measure(editor, "one line, left to right", ParagraphDirection::left_to_right, L' ');
    measure(editor, "one line, right to left", ParagraphDirection::right_to_left, L' ');
    measure(editor, "many lines, left to right", ParagraphDirection::left_to_right, L'\n');
    measure(editor, "many lines, right to left", ParagraphDirection::right_to_left, L'\n');
    return 0;
}
