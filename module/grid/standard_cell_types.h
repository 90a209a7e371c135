// The kinds of cells that every grid's table begins with.
#pragma once

#include <array>

#include "grid/advanced_progress_type.h"
#include "grid/arrow_type.h"
#include "grid/auto_font_type.h"
#include "grid/button_type.h"
#include "grid/check_box_type.h"
#include "grid/drop_list_type.h"
#include "grid/ellipsis_type.h"
#include "grid/multi_font_type.h"
#include "grid/pie_chart_type.h"
#include "grid/progress_type.h"
#include "grid/radio_type.h"
#include "grid/slider_type.h"
#include "grid/spin_button_type.h"

namespace corvanes {

class StandardCellTypes {
  public:
    // The types, indexed by StandardCellType.
    std::array<CUGCellType*, standard_cell_types> all() {
        return {
            &normal_, &drop_list_, &check_box_,         &arrow_,     &button_,     &ellipsis_, &spin_button_, &slider_,
            &radio_,  &progress_,  &advanced_progress_, &pie_chart_, &multi_font_, &auto_font_};
    }

  private:
    CUGCellType normal_;
    CUGDropListType drop_list_;
    CUGCheckBoxType check_box_;
    CUGArrowType arrow_;
    CUGButtonType button_;
    CUGEllipsisType ellipsis_;
    CUGSpinButtonType spin_button_;
    CUGSliderType slider_;
    CUGRadioType radio_;
    CUGProgressType progress_;
    CUGAdvProgressType advanced_progress_;
    CUGPieChartType pie_chart_;
    CUGMultiFontType multi_font_;
    CUGAutoFontType auto_font_;
};

}  // namespace corvanes
