#include "platform/host/database/selection_filter.h"

#include <algorithm>
#include <map>

#include "base/case_folding.h"
#include "platform/host/database/block_catalogue.h"
#include "platform/host/database/name_pattern.h"
#include "platform/host/database/result_buffer.h"
#include "platform/host/dxf/record_fields.h"

namespace host {
namespace {

constexpr int type_code = 0;
constexpr int name_code = 2;
constexpr int layer_code = 8;
constexpr int colour_code = 62;
constexpr int paper_space_code = 67;
constexpr int layout_code = 410;
constexpr int colour_by_layer = 256;

constexpr short operator_code = -4;
/// Deeper lists are refused: nobody writes them.
constexpr int deepest = 64;

std::vector<bool> fitting_names(const dxf::NameTable& names, const std::wstring& pattern) {
    const NamePattern compiled(pattern);
    std::vector<bool> fit(names.size());
    for (dxf::NameId name = 0; name < names.size(); ++name) {
        fit[name] = compiled.matches(base::lower(names.name(name)));
    }
    return fit;
}

bool name_fits(const std::vector<bool>& names, dxf::NameId name) {
    return name < names.size() && names[name];
}

/// The active paper space's BLOCK_RECORD, by which its layout is known.
uint64_t paper_space_handle(const dxf::Drawing& drawing) {
    const dxf::RecordId entry = drawing.table_entry("BLOCK_RECORD", L"*Paper_Space");
    return entry == dxf::no_record ? 0 : drawing.record(entry).handle;
}

/// A LAYOUT's own groups stand behind those of its plot settings, which use the same codes.
std::optional<std::wstring> name_of_layout_for(const dxf::RecordView& layout, uint64_t block) {
    std::wstring name;
    bool own = false;
    bool belongs = false;
    for (const dxf::Group& group : dxf::RecordFields(layout).groups()) {
        own = own || (group.code == 100 && group.word() == "AcDbLayout");
        if (own && group.code == 1 && name.empty()) {
            name = layout.decode(group.value);
        }
        belongs = belongs || (own && group.code == 330 && group.handle() == block);
    }
    return belongs && !name.empty() ? std::optional(name) : std::nullopt;
}

/// The name of the layout that an entity of the ENTITIES section stands in: "Model", or that of the active paper space
/// ("Layout1" where the drawing does not say).
std::wstring layout_name(const dxf::Drawing& drawing, bool paper_space) {
    if (!paper_space) {
        return L"Model";
    }
    const uint64_t block = paper_space_handle(drawing);
    const std::wstring_view layout_type = L"LAYOUT";
    for (const dxf::RecordId object : drawing.objects()) {
        if (block != 0 && drawing.type_names().name(drawing.record(object).type) == layout_type) {
            if (auto name = name_of_layout_for(drawing.view(object), block)) {
                return *name;
            }
        }
    }
    return L"Layout1";
}

}  // namespace

/// Walks the list once from its beginning.
class SelectionFilter::Parser {
  public:
    Parser(const struct resbuf* list, const dxf::Drawing& drawing) : at_(list), drawing_(drawing) {}

    /// Everything up to the closing operator (empty: up to the end of the list).
    bool read_group(Node& group, std::wstring_view closing, int depth) {
        while (at_ != nullptr) {
            if (at_->restype != operator_code) {
                if (!read_test(group, {Relation::equal})) {
                    return false;
                }
                continue;
            }
            const std::wstring word = operator_word();
            at_ = at_->rbnext;
            if (word == closing) {
                return true;
            }
            if (!read_operator(group, word, depth)) {
                return false;
            }
        }
        return closing.empty();
    }

  private:
    struct Brackets {
        std::wstring_view closing;
        Node::Kind kind;
    };

    std::wstring operator_word() const {
        return at_->resval.rstring == nullptr ? std::wstring() : base::lower(at_->resval.rstring);
    }

    bool read_operator(Node& group, const std::wstring& word, int depth) {
        static const std::map<std::wstring_view, Brackets> brackets = {
            {L"<and", {L"and>", Node::all_of}},
            {L"<or", {L"or>", Node::any_of}},
            {L"<not", {L"not>", Node::not_all_of}},
            {L"<xor", {L"xor>", Node::one_of_two}},
        };
        const auto opening = brackets.find(word);
        if (opening != brackets.end()) {
            Node& inner = group.children.emplace_back();
            inner.kind = opening->second.kind;
            return depth < deepest && read_group(inner, opening->second.closing, depth + 1);
        }
        std::vector<Relation> relations;
        return read_relations(word, relations) && at_ != nullptr && at_->restype != operator_code &&
               read_test(group, std::move(relations));
    }

    static bool read_relations(std::wstring_view words, std::vector<Relation>& relations) {
        static const std::map<std::wstring_view, Relation> known = {
            {L"*", Relation::any},
            {L"=", Relation::equal},
            {L"!=", Relation::not_equal},
            {L"/=", Relation::not_equal},
            {L"<>", Relation::not_equal},
            {L"<", Relation::less},
            {L"<=", Relation::less_or_equal},
            {L">", Relation::greater},
            {L">=", Relation::greater_or_equal},
            {L"&", Relation::bits_any},
            {L"&=", Relation::bits_all},
        };
        for (size_t begin = 0; begin <= words.size();) {
            const size_t end = std::min(words.find(L',', begin), words.size());
            const auto found = known.find(words.substr(begin, end - begin));
            if (found == known.end()) {
                return false;
            }
            relations.push_back(found->second);
            begin = end + 1;
        }
        return true;
    }

    bool read_test(Node& group, std::vector<Relation> relations) {
        Node& node = group.children.emplace_back();
        node.kind = Node::test;
        Test& test = node.condition;
        test.code = at_->restype;
        test.relations = std::move(relations);
        const bool understood = read_value(test);
        at_ = at_->rbnext;
        return understood;
    }

    bool read_value(Test& test) const {
        switch (kind_of_result(test.code)) {
            case ResultKind::text:
                return read_pattern(test);
            case ResultKind::real:
                test.numbers = {at_->resval.rreal};
                return true;
            case ResultKind::short_integer:
                test.numbers = {static_cast<double>(at_->resval.rint)};
                return true;
            case ResultKind::long_integer:
                test.numbers = {static_cast<double>(at_->resval.rlong)};
                return true;
            case ResultKind::point:
                test.numbers.assign(at_->resval.rpoint, at_->resval.rpoint + (test.relations.size() == 2 ? 2 : 3));
                return true;
            default:
                return false;
        }
    }

    bool read_pattern(Test& test) const {
        if (at_->resval.rstring == nullptr) {
            return false;
        }
        test.pattern = base::lower(at_->resval.rstring);
        if (test.code == type_code) {
            test.names = fitting_names(drawing_.type_names(), test.pattern);
        } else if (test.code == name_code) {
            test.names = fitting_names(drawing_.block_names(), test.pattern);
        } else if (test.code == layer_code) {
            test.names = fitting_names(drawing_.layer_names(), test.pattern);
        }
        return true;
    }

    const struct resbuf* at_;
    const dxf::Drawing& drawing_;
};

std::optional<SelectionFilter> SelectionFilter::parse(const struct resbuf* list, const dxf::Drawing& drawing) {
    SelectionFilter filter;
    const bool understood = Parser(list, drawing).read_group(filter.root_, {}, 0);
    return understood ? std::optional(std::move(filter)) : std::nullopt;
}

bool SelectionFilter::accepts(const dxf::Drawing& drawing, dxf::RecordId entity) const {
    return accepts(root_, drawing, entity);
}

bool SelectionFilter::accepts(const Node& node, const dxf::Drawing& drawing, dxf::RecordId entity) {
    const auto accepted = [&](const Node& child) { return accepts(child, drawing, entity); };
    const std::vector<Node>& children = node.children;
    switch (node.kind) {
        case Node::test:
            return passes(node.condition, drawing, entity);
        case Node::all_of:
            return std::all_of(children.begin(), children.end(), accepted);
        case Node::any_of:
            return std::any_of(children.begin(), children.end(), accepted);
        case Node::not_all_of:
            return !std::all_of(children.begin(), children.end(), accepted);
        case Node::one_of_two:
            break;
    }
    return std::count_if(children.begin(), children.end(), accepted) == 1;
}

bool SelectionFilter::passes(const Test& test, const dxf::Drawing& drawing, dxf::RecordId entity) {
    const dxf::Record& record = drawing.record(entity);
    switch (test.code) {
        case type_code:
            return name_fits(test.names, record.type);
        case layer_code:
            return record.layer == dxf::no_name ? NamePattern(test.pattern).matches(L"0")
                                                : name_fits(test.names, record.layer);
        case name_code:
            return record.type == dxf::type_insert ? name_fits(test.names, record.block_name)
                                                   : passes_text(test, drawing, entity);
        case layout_code:
            return NamePattern(test.pattern)
                .matches(base::lower(layout_name(drawing, record.is(dxf::Record::paper_space))));
        case paper_space_code:
            return holds(test.relations[0], record.is(dxf::Record::paper_space) ? 1 : 0, test.numbers[0]);
        default:
            return test.numbers.empty() ? passes_text(test, drawing, entity)
                                        : passes_numbers(test, drawing.view(entity));
    }
}

bool SelectionFilter::passes_text(const Test& test, const dxf::Drawing& drawing, dxf::RecordId entity) {
    const dxf::RecordView view = drawing.view(entity);
    return view.has(test.code) && NamePattern(test.pattern).matches(base::lower(view.text(test.code)));
}

bool SelectionFilter::passes_numbers(const Test& test, const dxf::RecordView& entity) {
    if (test.code == colour_code && !entity.has(colour_code)) {
        return holds(test.relations[0], colour_by_layer, test.numbers[0]);
    }
    if (!entity.has(test.code)) {
        return false;
    }
    for (size_t axis = 0; axis < test.numbers.size(); ++axis) {
        const Relation relation = test.relations[std::min(axis, test.relations.size() - 1)];
        const double value = entity.real(test.code + 10 * static_cast<int>(axis));
        if (!holds(relation, value, test.numbers[axis])) {
            return false;
        }
    }
    return true;
}

bool SelectionFilter::holds(Relation relation, double left, double right) {
    const auto left_bits = static_cast<long long>(left);
    const auto right_bits = static_cast<long long>(right);
    switch (relation) {
        case Relation::any:
            return true;
        case Relation::equal:
            return left == right;
        case Relation::not_equal:
            return left != right;
        case Relation::less:
            return left < right;
        case Relation::less_or_equal:
            return left <= right;
        case Relation::greater:
            return left > right;
        case Relation::greater_or_equal:
            return left >= right;
        case Relation::bits_any:
            return (left_bits & right_bits) != 0;
        case Relation::bits_all:
            break;
    }
    return (left_bits & right_bits) == right_bits;
}

}  // namespace host
