// CUGPieChartType, the cell's numbers as slices of a pie: one as a share of the label's "max" (100), several as shares
// of their sum. The label's "colors" names their colours, "red, #00FF00"; further ones have colours of their own.
#pragma once

#include <cstddef>

#include "grid/control_type.h"
#include "grid/pie_slices.h"

namespace corvanes {

// The text stands beside the pie.
enum PieChartOption : std::uint32_t { pie_chart_shows_text = 1 };

}  // namespace corvanes

// A click on a slice notifies with its number, the space bar with the text.
class CUGPieChartType : public corvanes::ControlType {
  public:
    const wchar_t* GetName() const override { return L"Pie Chart Type"; }
    RECT TextPlace(const RECT& rect, const CUGCell& cell) const override;
    SIZE BestSize(CDC& dc, const CUGCell& cell) const override;

  protected:
    corvanes::CellNotice notice() const override { return corvanes::notice_pie_chart; }
    void Draw(CDC& dc, const corvanes::ControlScene& scene, const corvanes::CellLook& look) const override;
    int PartAt(CDC& dc, const corvanes::ControlScene& scene, POINT point) const override;
    int KeyPart(const corvanes::ControlScene&) const override { return all_parts; }
    bool HoldsParts() const override { return false; }
    void Act(const Target& target, int part) override;
};
