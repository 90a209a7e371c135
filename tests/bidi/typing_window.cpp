// A window with the editor for someone to type into: prints what the editor tells its owner.
// usage: typing_window [ltr|rtl]; Escape ends it.
#include <afxwin.h>
#include <fcntl.h>
#include <io.h>

#include <cstdio>
#include <cstring>

#include "base/code_page.h"
#include "bidi/multi_edit.h"

using namespace corvanes;

namespace {

class TypingWindow : public CWnd {
  public:
    CUGMultiEdit editor;

  protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        switch (message) {
            case language_changed_message:
                print("language", static_cast<int>(wParam));
                return 0;
            case text_changed_message:
                std::printf("text %s\n", base::utf8_from_wide(editor.TypedText()).c_str());
                std::fflush(stdout);
                return 0;
            case direction_changed_message:
                print("direction", static_cast<int>(wParam));
                return 0;
            case WM_KEYDOWN:
                if (wParam == VK_ESCAPE) {
                    std::printf("escape\n");
                    ::PostQuitMessage(0);
                }
                return 0;
            default:
                return CWnd::WindowProc(message, wParam, lParam);
        }
    }

  private:
    static void print(const char* what, int value) {
        std::printf("%s %d\n", what, value);
        std::fflush(stdout);
    }
};

}  // namespace

int main(int argc, char** argv) {
    _setmode(_fileno(stdout), _O_BINARY);
    TypingWindow window;
    const LPCWSTR window_class = AfxRegisterWndClass(0, ::LoadCursorW(nullptr, IDC_ARROW));
    window.CreateEx(0, window_class, L"typing", WS_POPUP | WS_VISIBLE, CRect(0, 0, 420, 160), nullptr, 0);
    window.editor.Create(WS_CHILD | WS_VISIBLE | WS_BORDER | ES_MULTILINE, CRect(10, 10, 410, 150), &window, 1);
    if (argc > 1 && std::strcmp(argv[1], "rtl") == 0) {
        window.editor.SetDirection(ParagraphDirection::right_to_left);
    }
    window.SetForegroundWindow();
    window.editor.SetFocus();
    std::printf("ready %d\n", static_cast<int>(LOWORD(reinterpret_cast<ULONG_PTR>(::GetKeyboardLayout(0)))));
    std::fflush(stdout);
    MSG message;
    while (::GetMessageW(&message, nullptr, 0, 0) > 0) {
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
    return 0;
}
