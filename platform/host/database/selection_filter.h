// The filter list of a selection.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "adsdef.h"
#include "platform/host/dxf/drawing.h"

namespace host {

/// Group tests joined by -4 operators. Names are compared with their pattern once for each name of the drawing, so that
/// a test of type, layer or block name costs a look-up for each entity.
class SelectionFilter {
  public:
    /// Accepts everything.
    SelectionFilter() = default;
    /// Nothing for a list that is not well-formed, or that tests what cannot be tested.
    static std::optional<SelectionFilter> parse(const struct resbuf* list, const dxf::Drawing& drawing);

    bool accepts(const dxf::Drawing& drawing, dxf::RecordId entity) const;

  private:
    enum class Relation { any, equal, not_equal, less, less_or_equal, greater, greater_or_equal, bits_any, bits_all };
    struct Test {
        int code = 0;
        std::vector<Relation> relations;  ///< one for each coordinate; the last holds for the rest
        std::vector<double> numbers;      ///< of a numeric group
        std::wstring pattern;             ///< of a text group, in lower case
        std::vector<bool> names;          ///< of codes 0, 2 and 8: which names fit, by NameId
    };
    struct Node {
        enum Kind { all_of, any_of, not_all_of, one_of_two, test };
        Kind kind = all_of;
        std::vector<Node> children;
        Test condition;
    };
    class Parser;

    static bool accepts(const Node& node, const dxf::Drawing& drawing, dxf::RecordId entity);
    static bool passes(const Test& test, const dxf::Drawing& drawing, dxf::RecordId entity);
    static bool passes_text(const Test& test, const dxf::Drawing& drawing, dxf::RecordId entity);
    static bool passes_numbers(const Test& test, const dxf::RecordView& entity);
    static bool holds(Relation relation, double left, double right);

    Node root_;
};

}  // namespace host
