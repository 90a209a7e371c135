// What a drawing's space or block looks like: flat primitives in the order in which they are drawn.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/host/dxf/record.h"
#include "platform/host/view/box_tree.h"
#include "platform/host/view/curves.h"
#include "platform/host/view/geometry.h"
#include "platform/host/view/pen.h"
#include "platform/host/view/text_item.h"

namespace host {

/// Copies of something in rows and columns, the first one at its own place.
struct Repeats {
    Vec2 column_step;
    Vec2 row_step;
    uint32_t columns = 1;
    uint32_t rows = 1;

    Vec2 offset(uint32_t column, uint32_t row) const {
        return column_step * static_cast<double>(column) + row_step * static_cast<double>(row);
    }
    /// Around all copies, where `one` is around the first.
    Box2 around(const Box2& one) const;

    /// Calls visit(offset) row by row for the copies whose boxes touch `area`, and for some of their neighbours, until
    /// it gives false. Of copies nearer to each other than `detail` one stands for the others; 0 visits all.
    template <typename Visit>
    void visit(const Box2& one, const Box2& area, double detail, Visit visit) const {
        const uint32_t column_stride = stride(column_step, columns, detail);
        const uint32_t row_stride = stride(row_step, rows, detail);
        const Range seen_rows = seen(Repeats{column_step, {}, columns, 1}.around(one), row_step, rows, area);
        for (uint32_t row = seen_rows.first(row_stride); row < seen_rows.end; row += row_stride) {
            const Vec2 moved = offset(0, row);
            const Range seen_columns = seen({one.low + moved, one.high + moved}, column_step, columns, area);
            for (uint32_t column = seen_columns.first(column_stride); column < seen_columns.end;
                 column += column_stride) {
                if (!visit(offset(column, row))) {
                    return;
                }
            }
        }
    }

  private:
    struct Range {
        uint32_t begin = 0;
        uint32_t end = 0;
        /// The first number that is a multiple of the stride, so that the same copies stand for the others wherever the
        /// area is; the one before the range, if need be.
        uint32_t first(uint32_t stride) const { return begin / stride * stride; }
    };
    static uint32_t stride(Vec2 step, uint32_t count, double detail);
    /// Which of the boxes that follow each other by `step` touch the area, and perhaps one more at each end.
    static Range seen(const Box2& first, Vec2 step, uint32_t count, const Box2& area);
};

/// One thing that is drawn. What does not fit into it (points, an arc, a text, an instance) is in the picture's lists.
struct Primitive {
    enum class Kind : uint8_t {
        strip,     ///< connected lines through `count` points
        fill,      ///< the area inside a polygon of `count` points by the even-odd rule
        dot,       ///< one point
        arc,       ///< one of Picture::arcs
        text,      ///< one of Picture::texts
        instance,  ///< one of Picture::instances
    };

    Box2 box;
    uint32_t first = 0;  ///< the first of the points, or the place in the kind's own list
    uint32_t count = 0;
    dxf::RecordId entity = dxf::no_record;  ///< the entity that it belongs to; one entity's primitives stand together
    Ink ink;                                ///< of an instance: the colour that stands for all of it
    Kind kind = Kind::strip;
    /// On layer 0: inside a block it is seen exactly where the block reference's layer is.
    bool on_layer_zero = false;
    /// A construction line, or a block of nothing else: it says nothing about how large the drawing is.
    bool endless = false;
    /// A fill of several contours, whose polygon has bridges between them that must not be seen.
    bool bridged = false;
    /// Of lines and arcs: a number of DisplayList::patterns, or one that stands for another.
    uint16_t pattern = LinePattern::continuous;
    uint8_t weight = LineWeight::thin;  ///< of lines and arcs
};
static_assert(sizeof(Primitive) <= 56, "a million of them are in one list");

/// A picture placed in another one, once or several times.
struct Instance {
    enum class LayerZero : uint8_t { shown, hidden, inherited };
    static constexpr uint32_t once = 0xFFFFFFFF;

    Affine2 placement;
    uint32_t picture = 0;     ///< in DisplayList::pictures
    uint32_t repeats = once;  ///< in Picture::repeats
    Ink ink;                  ///< what by_block() means inside
    Ink layer_ink;            ///< what by_block_layer() means inside
    LayerZero layer_zero = LayerZero::shown;
    uint8_t weight = LineWeight::thin;                 ///< what LineWeight::of_block means inside
    uint16_t pattern = LinePattern::continuous;        ///< what LinePattern::of_block means inside
    uint16_t layer_pattern = LinePattern::continuous;  ///< what LinePattern::of_block_layer means inside
    uint8_t layer_weight = LineWeight::thin;           ///< what LineWeight::of_block_layer means inside
};
static_assert(sizeof(Instance) <= 72, "a million of them are in one list");

struct Picture {
    std::vector<Primitive> primitives;
    std::vector<Vec2> points;
    std::vector<Arc> arcs;
    std::vector<TextItem> texts;
    std::vector<Instance> instances;
    std::vector<Repeats> repeats;
    std::vector<Vec2> clip;  ///< a polygon outside of which nothing of it is seen; empty for none
    Box2 box;                ///< around all primitives that are not endless
    Box2 reach;              ///< around all primitives

    /// There are so many primitives that a visit finds them through a tree.
    bool many() const { return primitives.size() > 64; }
    /// Nothing in it says how large it is.
    bool endless() const { return box.empty() && !reach.empty(); }
    /// Computes the boxes of what was added since the last time.
    void finish();
    /// Cuts a finished picture off outside of a polygon.
    void clip_to(std::vector<Vec2> polygon);

    auto box_of() const {
        return [this](uint32_t number) -> const Box2& { return primitives[number].box; };
    }
    /// Makes ready for visit(), which does it otherwise when it is first called.
    void settle_tree() const {
        if (many() && primitives.size() - in_tree_ > in_tree_ / 8) {
            tree_ = BoxTree(primitives.size(), box_of());
            in_tree_ = static_cast<uint32_t>(primitives.size());
        }
    }
    /// Calls visit(number) for primitives that touch `area`, in no order. See BoxTree::visit.
    template <typename Visit>
    void visit(const Box2& area, double detail, Visit visit) const {
        if (many()) {
            settle_tree();
            tree_.visit(area, detail, box_of(), visit);
        }
        for (uint32_t number = in_tree_; number < primitives.size(); ++number) {
            if (primitives[number].box.intersects(area)) {
                visit(number);
            }
        }
    }

  private:
    size_t finished_ = 0;           ///< primitives that the boxes are around
    mutable BoxTree tree_;          ///< over many primitives, made when they are first visited: extents alone need none
    mutable uint32_t in_tree_ = 0;  ///< primitives that the tree is over: what was added later stands behind them
};

}  // namespace host
