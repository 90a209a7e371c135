// Reading a filter list into the tree of its conditions.
#include <algorithm>
#include <map>

#include "base/case_folding.h"
#include "platform/host/database/name_pattern.h"
#include "platform/host/database/result_buffer.h"
#include "platform/host/database/selection_filter.h"

namespace host {
namespace {

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
        if (test.code == 0) {
            test.names = fitting_names(drawing_.type_names(), test.pattern);
        } else if (test.code == 2) {
            test.names = fitting_names(drawing_.block_names(), test.pattern);
        } else if (test.code == 8) {
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

}  // namespace host
