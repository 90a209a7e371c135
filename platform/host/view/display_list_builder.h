// Builds a display list from a drawing.
#pragma once

#include <optional>
#include <vector>

#include "platform/host/view/display_list.h"
#include "platform/host/view/draw_order.h"
#include "platform/host/view/entity_scope.h"
#include "platform/host/view/style_tables.h"

namespace host {

/// How entities of a type are drawn.
struct EntityKind {
    const wchar_t* type;
    void (*draw)(const EntityScope&);
    /// By a block of their own that group 2 names, as long as there is one.
    bool has_block = false;
};

class DisplayListBuilder {
  public:
    /// `list`: what was drawn before, which holds for the drawing still, or one in which nothing is drawn.
    DisplayListBuilder(const dxf::Drawing& drawing, DisplayList list);

    /// The list with all that the drawing has now.
    DisplayList build();
    /// The box around a block with its base point at 0, 0.
    Box2 area_of(dxf::BlockId block);

  private:
    static constexpr size_t steps_of_sorting = 30;  ///< for each entity

    /// Where entities stand and where their primitives go.
    struct Target {
        PictureBuilder& out;
        Transform3 space;
        bool in_block;
        bool anew = false;  ///< a tilted block, which is drawn for each reference
    };
    /// A block reference's copies: the first one's place, and the steps to the others.
    struct Copies {
        Transform3 first;
        Vec3 column_step;
        Vec3 row_step;
        uint32_t columns = 1;
        uint32_t rows = 1;
    };

    /// Calls draw(id) for the entities of a space or block in the order in which they are drawn.
    template <typename Draw>
    void draw_all(const std::wstring& owner, const dxf::RecordRun& entities, Draw draw) {
        if (order_.governs(owner) && list_.budget.work(entities.size() * steps_of_sorting)) {
            const std::vector<dxf::RecordId> sorted = order_.sorted(owner, entities);
            std::for_each(sorted.begin(), sorted.end(), draw);
        } else {
            std::for_each(entities.begin(), entities.end(), draw);
        }
    }
    /// Places blocks for the entity in `fields_`.
    class PartPlacer final : public BlockPlacer {
      public:
        PartPlacer(DisplayListBuilder& builder, dxf::RecordId id, const Target& target)
            : builder_(builder), id_(id), target_(target) {}
        bool place(const std::wstring& block, const Transform3& where) override;

      private:
        DisplayListBuilder& builder_;
        const dxf::RecordId id_;
        const Target& target_;
    };

    void draw_record(dxf::RecordId id, const Target& target);
    void draw_plain(dxf::RecordId id, const dxf::RecordView& record, const Target& target);
    void draw_insert(dxf::RecordId id, const dxf::RecordView& record, dxf::NameId layer, const Target& target);
    void draw_attributes(dxf::RecordId id, const dxf::RecordView& record, const Instance& look, const Target& target);
    bool draw_own_block(dxf::RecordId id, dxf::NameId layer, const Target& target);

    Copies read_copies(const Vec3& base) const;
    void place_block(dxf::RecordId id, dxf::BlockId block, const Copies& copies, const Instance& look,
                     const Target& target, const dxf::RecordView& record);
    void place_tilted(dxf::BlockId block, const Copies& copies, const Instance& look, const Target& target,
                      const dxf::RecordView& record);
    std::vector<Vec2> clip_in(const Transform3& placement, const dxf::RecordView& record);
    void clip(dxf::RecordId id, Instance& placed, std::vector<Vec2> boundary);
    uint32_t add_picture(Picture picture);

    /// The block's picture; DisplayList::no_picture for a block that is being drawn, for it contains itself.
    uint32_t picture_of(dxf::BlockId block);
    Picture draw_block(dxf::BlockId block, const Transform3& space, bool anew);
    const Vec3& base_of(dxf::BlockId block);
    dxf::BlockId block_named(const std::wstring& name) const;

    bool visible(dxf::NameId layer, bool in_block) const;
    Ink ink_of(dxf::NameId layer) const;
    uint16_t pattern_of(dxf::NameId layer);
    uint8_t weight_of(dxf::NameId layer) const;
    Instance look_of(dxf::NameId layer);

    /// How the entities of a type are drawn; null for a type that nothing is known of.
    const EntityKind* kind_of(uint16_t type);
    EntityScope scope_of(const dxf::RecordView& record, const Target& target, BlockPlacer& blocks);

    const dxf::Drawing& drawing_;
    LayerStates layers_;
    LineTypes line_types_;
    TextStyles styles_;
    DrawingSettings settings_;
    DrawOrder order_;
    dxf::RecordFields fields_;
    std::vector<std::optional<const EntityKind*>> kinds_;  ///< by record type, found when one is first met
    std::vector<std::optional<Vec3>> base_of_block_;       ///< by BlockId, read when one is first met
    std::vector<bool> being_drawn_;                        ///< by BlockId
    size_t depth_ = 0;
    DisplayList list_;
};

}  // namespace host
