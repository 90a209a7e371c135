#include "platform/host/view/drawing_frame.h"

#include <utility>

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
    if (bitmap_) {
        SelectObject(context_.get(), previous_);
    }
}

Raster FrameBitmap::raster() const {
    GdiFlush();
    return Raster(pixels_, width_, height_);
}

DrawingFrame::DrawingFrame(size_t most_small_texts)
    : list_(std::make_shared<DisplayList>()), most_small_texts_(most_small_texts) {}

void DrawingFrame::set_list(std::shared_ptr<const DisplayList> list) {
    list_ = std::move(list);
    stale_ = true;
}

std::shared_ptr<const DisplayList> DrawingFrame::take_list() {
    stale_ = true;
    return std::exchange(list_, std::make_shared<DisplayList>());
}

void DrawingFrame::set_background(uint32_t colour) {
    colours_.background = colour;
    stale_ = true;
}

void DrawingFrame::set_highlighted(EntitySet entities) {
    highlighted_ = std::move(entities);
    stale_ = true;
}

void DrawingFrame::set_view(const ViewTransform& view) {
    view_ = view;
    stale_ = true;
}

void DrawingFrame::resize(int width, int height) {
    view_.resize(width, height);
    stale_ = true;
}

FrameBitmap* DrawingFrame::picture() {
    if (!stale_ && picture_) {
        return picture_.get();
    }
    if (!picture_ || picture_->width() != view_.width() || picture_->height() != view_.height()) {
        picture_ = std::make_unique<FrameBitmap>(view_.width(), view_.height());
    }
    if (!*picture_) {
        picture_.reset();
        return nullptr;
    }
    Raster raster = picture_->raster();
    ListPainter painter(*list_, view_, raster, &typesetter_);
    painter.show_weights(weights_ || list_->shows_weights);
    painter.paint(colours_, highlighted_, most_small_texts_);
    stale_ = false;
    return picture_.get();
}

}  // namespace host
