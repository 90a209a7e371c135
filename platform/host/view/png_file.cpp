#include "platform/host/view/png_file.h"

#include <memory>
#include <system_error>

#include "base/loaded_library.h"
#include "platform/host/view/drawing_frame.h"

namespace host {
namespace {

/// GDI+ through its flat functions, loaded when the first picture is asked for: most runs take none.
class PictureLibrary {
  public:
    PictureLibrary() : library_(base::LoadedLibrary::load(L"gdiplus.dll")) {
        if (library_) {
            struct StartupInput {
                UINT32 version = 1;
                void* debug_callback = nullptr;
                BOOL no_background_thread = FALSE;
                BOOL no_external_codecs = FALSE;
            } input;
            auto* startup = library_.function<int WINAPI(ULONG_PTR*, const StartupInput*, void*)>("GdiplusStartup");
            started_ = startup != nullptr && startup(&token_, &input, nullptr) == 0;
        }
    }
    ~PictureLibrary() {
        if (started_) {
            library_.function<void WINAPI(ULONG_PTR)>("GdiplusShutdown")(token_);
        }
    }
    PictureLibrary(const PictureLibrary&) = delete;
    PictureLibrary& operator=(const PictureLibrary&) = delete;

    bool save_png(HBITMAP bitmap, const wchar_t* path) const {
        if (!started_) {
            return false;
        }
        constexpr CLSID png = {0x557CF406, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};
        auto* from_bitmap = library_.function<int WINAPI(HBITMAP, HPALETTE, void**)>("GdipCreateBitmapFromHBITMAP");
        auto* save =
            library_.function<int WINAPI(void*, const wchar_t*, const CLSID*, const void*)>("GdipSaveImageToFile");
        auto* dispose = library_.function<int WINAPI(void*)>("GdipDisposeImage");
        void* image = nullptr;
        if (from_bitmap(bitmap, nullptr, &image) != 0) {
            return false;
        }
        const std::unique_ptr<void, decltype(dispose)> owner(image, dispose);
        return save(image, path, &png, nullptr) == 0;
    }

  private:
    base::LoadedLibrary library_;
    ULONG_PTR token_ = 0;
    bool started_ = false;
};

base::Outcome<> save_png(FrameBitmap& picture, const std::filesystem::path& path) {
    const GdiObject bitmap = picture.take_bitmap();
    std::filesystem::path unfinished = path;
    unfinished += L".part";
    std::error_code ignored;
    if (!PictureLibrary().save_png(static_cast<HBITMAP>(bitmap.get()), unfinished.c_str())) {
        std::filesystem::remove(unfinished, ignored);
        return base::Failure{L"the picture " + path.wstring() + L" could not be written"};
    }
    if (MoveFileExW(unfinished.c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING) == 0) {
        const std::wstring reason = base::system_message(GetLastError());
        std::filesystem::remove(unfinished, ignored);
        return base::Failure{L"the picture " + path.wstring() + L" could not be written: " + reason};
    }
    return {};
}

}  // namespace

base::Outcome<> save_window_png(HWND window, const std::filesystem::path& path) {
    RECT frame;
    if (GetWindowRect(window, &frame) == 0) {
        return base::Failure{L"there is no window to take a picture of"};
    }
    RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    const int width = frame.right - frame.left;
    const int height = frame.bottom - frame.top;
    const WindowContext source(window, true);
    SetLayout(source.get(), 0);  // a right-to-left window is copied as it looks, not mirrored once more
    FrameBitmap copy(width, height);
    BitBlt(copy.context(), 0, 0, width, height, source.get(), 0, 0, SRCCOPY);
    return save_png(copy, path);
}

base::Outcome<> save_drawing_png(std::shared_ptr<const DisplayList> list, const std::filesystem::path& path) {
    constexpr double margin = 0.02;
    constexpr uint32_t paper = 0xFFFFFF;
    DrawingFrame frame;
    frame.set_list(std::move(list));
    frame.set_background(paper);
    ViewTransform view(1600, 1200);
    view.show(frame.list().extents(), margin);
    frame.set_view(view);
    FrameBitmap* const picture = frame.picture();
    if (picture == nullptr) {
        return base::Failure{L"there is not enough memory for the picture " + path.wstring()};
    }
    return save_png(*picture, path);
}

}  // namespace host
