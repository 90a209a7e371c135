// What dimensions, leaders, tolerances and tables are drawn with: the dimension style, arrowheads, and texts made up
// for them.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/host/view/entity_scope.h"

namespace host {

/// The dimension style of one entity: the one that it names in group 3, with what its extended data overrides. Header
/// variables stand in for a style that is not there.
class DimStyle {
  public:
    explicit DimStyle(const EntityScope& scope);

    // Lengths in drawing units.
    double arrow_size() const { return scaled(41, "$DIMASZ", 0.18); }
    double text_height() const { return scaled(140, "$DIMTXT", 0.18); }
    double gap() const { return std::fabs(scaled(147, "$DIMGAP", 0.09)); }
    double extension_offset() const { return scaled(42, "$DIMEXO", 0.0625); }
    double extension_beyond() const { return scaled(44, "$DIMEXE", 0.18); }

    /// By what measured lengths are multiplied for the text.
    double length_factor() const { return real(144, "$DIMLFAC", 1); }
    int decimals() const;
    bool drops_trailing_zeros() const;
    std::wstring text_style() const;
    /// The colour of lines (176) or texts (178), where it is not that of the entity.
    std::optional<Ink> ink(int code) const;
    /// The block of an arrowhead: 341 a leader's, 343 and 344 a dimension's. Empty for the usual one, a filled
    /// triangle.
    std::wstring arrow(int code) const;

  private:
    const dxf::Group* find(int code) const;
    double real(int code, const char* variable, double absent) const;
    double scaled(int code, const char* variable, double absent) const;

    const EntityScope& scope_;
    std::optional<dxf::RecordFields> style_;
    std::map<int, dxf::Group> overrides_;
};

/// Draws the arrowhead of a line that ends at `tip` and comes from `from`: a block by name, or a filled triangle.
void draw_arrow_head(const EntityScope& scope, const std::wstring& block, const Vec3& tip, const Vec3& from,
                     double size);

/// A text that is drawn for an entity as an MTEXT is, in world coordinates. Lengths are drawing units.
struct MadeText {
    std::wstring value;
    std::wstring style;
    Vec3 position;
    Vec3 direction{1, 0, 0};
    Vec3 normal{0, 0, 1};
    double height = 0;
    double width = 0;    ///< where lines break; 0: nowhere
    int attachment = 1;  ///< 1 to 9, as of an MTEXT
    bool framed = false;
    std::optional<Ink> ground;  ///< what fills the area behind the letters
    double margin = 0;          ///< of the frame or ground around the letters
};
void draw_made_text(const EntityScope& scope, const MadeText& text);

}  // namespace host
