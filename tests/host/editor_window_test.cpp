// Tests of the main window, of posted input, and of pictures of windows.
#include <windows.h>

#include <shlobj.h>

#include <gmock/gmock.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <memory>
#include <vector>

#include "base/loaded_library.h"
#include "platform/host/editor/command_stack.h"
#include "platform/host/editor/editor.h"
#include "platform/host/editor/main_window.h"
#include "platform/host/editor/posted_input.h"
#include "platform/host/editor/script_words.h"
#include "platform/host/view/window_class.h"
#include "platform/host/view/png_file.h"

namespace host {
namespace {

std::vector<HWND> edit_fields(HWND parent) {
    std::vector<HWND> fields;
    for (HWND child = GetWindow(parent, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
        if (window_class_name(child) == L"Edit") {
            fields.push_back(child);
        }
    }
    return fields;
}

TEST(MainWindow, IsNeverTooSmallForItsParts) {
    const MainWindow window;
    MoveWindow(window.window(), 0, 0, 10, 10, FALSE);
    RECT place{};
    GetWindowRect(window.window(), &place);
    EXPECT_EQ(place.right * 1000 + place.bottom, 400300);
}

TEST(MainWindow, GivesEachKeyToOneWait) {
    MainWindow window;
    PostMessageW(window.window(), WM_KEYDOWN, VK_ESCAPE, 1);
    EXPECT_FALSE(window.wait_for_event().has_value());
    PostMessageW(window.window(), WM_CHAR, L'x', 1);
    const std::optional<InputEvent> next = window.wait_for_event();
    ASSERT_TRUE(next.has_value());
    EXPECT_EQ(next->character, L'x') << "not the Escape that has cancelled";
}

TEST(MainWindow, TellsWindowsWhetherItsSessionMayEnd) {
    EXPECT_EQ(SendMessageW(MainWindow().window(), WM_QUERYENDSESSION, 0, 0), TRUE);
    for (const bool may : {false, true}) {
        WindowProgram program;
        program.may_end_session = [may] { return may; };
        const MainWindow window(program);
        EXPECT_EQ(SendMessageW(window.window(), WM_QUERYENDSESSION, 0, 0), may ? TRUE : FALSE);
        EXPECT_FALSE(window.close_requested());
    }
}

void drop_on(HWND window, std::wstring_view names) {
    const auto drop = static_cast<HGLOBAL>(GlobalAlloc(GHND, sizeof(DROPFILES) + 2 * names.size() + 4));
    auto* const files = static_cast<DROPFILES*>(GlobalLock(drop));
    files->pFiles = sizeof *files;
    files->fWide = TRUE;
    std::copy(names.begin(), names.end(), reinterpret_cast<wchar_t*>(files + 1));
    GlobalUnlock(drop);
    SendMessageW(window, WM_DROPFILES, reinterpret_cast<WPARAM>(drop), 0);
}

void read_list() {}

TEST(MainWindow, OpensTheFilesThatAreDroppedOnIt) {
    using std::literals::operator""sv;
    const std::vector<CommandGroup> groups{{L"Lists", {{L"READLIST", L"READLIST", 0, read_list}}}};
    WindowProgram program;
    program.menu = [&groups] { return MenuBar::Contents{[](std::wstring_view) { return true; }, &groups, {}}; };
    bool busy = false;
    program.is_busy = [&busy] { return busy; };
    MainWindow window(program);
    PostMessageW(window.window(), WM_CLOSE, 0, 0);
    window.wait_for_answer(L"");  // the menu is there
    window.forget_close_request();
    EnableWindow(window.window(), FALSE);  // as a dialog does
    drop_on(window.window(), L"Z:\\late.dxf\0"sv);
    EXPECT_FALSE(window.has_typed_ahead());
    EnableWindow(window.window(), TRUE);
    drop_on(window.window(), L"Z:\\1.LIST\0Z:\\a b.dxf\0Z:\\\x5D0.DXF\0"sv);
    std::vector<std::wstring> typed;
    while (window.has_typed_ahead()) {
        typed.push_back(window.wait_for_answer(L"").text);
        busy = !busy;  // a command asks for its file
    }
    EXPECT_THAT(typed,
                testing::ElementsAre(L"OPEN", L"Z:\\a b.dxf", L"OPEN", L"Z:\\\x5D0.DXF", L"READLIST", L"Z:\\1.LIST"));
}

TEST(MainWindow, KeepsTheEndOfALongHistory) {
    MainWindow window;
    const auto line = [](int number) { return L"line " + std::to_wstring(number) + L" of a long history"; };
    for (int number = 0; number < 6000; ++number) {
        if (number == 4500) {
            window.show();
        }
        window.append_history(L"\n" + line(number));
    }
    SendMessageW(window.window(), WM_ENTERIDLE, MSGF_DIALOGBOX, 0);
    const std::wstring kept = window_text(edit_fields(window.window())[0]);
    EXPECT_LT(kept.size(), 62000u);
    EXPECT_THAT(kept, testing::HasSubstr(line(4499) + L"\r\n" + line(4500)));
    EXPECT_THAT(kept, testing::EndsWith(L"\r\n" + line(5999)));
}

/// A window that is destroyed with this object.
class OwnWindow {
  public:
    OwnWindow(const wchar_t* kind, DWORD extended_style, int width, int height)
        : window_(CreateWindowExW(extended_style, kind, L"", WS_POPUP | WS_VISIBLE, 10, 10, width, height, nullptr,
                                  nullptr, host_instance(), nullptr)) {}
    ~OwnWindow() { DestroyWindow(window_); }
    OwnWindow(const OwnWindow&) = delete;
    OwnWindow& operator=(const OwnWindow&) = delete;
    HWND get() const { return window_; }

  private:
    HWND window_;
};

void run_waiting_messages() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

TEST(TypedKeys, ReachAWindowWithTheirModifiers) {
    const OwnWindow edit(L"EDIT", 0, 200, 30);
    SetFocus(edit.get());
    TypedKeys keys;
    keys.add_text(L"ab CD1!");
    keys.add_key(VK_HOME, NamedKey::shift);
    keys.add_key(VK_DELETE, 0);
    keys.add_text(L"x");
    keys.add_key(VK_LEFT, 0);
    keys.add_text(L"\x263A");  // a character that no key gives
    while (!keys.empty()) {
        keys.post_next(edit.get());
        run_waiting_messages();
    }
    keys.release_modifiers();
    EXPECT_EQ(window_text(edit.get()), L"\x263Ax");
    EXPECT_GE(GetKeyState(VK_SHIFT), 0) << "nothing stays pressed";
}

TEST(PostedInput, PressesAButtonWhoeverTakesTheFocusMeanwhile) {
    const OwnWindow button(L"BUTTON", 0, 80, 30);
    SetWindowLongPtrW(button.get(), GWL_STYLE, WS_POPUP | WS_VISIBLE | BS_AUTOCHECKBOX);
    post_press(button.get());
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != 0) {
        DispatchMessageW(&message);
        SendMessageW(button.get(), WM_CANCELMODE, 0, 0);  // as when another program comes to the front
        ReleaseCapture();
    }
    EXPECT_EQ(SendMessageW(button.get(), BM_GETCHECK, 0, 0), BST_CHECKED);
}

/// The colours of a PNG file, row by row, as the system decodes it.
class Pixels {
  public:
    explicit Pixels(const std::filesystem::path& path) {
        const base::LoadedLibrary library = base::LoadedLibrary::load(L"gdiplus.dll");
        struct {
            UINT32 version = 1;
            void* callback = nullptr;
            BOOL flags[2] = {};
        } input;
        ULONG_PTR token = 0;
        library.function<int WINAPI(ULONG_PTR*, void*, void*)>("GdiplusStartup")(&token, &input, nullptr);
        void* image = nullptr;
        library.function<int WINAPI(const wchar_t*, void**)>("GdipCreateBitmapFromFile")(path.c_str(), &image);
        library.function<int WINAPI(void*, UINT*)>("GdipGetImageWidth")(image, &width);
        library.function<int WINAPI(void*, UINT*)>("GdipGetImageHeight")(image, &height);
        const auto get = library.function<int WINAPI(void*, int, int, DWORD*)>("GdipBitmapGetPixel");
        for (UINT place = 0; place < width * height; ++place) {
            DWORD colour = 0;
            get(image, static_cast<int>(place % width), static_cast<int>(place / width), &colour);
            colours.push_back(colour & 0xFFFFFF);
        }
        library.function<int WINAPI(void*)>("GdipDisposeImage")(image);
        library.function<void WINAPI(ULONG_PTR)>("GdiplusShutdown")(token);
    }
    UINT width = 0;
    UINT height = 0;
    std::vector<DWORD> colours;  ///< row by row, as 0xRRGGBB
};

/// Red where reading begins, blue where it ends.
LRESULT CALLBACK paint_two_colours(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message != WM_ERASEBKGND) {
        return DefWindowProcW(window, message, wparam, lparam);
    }
    RECT half;
    GetClientRect(window, &half);
    const LONG width = half.right;
    half.right = width / 2;
    const auto fill = [&](COLORREF colour) {
        const std::unique_ptr<HBRUSH__, decltype(&DeleteObject)> brush(CreateSolidBrush(colour), DeleteObject);
        FillRect(reinterpret_cast<HDC>(wparam), &half, brush.get());
    };
    fill(RGB(255, 0, 0));
    half = {width / 2, 0, width, half.bottom};
    fill(RGB(0, 0, 255));
    return 1;
}

TEST(WindowPicture, ShowsAWindowAsItLooks) {
    register_window_class(L"TwoColours", &paint_two_colours, COLOR_WINDOW);
    const std::filesystem::path path =
        std::filesystem::temp_directory_path() / ("window_" + std::to_string(GetCurrentProcessId()) + ".png");
    for (const DWORD layout : {DWORD{0}, DWORD{WS_EX_LAYOUTRTL}}) {
        const OwnWindow window(L"TwoColours", layout, 120, 40);
        InvalidateRect(window.get(), nullptr, TRUE);
        EXPECT_TRUE(save_window_png(window.get(), path));
        const Pixels picture(path);
        EXPECT_EQ(picture.width * 1000 + picture.height, 120040u);
        const bool mirrored = layout != 0;
        EXPECT_THAT((std::array{picture.colours[605], picture.colours[714]}),
                    testing::ElementsAre(mirrored ? 0x0000FFu : 0xFF0000u, mirrored ? 0xFF0000u : 0x0000FFu));
    }
    const OwnWindow window(L"TwoColours", 0, 20, 20);
    EXPECT_FALSE(save_window_png(window.get(), path / "under_a_file.png"));
    EXPECT_EQ(Pixels(path).width, 120u) << "the picture that was there stays";
    EXPECT_FALSE(save_window_png(nullptr, path));
    std::filesystem::remove(path);
}

TEST(PaintedPicture, KeepsAllColoursOfFewAndOfMany) {
    const std::filesystem::path path =
        std::filesystem::temp_directory_path() / ("painted_" + std::to_string(GetCurrentProcessId()) + ".png");
    constexpr int width = 40;
    constexpr int height = 16;
    for (const auto& [number, kind] : {std::pair(1, 3), {256, 3}, {257, 2}, {width * height, 2}}) {
        std::vector<DWORD> expected;
        const auto paint = [&, number = number](HDC context) -> base::Outcome<> {
            for (int place = 0; place < width * height; ++place) {
                const auto colour = static_cast<DWORD>(place % number * 0x6305 + 7);
                expected.push_back(colour);
                SetPixel(context, place % width, place / width,
                         RGB(colour >> 16 & 0xFF, colour >> 8 & 0xFF, colour & 0xFF));
            }
            return {};
        };
        ASSERT_TRUE(save_painted_png(width, height, paint, path));
        EXPECT_EQ(Pixels(path).colours, expected) << number;
        std::ifstream file(path, std::ios::binary);
        constexpr std::streamoff kind_of_colours = 25;
        file.seekg(kind_of_colours);
        EXPECT_EQ(file.get(), kind) << number << " colours: a palette, or three bytes a pixel";
    }
    std::filesystem::remove(path);
}

}  // namespace
}  // namespace host
