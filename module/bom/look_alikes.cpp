#include "bom/look_alikes.h"

#include <algorithm>
#include <iterator>

#include "base/case_folding.h"

namespace corvanes {

namespace {

struct LookAlike {
    wchar_t character;  // in lower case, where it has one
    wchar_t plain;
};

// Greek and Cyrillic letters, and the signs that keyboards and word processors put in place of plain ones; in ascending
// order.
constexpr LookAlike look_alikes[] = {
    {0x00A0, L' '}, {0x00B4, L'\''}, {0x00D7, L'x'},  {0x0131, L'i'},  {0x03B1, L'a'}, {0x03B9, L'i'}, {0x03BA, L'k'},
    {0x03BD, L'v'}, {0x03BF, L'o'},  {0x03C1, L'p'},  {0x03C4, L't'},  {0x03C5, L'u'}, {0x03C7, L'x'}, {0x0430, L'a'},
    {0x0432, L'b'}, {0x0435, L'e'},  {0x043A, L'k'},  {0x043C, L'm'},  {0x043D, L'h'}, {0x043E, L'o'}, {0x0440, L'p'},
    {0x0441, L'c'}, {0x0442, L't'},  {0x0443, L'y'},  {0x0445, L'x'},  {0x0455, L's'}, {0x0456, L'i'}, {0x0458, L'j'},
    {0x05BE, L'-'}, {0x05F3, L'\''}, {0x05F4, L'"'},  {0x2009, L' '},  {0x2010, L'-'}, {0x2011, L'-'}, {0x2012, L'-'},
    {0x2013, L'-'}, {0x2014, L'-'},  {0x2018, L'\''}, {0x2019, L'\''}, {0x201C, L'"'}, {0x201D, L'"'}, {0x202F, L' '},
    {0x2212, L'-'},
};

// The Greek capitals that look Latin where their small letters do not.
constexpr LookAlike capitals[] = {{0x0392, L'b'}, {0x0395, L'e'}, {0x0396, L'z'}, {0x0397, L'h'},
                                  {0x039C, L'm'}, {0x039D, L'n'}, {0x03A5, L'y'}};

wchar_t plain_form(wchar_t character) {
    for (const LookAlike& capital : capitals) {
        if (character == capital.character) {
            return capital.plain;
        }
    }
    const wchar_t lower = base::to_lower(character);
    const auto before = [](const LookAlike& known, wchar_t sought) { return known.character < sought; };
    const auto found = std::lower_bound(std::begin(look_alikes), std::end(look_alikes), lower, before);
    return found != std::end(look_alikes) && found->character == lower ? found->plain : lower;
}

// Marks of direction and joiners, which are invisible.
bool is_invisible(wchar_t character) {
    return (character >= 0x200B && character <= 0x200F) || (character >= 0x202A && character <= 0x202E) ||
           character == 0xFEFF;
}

}  // namespace

std::wstring look_alike_form(std::wstring_view name) {
    std::wstring form;
    for (const wchar_t character : name) {
        if (!is_invisible(character)) {
            form += plain_form(character);
        }
    }
    constexpr std::wstring_view blanks = L" \t";
    const std::size_t first = form.find_first_not_of(blanks);
    return first == form.npos ? L"" : form.substr(first, form.find_last_not_of(blanks) - first + 1);
}

}  // namespace corvanes
