// SHAPE, from the files of compiled shapes that lie beside the drawing.
#include "base/code_page.h"
#include "platform/host/dxf/entities.h"
#include "platform/host/view/entity_scope.h"

namespace host {

bool draw_shape(const EntityScope& scope) {
    constexpr double steepest = 85 * pi / 180;
    const std::string name = base::utf8_from_wide(scope.fields.text(2));
    const std::vector<ShapeStroke>& strokes = scope.settings.shape(name);
    const double size = scope.fields.real(40, 1);
    if (strokes.empty() || !scope.out.budget().work(strokes.size())) {
        return false;
    }
    Transform3 slanted;
    slanted.x = {scope.fields.real(41, 1), 0, 0};
    slanted.y = {std::tan(std::clamp(scope.fields.angle(51), -steepest, steepest)), 1, 0};
    const Transform3 map = scope.object_space() * Transform3::translation(scope.fields.point(10)) *
                           Transform3::rotation(scope.fields.angle(50)) * Transform3::scaling({size, size, size}) *
                           slanted;
    for (const ShapeStroke& stroke : strokes) {
        add_path(stroke, false, map, scope.out);
    }
    return true;
}

}  // namespace host
