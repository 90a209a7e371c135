#include "bom/bill_notes.h"

#include <algorithm>
#include <limits>
#include <unordered_map>
#include <utility>

#include "base/case_folding.h"
#include "bom/look_alikes.h"
#include "common/price_text.h"
#include "pricelist/price_list_lines.h"

namespace corvanes {

namespace {

/// Reads from a price list where its names stand and which of its lines say nothing.
class ListSurvey {
  public:
    struct Name {
        std::wstring spelled;
        std::vector<std::size_t> lines;
    };

    explicit ListSurvey(std::wstring_view text) {
        read_lines(text, [this](const PriceListLine& line) { take(line); });
    }

    bool prices(const std::wstring& name) const { return places_.count(base::lower(name)) != 0; }
    const std::vector<Name>& names() const { return names_; }

    std::vector<Note> lines;
    std::vector<Note> unended;
    std::vector<Note> partly_read;

  private:
    void take(const PriceListLine& line) {
        if (line.fate == LineFate::no_line_end) {
            unended.push_back({NoteCode::no_line_end, L"line " + std::to_wstring(line.number), {}, {}, line.number});
        } else if (line.fate != LineFate::entry && line.fate != LineFate::blank) {
            lines.push_back({NoteCode::no_entry, words_of(line), {}, {}, line.number});
        }
        if (line.entry.name.empty() || line.entry.price.empty()) {
            return;
        }
        std::wstring name(line.entry.name);
        const auto [place, is_new] = places_.emplace(base::lower(name), names_.size());
        if (is_new) {
            names_.push_back({name, {}});
        }
        names_[place->second].lines.push_back(line.number);
        if (const auto value = partly_read_number(line.entry.price)) {
            partly_read.push_back({NoteCode::partly_read_price,
                                   L"line " + std::to_wstring(line.number) + L" \"" + std::wstring(line.entry.price) +
                                       L"\" as " + amount_text(*value),
                                   std::move(name),
                                   {},
                                   line.number});
        }
    }

    static std::wstring words_of(const PriceListLine& line) {
        const wchar_t* const why = line.fate == LineFate::no_separator ? L" has no separator"
                                   : line.fate == LineFate::no_name    ? L" has no name"
                                   : line.fate == LineFate::no_price   ? L" has no price"
                                                                       : L" is too long and falls apart";
        return L"line " + std::to_wstring(line.number) + why;
    }

    std::unordered_map<std::wstring, std::size_t> places_;  ///< indexes into names_, by lower-case name
    std::vector<Name> names_;
};

class NoteWriter {
  public:
    void add_references(NoteCode code, BlockReferences references) {
        const std::size_t number = references.handles.size();
        std::wstring text = references.name + L' ' + std::to_wstring(number);
        notes.push_back({.code = code,
                         .text = std::move(text),
                         .block = std::move(references.name),
                         .handles = std::move(references.handles),
                         .number = number});
    }

    void add_unpriced(std::vector<BlockReferences>& counted, const ListSurvey& list) {
        for (BlockReferences& block : counted) {
            if (!list.prices(block.name)) {
                add_references(NoteCode::unpriced, {block.name, std::exchange(block.handles, {})});
            }
        }
    }

    /// To be called when there are notes on the unpriced blocks, and no others yet.
    void add_almost_named(const ListSurvey& list) {
        std::unordered_map<std::wstring, std::size_t> unpriced;  // indexes into `notes`, by look-alike form
        for (std::size_t i = 0; i < notes.size(); ++i) {
            unpriced.emplace(look_alike_form(notes[i].block), i);
        }
        for (const ListSurvey::Name& name : list.names()) {
            const auto block = unpriced.empty() ? unpriced.end() : unpriced.find(look_alike_form(name.spelled));
            if (block != unpriced.end()) {
                Note note = notes[block->second];
                note.code = NoteCode::almost_named;
                note.line = name.lines.back();
                note.text =
                    L'"' + name.spelled + L"\" in line " + std::to_wstring(note.line) + L" for \"" + note.block + L'"';
                note.number = Note().number;
                notes.push_back(std::move(note));
            }
        }
    }

    void add_arrays(const std::vector<BillSurvey::Array>& arrays) {
        for (const BillSurvey::Array& array : arrays) {
            const std::uint64_t places = static_cast<std::uint64_t>(array.columns) * array.rows;
            notes.push_back({NoteCode::array,
                             array.name + L' ' + std::to_wstring(array.columns) + L" x " + std::to_wstring(array.rows),
                             array.name,
                             {array.handle},
                             0,
                             places});
        }
    }

    void add_nested(const std::vector<BillSurvey::Nested>& nested) {
        for (const BillSurvey::Nested& block : nested) {
            notes.push_back(
                {NoteCode::nested, block.name + L' ' + std::to_wstring(block.number), block.name, {}, 0, block.number});
        }
    }

    void add_dynamic(const std::vector<BillSurvey::Dynamic>& dynamic) {
        for (const BillSurvey::Dynamic& block : dynamic) {
            const std::size_t number = block.counted.handles.size();
            notes.push_back({NoteCode::dynamic,
                             block.counted.name + L" is " + block.true_name + L' ' + std::to_wstring(number),
                             block.true_name, block.counted.handles, 0, number});
        }
    }

    void add_named_twice(const ListSurvey& list) {
        for (const ListSurvey::Name& name : list.names()) {
            if (name.lines.size() > 1) {
                std::wstring text = name.spelled + L" in lines ";
                for (std::size_t i = 0; i < name.lines.size(); ++i) {
                    text += (i == 0                       ? L""
                             : i + 1 == name.lines.size() ? L" and "
                                                          : L", ") +
                            std::to_wstring(name.lines[i]);
                }
                notes.push_back({NoteCode::named_twice, text, name.spelled, {}, name.lines.back()});
            }
        }
    }

    /// Sorts the notes of each kind by their numbers, the largest first.
    void sort_by_number() {
        std::stable_sort(notes.begin(), notes.end(), [](const Note& a, const Note& b) {
            return a.code != b.code ? a.code < b.code : a.number > b.number;
        });
    }

    void append(const std::vector<Note>& more) { notes.insert(notes.end(), more.begin(), more.end()); }

    std::vector<Note> notes;
};

std::wstring counted_words(std::uint64_t number, const std::wstring& noun) {
    return std::to_wstring(number) + L' ' + noun + (number == 1 ? L"" : L"s");
}

std::wstring heading(NoteCode code, std::size_t notes, std::uint64_t number) {
    const std::wstring references = counted_words(number, L"reference");
    switch (code) {
        case NoteCode::unpriced:
            return L"No price for " + references + L" of " + counted_words(notes, L"block");
        case NoteCode::almost_named:
            return L"Almost the same name in the price list (" + counted_words(notes, L"block") + L")";
        case NoteCode::array:
            return L"Arrays, each counted as one (" + std::to_wstring(notes) + L" with " +
                   counted_words(number, L"place") + L")";
        case NoteCode::frozen:
            return L"Not counted, on frozen layers (" + references + L")";
        case NoteCode::nested:
            return L"Not counted, inside other blocks (" + references + L")";
        case NoteCode::stacked:
            return L"In the place of another of their block (" + references + L")";
        case NoteCode::dynamic:
            return L"Dynamic blocks under anonymous names (" + references + L")";
        case NoteCode::no_entry:
            return L"No entries in the price list (" + counted_words(notes, L"line") + L")";
        case NoteCode::no_line_end:
            return L"Not read in the price list, since no line end follows";
        case NoteCode::partly_read_price:
            return L"Read in part (" + counted_words(notes, L"price") + L")";
        case NoteCode::named_twice:
            return L"More than once in the price list, the last one counts (" + counted_words(notes, L"name") + L")";
    }
    return {};
}

std::uint64_t sum_of_numbers(const std::vector<Note>& notes, std::size_t first, std::size_t end) {
    std::uint64_t sum = 0;
    for (std::size_t i = first; i < end; ++i) {
        sum += std::min(notes[i].number, std::numeric_limits<std::uint64_t>::max() - sum);
    }
    return sum;
}

}  // namespace

std::vector<Note> bill_notes(BillSurvey& survey, std::wstring_view price_list, bool attached) {
    const ListSurvey list(price_list);
    NoteWriter writer;
    if (attached) {
        writer.add_unpriced(survey.counted, list);
        writer.add_almost_named(list);
    }
    writer.add_arrays(survey.arrays);
    for (const BlockReferences& block : survey.frozen) {
        writer.add_references(NoteCode::frozen, block);
    }
    writer.add_nested(survey.nested);
    for (const BlockReferences& block : survey.stacked) {
        writer.add_references(NoteCode::stacked, block);
    }
    writer.add_dynamic(survey.dynamic);
    writer.sort_by_number();
    writer.append(list.lines);
    writer.append(list.unended);
    writer.append(list.partly_read);
    writer.add_named_twice(list);
    return std::move(writer.notes);
}

std::vector<std::wstring> note_lines(const std::vector<Note>& notes) {
    constexpr std::size_t most_examples = 5;
    std::vector<std::wstring> lines;
    for (std::size_t first = 0; first < notes.size();) {
        std::size_t end = first;
        while (end < notes.size() && notes[end].code == notes[first].code) {
            ++end;
        }
        std::wstring line = heading(notes[first].code, end - first, sum_of_numbers(notes, first, end)) + L": ";
        const std::size_t shown = std::min(end, first + most_examples);
        for (std::size_t i = first; i < shown; ++i) {
            line += (i > first ? L", " : L"") + notes[i].text;
        }
        if (shown < end) {
            line += L" and " + std::to_wstring(end - shown) + L" more";
        }
        lines.push_back(std::move(line));
        first = end;
    }
    return lines;
}

const wchar_t* name_of(NoteCode code) {
    constexpr const wchar_t* names[] = {L"unpriced",    L"almost-named",      L"array",      L"frozen",
                                        L"nested",      L"stacked",           L"dynamic",    L"no-entry",
                                        L"no-line-end", L"partly-read-price", L"named-twice"};
    return names[static_cast<std::size_t>(code)];
}

}  // namespace corvanes
