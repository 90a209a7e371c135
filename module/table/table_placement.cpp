#include "table/table_placement.h"

#include <aced.h>
#include <dbents.h>
#include <dbobjptr.h>

#include "table/rubber_band.h"

namespace corvanes {
namespace {

/// Holds the variables at 0 while it lives.
class PlacementVariables {
  public:
    PlacementVariables() {
        hold(L"ATTREQ", attribute_requests_);
        hold(L"CMDECHO", command_echo_);
        hold(L"SNAPMODE", snap_);
        resbuf object_snap{};
        hold(L"OSMODE", object_snap);
    }
    ~PlacementVariables() {
        acedSetVar(L"ATTREQ", &attribute_requests_);
        acedSetVar(L"CMDECHO", &command_echo_);
        acedSetVar(L"SNAPMODE", &snap_);
        // Object snap gets the value that snap had, so that a person who works without snap gets a free pointer back.
        acedSetVar(L"OSMODE", &snap_);
    }
    PlacementVariables(const PlacementVariables&) = delete;
    PlacementVariables& operator=(const PlacementVariables&) = delete;

  private:
    static void hold(const wchar_t* name, resbuf& saved) {
        acedGetVar(name, &saved);
        resbuf working{};
        acedGetVar(name, &working);
        working.resval.rint = 0;
        acedSetVar(name, &working);
    }

    resbuf attribute_requests_{};
    resbuf command_echo_{};
    resbuf snap_{};
};

void draw_vector(TablePoint from, TablePoint to) {
    constexpr int complementing = -1;
    constexpr int highlighted = 1;
    const ads_point start = {from.x, from.y, 0};
    const ads_point end = {to.x, to.y, 0};
    acedGrDraw(start, end, complementing, highlighted);
}

void draw_frame(const Frame& frame) {
    const TablePoint lower_left = {frame.upper_left.x, frame.lower_right.y};
    const TablePoint upper_right = {frame.lower_right.x, frame.upper_left.y};
    draw_vector(lower_left, frame.lower_right);
    draw_vector(frame.lower_right, upper_right);
    draw_vector(upper_right, frame.upper_left);
    draw_vector(frame.upper_left, lower_left);
}

double rubber_band_scale(TablePoint upper_left, double width, double height) {
    constexpr int follow_pointer_without_break_message = 9;
    constexpr int keyboard = 2;
    constexpr int pick = 3;
    constexpr int return_key = 13;
    RubberBand band(upper_left, width, height);
    for (;;) {
        int kind = 0;
        resbuf event{};
        if (acedGrRead(follow_pointer_without_break_message, &kind, &event) != RTNORM) {
            draw_frame(band.frame());
            acutPrintf(L"\n*CANCEL*\n");
            return 1;
        }
        if (kind == keyboard && event.resval.rint == return_key) {
            draw_frame(band.frame());
            return 1;
        }
        if (kind == pick) {
            draw_frame(band.frame());
            return band.picked_scale();
        }
        if (event.restype != RT3DPOINT && event.restype != RTPOINT) {
            continue;  // only pointer events carry a place
        }
        if (const auto erased = band.move({event.resval.rpoint[0], event.resval.rpoint[1]})) {
            draw_frame(*erased);
        }
        draw_frame(band.frame());
    }
}

}  // namespace

void place_table(const std::wstring& block_name, double width, double height) {
    constexpr int no_empty_input = 1;
    const PlacementVariables held;
    acedInitGet(no_empty_input, nullptr);
    ads_point corner = {0, 0, 0};
    if (acedGetPoint(nullptr, L"\nUpper left corner of table: ", corner) == RTCAN) {
        return;
    }
    acutPrintf(L"\nLower right corner (or RETURN): ");
    const double scale = rubber_band_scale({corner[0], corner[1]}, width, height);
    if (block_name.empty()) {
        return;  // Return in the dialog leads here when no table was built
    }
    acedCommand(RTSTR, L".INSERT", RTSTR, block_name.c_str(), RT3DPOINT, corner, RTREAL, scale, RTREAL, scale, RTSTR,
                L"0", 0);
}

bool GetInsertPoint(const ads_name reference_name, AcGePoint3d& point) {
    AcDbObjectId id;
    acdbGetObjectId(id, reference_name);
    const AcDbObjectPointer<AcDbBlockReference> reference(id, AcDb::kForRead);
    if (reference.openStatus() != Acad::eOk) {
        acedAlert(L"\nGetInsertPoint:Cannot open an object");
        return false;
    }
    point.set(reference->position().x, reference->position().y, 0);
    return true;
}

}  // namespace corvanes
