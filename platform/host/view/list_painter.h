// Paints a display list into pixels.
#pragma once

#include <algorithm>
#include <limits>
#include <vector>

#include "platform/host/view/display_list.h"
#include "platform/host/view/outline.h"
#include "platform/host/view/raster.h"
#include "platform/host/view/view_transform.h"

namespace host {

struct PaintColours {
    uint32_t background = 0x000000;
    /// Colour 7.
    uint32_t foreground() const { return is_dark(background) ? 0xFFFFFF : 0x000000; }
    /// The colour of an area, which may be one that hides what lies under it.
    uint32_t of_area(Ink ink) const;
    /// The colour of a line or text: one that could not be told from the background becomes the foreground.
    uint32_t of_line(Ink ink) const;
    static bool is_dark(uint32_t colour);
};

/// Records of a drawing: a bit each, since all may be selected.
class EntitySet {
  public:
    EntitySet() = default;
    explicit EntitySet(const std::vector<dxf::RecordId>& entities) {
        for (const dxf::RecordId id : entities) {
            if (id >= has_.size()) {
                has_.resize(std::max<size_t>(id + size_t{1}, 2 * has_.size()));
            }
            has_[id] = true;
        }
    }
    bool empty() const { return has_.empty(); }
    bool has(dxf::RecordId id) const { return id < has_.size() && has_[id]; }

  private:
    std::vector<bool> has_;
};

class ListPainter {
  public:
    /// All of them must outlive the painter. Without a typesetter texts are lines.
    ListPainter(const DisplayList& list, const ViewTransform& view, Raster& raster, Typesetter* typesetter = nullptr);

    /// Whether line weights are seen: as the drawing says, if nobody says other.
    void show_weights(bool shown) { weights_ = shown; }
    /// Of texts that can hardly be read, those behind the first `most_small_texts` are painted as lines.
    void paint(const PaintColours& colours, const EntitySet& highlighted = {},
               size_t most_small_texts = std::numeric_limits<size_t>::max());

  private:
    struct Placing {
        Affine2 to_pixels;
        Surroundings surroundings;
        double scale = to_pixels.scale();
    };
    void paint_picture(const Picture& picture, const Placing& placing);
    void paint_primitives(const Picture& picture, const Placing& placing);
    void paint_sample(const Picture& picture, const Placing& placing);
    void paint_primitive(const Picture& picture, const Primitive& primitive, const Placing& placing);
    void paint_points(const Picture& picture, const Primitive& primitive, const Placing& placing);
    void paint_strip(const Primitive& primitive, const Surroundings& surroundings);
    void paint_instances(const Picture& holder, const Instance& instance, const Placing& placing);
    void paint_instance(const Instance& instance, const Placing& placing);
    void paint_text(const TextItem& item, const Affine2& to_pixels);
    void project(const Outline& outline, const Affine2& to_pixels);
    void project(const Picture& picture, const Primitive& primitive, const Affine2& to_pixels);

    const DisplayList& list_;
    const ViewTransform& view_;
    Raster& raster_;
    PaintColours colours_;
    const EntitySet* highlighted_ = nullptr;
    bool weights_ = false;
    bool highlighting_ = false;  ///< the entity that is being painted is highlighted
    size_t depth_ = 0;
    size_t effort_ = 0;  ///< primitives inside of blocks painted so far
    size_t clips_ = 0;   ///< boundaries around what is being painted
    std::vector<Vec2> points_;
    std::vector<Vec2> dashes_;
    std::vector<LinePattern> patterns_;  ///< the list's, in pixels
    Typesetter* typesetter_;
    SmoothFill smooth_;
    Outline outline_;
    size_t small_texts_left_ = 0;
};

}  // namespace host
