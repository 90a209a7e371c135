// Notes on what a bill of materials leaves out, or counts in a way that may surprise. Pure.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace corvanes {

/// References of one block. A handle is 0 where the drawing has none.
struct BlockReferences {
    std::wstring name;  ///< the block's, as the drawing spells it
    std::vector<std::uint64_t> handles;
};

/// What was found in the drawing around a count. The order of each list is that of the selection or of the drawing.
struct BillSurvey {
    struct Array {
        std::wstring name;
        std::uint64_t handle;
        int columns;
        int rows;
    };
    struct Nested {
        std::wstring name;
        std::uint64_t number;  ///< counted through all levels; stops at its largest value
    };
    struct Dynamic {
        BlockReferences counted;  ///< under their anonymous name
        std::wstring true_name;
    };
    std::vector<BlockReferences> counted;
    std::vector<Array> arrays;             ///< counted references that stand at more than one place
    std::vector<BlockReferences> frozen;   ///< references in the current space, on frozen layers
    std::vector<Nested> nested;            ///< blocks that stand within the counted ones
    std::vector<BlockReferences> stacked;  ///< references beyond the first of their place
    std::vector<Dynamic> dynamic;
};

/// The kinds of notes, in the order in which they are told.
enum class NoteCode {
    unpriced,
    almost_named,
    array,
    frozen,
    nested,
    stacked,
    dynamic,
    no_entry,
    no_line_end,
    partly_read_price,
    named_twice,
};

struct Note {
    NoteCode code;
    std::wstring text;   ///< for people: names the block or the line and says what is remarkable about it
    std::wstring block;  ///< empty for a note that is about no block
    std::vector<std::uint64_t> handles;  ///< the references that the note is about
    std::size_t line = 0;                ///< the line of the price list, from 1; 0 for a note that is about none
    std::uint64_t number = 1;            ///< how many references or places the note is about
};

/// The notes on a bill, in the order of their codes. `price_list` is the text of the list; with `attached` false there
/// is none, and no note tells of a missing price. The handles of unpriced references are moved from `survey.counted` to
/// their notes.
std::vector<Note> bill_notes(BillSurvey& survey, std::wstring_view price_list, bool attached);

/// The notes for a person: a line for each code, with five examples at most and "and N more".
std::vector<std::wstring> note_lines(const std::vector<Note>& notes);

/// The name of a code in files: "unpriced", "almost-named" and so on.
const wchar_t* name_of(NoteCode code);

}  // namespace corvanes
