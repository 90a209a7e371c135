// ControlType, the base of the cell types that show a control: its parts, the mouse and the keys on them.
#pragma once

#include <string>

#include "grid/cell_type.h"
#include "grid/control_drawing.h"
#include "grid/control_layout.h"
#include "grid/grid_notifications.h"

namespace corvanes {

// Option bits that all types with a control know; each type's own bits begin at 1.
enum ControlOption : std::uint32_t { control_disabled = 0x10000, control_right_to_left = 0x20000 };

// One cell for the time of one event or painting. Its parts are laid out from left to right and mirrored where the cell
// goes the other way: it has the option, or Hebrew in its text or label.
struct ControlScene {
    // `aligned_right`: the texts of the cell's column stand at the right.
    ControlScene(const CUGCell& of, const RECT& rect, bool aligned_right = false);

    const wchar_t* text() const { return cell.GetText() != nullptr ? cell.GetText() : L""; }
    const wchar_t* label() const { return cell.GetLabelText() != nullptr ? cell.GetLabelText() : L""; }
    bool has_option(std::uint32_t bit) const { return (cell.GetCellTypeOptions() & bit) != 0; }
    // From the layout to the window, and back.
    Box shown(const Box& part) const { return right_to_left ? mirrored(part, box) : part; }
    POINT laid_out(POINT point) const;

    const CUGCell& cell;
    Box box;
    bool right_to_left;
    bool text_at_right;
    bool disabled;
};

// The scene of a cell of a grid, with the cell's record; valid until the cell changes.
struct CellScene {
    CellScene(CellGrid& grid, const CellPlace& place);
    CellScene(const CellScene&) = delete;
    CellScene& operator=(const CellScene&) = delete;

    CUGCell cell;
    ControlScene scene;
};

// Pressing a part of an enabled cell holds it until the release; over the part that acts. F4 and Alt+Down act as well,
// and the space bar where the cell is not there to type into.
class ControlType : public CUGCellType {
  public:
    void OnDraw(CDC& dc, const RECT& rect, const CUGCell& cell, const CellLook& look) final;
    bool CutsText(CDC&, const RECT&, const CUGCell&) const override { return false; }
    bool TextAtRight(const CUGCell& cell) const override;
    bool OnLeftClick(CellGrid& grid, const CellPlace& place, int updn, POINT point) final;
    bool OnKeyDown(CellGrid& grid, const CellPlace& place, UINT key) final;
    bool OnCharDown(CellGrid& grid, const CellPlace& place, UINT character) final;
    bool OnWheel(CellGrid& grid, const CellPlace& place, int notches) final;
    void OnDrag(CellGrid& grid, const CellPlace& place, POINT point) override;
    void OnRelease(CellGrid& grid, const CellPlace& place, const CellHold& hold) override;

  protected:
    // Parts count from 1.
    static constexpr int no_part = 0;
    static constexpr int first_part = 1;
    // Stands for what the keyboard acts on in a cell with several parts.
    static constexpr int all_parts = -1;

    // An event, as it comes to one cell.
    struct Target {
        CellGrid& grid;
        const CellPlace& place;
        const ControlScene& scene;
    };

    virtual CellNotice notice() const = 0;
    // Draws over the background, which is filled already; nothing shows outside of the cell. What is selected into `dc`
    // and set there need not be set back.
    virtual void Draw(CDC& dc, const ControlScene& scene, const CellLook& look) const = 0;
    // The part at a point of the layout. `dc` has the grid's font selected.
    virtual int PartAt(CDC& dc, const ControlScene& scene, POINT point) const = 0;
    virtual int KeyPart(const ControlScene& /*scene*/) const { return first_part; }
    virtual bool TakesSpace() const { return true; }
    // Whether a press holds the part. Else the click does not keep the grid from selecting and editing; a release in
    // the same cell acts.
    virtual bool HoldsParts() const { return true; }
    virtual void OnPress(const Target& target, int part, POINT point);
    virtual void Act(const Target& target, int part);
    // Acts on a key without Ctrl and Alt; true when the key was meant for the control.
    virtual bool OnControlKey(const Target& /*target*/, UINT /*key*/) { return false; }
    virtual bool OnControlWheel(const Target& /*target*/, int /*notches*/) { return false; }

    // After a call of one of these the cell, its row and the grid's window may be gone.
    void Notify(CellGrid& grid, const CellPlace& place, int part, const std::wstring& value) const;
    // Stores another text through OnGridEditVerify and OnGridEditFinish, and notifies. False when the text was refused
    // or is the cell's already.
    bool ChangeText(const Target& target, const std::wstring& text, int part) const;
    // The part under a point in the window's coordinates.
    int PartUnder(const Target& target, POINT point) const;
};

}  // namespace corvanes
