#include "platform/host/view/frame_bitmap.h"

namespace host {

FrameBitmap::FrameBitmap(int width, int height)
    : width_(width), height_(height), context_(CreateCompatibleDC(nullptr)) {
    BITMAPINFO layout{};
    layout.bmiHeader.biSize = sizeof layout.bmiHeader;
    layout.bmiHeader.biWidth = width;
    layout.bmiHeader.biHeight = -height;  // rows from the top
    layout.bmiHeader.biPlanes = 1;
    layout.bmiHeader.biBitCount = 32;
    layout.bmiHeader.biCompression = BI_RGB;
    void* pixels = nullptr;
    bitmap_.reset(CreateDIBSection(context_.get(), &layout, DIB_RGB_COLORS, &pixels, nullptr, 0));
    if (bitmap_) {
        pixels_ = static_cast<uint32_t*>(pixels);
        previous_ = SelectObject(context_.get(), bitmap_.get());
    }
}

FrameBitmap::~FrameBitmap() {
    take_bitmap();
}

Raster FrameBitmap::raster() const {
    GdiFlush();
    return Raster(pixels_, width_, height_);
}

GdiObject FrameBitmap::take_bitmap() {
    if (bitmap_) {
        SelectObject(context_.get(), previous_);
    }
    return std::move(bitmap_);
}

}  // namespace host
