#include "platform/host/view/drawing_picture.h"

#include "platform/host/view/drawing_frame.h"
#include "platform/host/view/window_picture.h"

namespace host {

std::wstring save_drawing_png(std::shared_ptr<const DisplayList> list, const std::filesystem::path& path,
                              PictureSize size) {
    constexpr double margin = 0.02;
    constexpr uint32_t paper = 0xFFFFFF;
    DrawingFrame frame;
    frame.set_list(std::move(list));
    frame.set_background(paper);
    ViewTransform view(size.width, size.height);
    view.show(frame.list().extents(), margin);
    frame.set_view(view);
    FrameBitmap* const picture = frame.picture();
    if (picture == nullptr) {
        return L"there is not enough memory for the picture " + path.wstring();
    }
    const GdiObject bitmap = picture->take_bitmap();
    return save_bitmap_png(static_cast<HBITMAP>(bitmap.get()), path);
}

}  // namespace host
