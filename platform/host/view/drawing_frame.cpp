#include "platform/host/view/drawing_frame.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace host {

/// A bitmap that is selected into its context.
class FrameBitmap::Canvas {
  public:
    Canvas(int width, int height) : width_(width), height_(height), context_(CreateCompatibleDC(nullptr)) {
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
            state_ = SaveDC(context_.get());
        }
    }
    ~Canvas() {
        if (bitmap_) {
            SelectObject(context_.get(), previous_);
        }
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    int width() const { return width_; }
    int height() const { return height_; }
    uint32_t* pixels() const { return pixels_; }
    HDC context() const { return context_.get(); }

    bool is_sized(int width, int height) const { return width_ == width && height_ == height; }
    /// Whether it may be kept for another picture.
    bool is_handy() const {
        constexpr int64_t most = int64_t{1} << 21;  // pixels
        return pixels_ != nullptr && int64_t{width_} * height_ <= most;
    }
    /// Puts the context back to what it was like at first.
    void make_new() {
        RestoreDC(context_.get(), state_);
        state_ = SaveDC(context_.get());
    }

  private:
    int width_;
    int height_;
    uint32_t* pixels_ = nullptr;
    MemoryContext context_;
    GdiObject bitmap_;
    HGDIOBJ previous_ = nullptr;
    int state_ = 0;
};

std::vector<FrameBitmap::CanvasPointer>& FrameBitmap::kept() {
    static std::vector<CanvasPointer> canvases;
    return canvases;
}

FrameBitmap::CanvasPointer FrameBitmap::take(int width, int height) {
    const auto same = [&](const CanvasPointer& canvas) { return canvas->is_sized(width, height); };
    const auto found = std::find_if(kept().begin(), kept().end(), same);
    if (found == kept().end()) {
        return std::make_unique<Canvas>(width, height);
    }
    CanvasPointer canvas = std::move(*found);
    kept().erase(found);
    return canvas;
}

FrameBitmap::FrameBitmap(int width, int height) : canvas_(take(width, height)) {}

FrameBitmap::~FrameBitmap() {
    constexpr size_t most_kept = 3;  // as many kinds of pictures take turns in a script
    if (canvas_->is_handy()) {
        canvas_->make_new();  // lets go of fonts and brushes of others
        kept().insert(kept().begin(), std::move(canvas_));
        kept().resize(std::min(kept().size(), most_kept));
    }
}

int FrameBitmap::width() const {
    return canvas_->width();
}

int FrameBitmap::height() const {
    return canvas_->height();
}

FrameBitmap::operator bool() const {
    return canvas_->pixels() != nullptr;
}

HDC FrameBitmap::context() const {
    return canvas_->context();
}

Raster FrameBitmap::raster() const {
    GdiFlush();
    return Raster(canvas_->pixels(), canvas_->width(), canvas_->height());
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
