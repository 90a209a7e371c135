// What the pointer looks like while a question is asked, and which entities are shown as selected.
#pragma once

#include <vector>

#include "platform/host/dxf/record.h"
#include "platform/host/view/geometry.h"

namespace host {

struct PointerGuide {
    enum class Kind {
        idle,       ///< no question that a point answers
        crosshair,  ///< a point
        follow,     ///< whatever a command draws at the pointer, which a long cross would undo
        pick_box,   ///< an entity
        line,       ///< a point, with a line from the anchor to it
        rectangle,  ///< a corner, with a rectangle from the anchor to it
        window,     ///< the same, to select what is inside
        crossing,   ///< the same, to select what it touches too
        box,        ///< to the right of the anchor a window, to the left a crossing
    };
    Kind kind = Kind::idle;
    Vec2 anchor;  ///< in world coordinates
};

/// The rectangle from the anchor selects what is there.
inline bool selects(PointerGuide::Kind kind) {
    return kind == PointerGuide::Kind::window || kind == PointerGuide::Kind::crossing ||
           kind == PointerGuide::Kind::box;
}

/// The guide of the innermost question.
const PointerGuide& pointer_guide();

/// Sets the guide for the life of this object.
class PointerGuideScope {
  public:
    explicit PointerGuideScope(const PointerGuide& guide);
    ~PointerGuideScope();
    PointerGuideScope(const PointerGuideScope&) = delete;
    PointerGuideScope& operator=(const PointerGuideScope&) = delete;

  private:
    PointerGuide previous_;
};

/// Something that can show entities as selected.
class SelectionDisplay {
  public:
    virtual ~SelectionDisplay() = default;
    virtual void show_selected(const std::vector<dxf::RecordId>& entities) = 0;
};

/// Null (the default) shows selections nowhere. The caller keeps the object alive.
void set_selection_display(SelectionDisplay* display);

/// Shows a growing selection; when it goes, nothing is shown as selected any more.
class SelectionShown {
  public:
    SelectionShown() = default;
    ~SelectionShown();
    SelectionShown(const SelectionShown&) = delete;
    SelectionShown& operator=(const SelectionShown&) = delete;

    void show(const std::vector<dxf::RecordId>& entities);

  private:
    bool shown_ = false;
};

}  // namespace host
