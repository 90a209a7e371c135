// A drawing's space ready to be painted and picked from.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/host/dxf/drawing.h"
#include "platform/host/view/picture.h"
#include "platform/host/view/picture_budget.h"

namespace host {

/// The moment in the life of a drawing that a display list shows.
struct DrawnState {
    uint64_t serial = 0;  ///< Drawing::serial()
    uint64_t edits = 0;   ///< Drawing::edits_made()
    size_t changes = 0;   ///< of Drawing::changed_records()
    dxf::RecordId records = 0;
    dxf::BlockId blocks = 0;
    dxf::NameId block_names = 0;

    static DrawnState of(const dxf::Drawing& drawing);
    bool operator==(const DrawnState&) const = default;

    /// Whether what was drawn then looks the same now, so that only what came later need be drawn. `lacking`: what was
    /// drawn names a style or a block that was not there.
    bool still_holds(const dxf::Drawing& drawing, bool lacking) const;
};

/// What inherited colours, linetypes and layer 0 mean at one place of the tree of pictures.
struct Surroundings {
    Ink ink = Ink::foreground();
    Ink layer_ink = Ink::foreground();
    bool layer_zero_shown = true;
    uint16_t pattern = LinePattern::continuous;
    uint16_t layer_pattern = LinePattern::continuous;
    uint8_t weight = LineWeight::thin;
    uint8_t layer_weight = LineWeight::thin;
    bool operator==(const Surroundings& other) const = default;

    Ink resolve(Ink wanted) const {
        return wanted == Ink::by_block() ? ink : wanted == Ink::by_block_layer() ? layer_ink : wanted;
    }
    uint16_t resolve_pattern(uint16_t wanted) const {
        return wanted == LinePattern::of_block         ? pattern
               : wanted == LinePattern::of_block_layer ? layer_pattern
                                                       : wanted;
    }
    uint8_t resolve_weight(uint8_t wanted) const {
        return wanted == LineWeight::of_block ? weight : wanted == LineWeight::of_block_layer ? layer_weight : wanted;
    }
    bool shows(const Primitive& primitive) const { return layer_zero_shown || !primitive.on_layer_zero; }
    Surroundings inside(const Instance& instance) const {
        const bool shown = instance.layer_zero == Instance::LayerZero::inherited
                               ? layer_zero_shown
                               : instance.layer_zero == Instance::LayerZero::shown;
        return {resolve(instance.ink),
                resolve(instance.layer_ink),
                shown,
                resolve_pattern(instance.pattern),
                resolve_pattern(instance.layer_pattern),
                resolve_weight(instance.weight),
                resolve_weight(instance.layer_weight)};
    }
};

/// Independent of the drawing that it was built from, and never changed while somebody has it.
struct DisplayList {
    enum class Space { model, paper };

    std::vector<Picture> pictures;  ///< every block that is used, once; references to it are instances
    Picture top;                    ///< the space itself: its entities in order
    std::vector<FontFace> fonts;
    std::vector<LinePattern> patterns;  ///< the first one is continuous
    Surroundings surroundings;          ///< of the top picture
    bool shows_weights = false;         ///< the drawing wants its line weights to be seen on the screen
    bool stopped = false;               ///< not all was looked at, since nobody waited for it
    size_t left_out = 0;                ///< entities that are not shown, or not whole, for they would take too much

    std::map<std::wstring, size_t> not_shown;  ///< entities of kinds that nothing is known to draw of, by kind

    // For a list that goes on where this one ended.
    Space space = Space::model;
    DrawnState state;
    std::vector<uint32_t> picture_of_block;  ///< by BlockId; no_picture where none was needed
    PictureBudget budget{PictureLimits()};   ///< what is left of it
    bool lacking = false;                    ///< something names a text style or a block that is not there
    static constexpr uint32_t no_picture = 0xFFFFFFFF;

    /// Around everything that is in the space; empty for an empty one.
    const Box2& extents() const { return top.box; }

    /// One in which nothing is drawn yet.
    static DisplayList blank(Space space, const PictureLimits& limits);
    /// A list of all that the space has, within the usual limits for a drawing of this size, or within others.
    static DisplayList build(const dxf::Drawing& drawing, Space space = Space::model);
    static DisplayList build(const dxf::Drawing& drawing, Space space, const PictureLimits& limits);
    /// The list that somebody has of this state of the drawing, or a new one: who looks at the same shares it. A
    /// `former` list that nobody else has is given up for it: where edits only added things since then, they are drawn
    /// into it, which takes no time for what was there. It waits for a list that was begun. On the main thread only.
    static std::shared_ptr<const DisplayList> shared(const dxf::Drawing& drawing, Space space = Space::model,
                                                     std::shared_ptr<const DisplayList> former = nullptr);
    /// Begins a list of the drawing on another thread, for the next call of shared(). On the main thread only.
    static void begin(dxf::Drawing& drawing, Space space);
};

}  // namespace host
