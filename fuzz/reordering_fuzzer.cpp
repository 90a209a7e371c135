// Takes any line of up to 5,000 characters of every type: it must be reordered as plain_reordering.h does it, and no
// character may be lost. The first byte chooses the direction, the types and how often the rest is repeated.
#include <algorithm>
#include <array>

#include "base/code_page.h"
#include "bidi/system_character_types.h"
#include "bidi/text_model.h"
#include "fuzz/fuzz_input.h"
#include "tests/bidi/all_types.h"
#include "tests/bidi/plain_reordering.h"

namespace {

using namespace corvanes;
using Map = std::vector<std::uint32_t>;

constexpr size_t longest_line = 5000;

/// Decodes bytes by code page 1255. Those that it does not define become characters that it lacks, among them halves of
/// surrogate pairs.
std::wstring hebrew_text(std::string_view bytes) {
    static const ByteCharacters characters = characters_of_code_page(base::code_page_hebrew);
    static const std::array<wchar_t, 7> others = {L'\xD83D', L'\xDE00', L'\x4E2D', L'\x623',
                                                  L'\xFFFF', L'\0',     L'\x200F'};
    std::wstring text;
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        text.push_back(code >= 0xD9 && code <= 0xDF ? others[code - 0xD9U] : characters[code]);
    }
    return text;
}

std::wstring text_of_codes(std::string_view bytes) {
    std::wstring text;
    for (const char byte : bytes) {
        text.push_back(static_cast<wchar_t>(static_cast<unsigned char>(byte)));
    }
    return text;
}

std::wstring repeated(const std::wstring& text, size_t times) {
    std::wstring result;
    for (; times > 0 && result.size() < longest_line; --times) {
        result += text;
    }
    result.resize(std::min(result.size(), longest_line));
    return result;
}

void check_map(const std::wstring& text, const std::wstring& visual, const Map& map) {
    std::vector<bool> painted(text.size());
    fuzz::require(map.back() == text.size(), "the last entry is the length");
    for (size_t v = 0; v < text.size(); ++v) {
        fuzz::require(map[v] < text.size() && !painted[map[v]], "the map is a permutation");
        painted[map[v]] = true;
        const wchar_t character = text[map[v]];
        fuzz::require(visual[v] == character || visual[v] == GetMirrorChar(character), "every character stays itself");
    }
}

void check_line(Reordering& reordering, const CharacterTypes& types, const std::wstring& text, bool left_to_right) {
    std::wstring visual(text.size(), L'\0');
    Map map(text.size() + 1);
    reordering.reorder(text, visual.data(), map.data(), left_to_right);
    check_map(text, visual, map);

    const PlainLine plain = PlainReordering(types, text, left_to_right).reorder();
    fuzz::require(visual == plain.visual && map == plain.map, "the line is that of the rules written out");
    std::vector<Level> levels;
    for (const LevelRun& run : reordering.level_runs()) {
        fuzz::require(run.start == levels.size() && run.length > 0, "the runs cover the line");
        levels.insert(levels.end(), run.length, run.level);
    }
    fuzz::require(std::equal(levels.begin(), levels.end(), plain.levels.begin(), plain.levels.end()),
                  "the levels are those of the rules written out");
    levels.push_back(0);
    ReorderLevels(text.data(), text.size(), visual.data(), levels.data(), map.data(), left_to_right ? 1 : 0);
    fuzz::require(visual == plain.visual && map == plain.map, "the same levels give the same line");
}

void check_model(const std::wstring& text, bool left_to_right) {
    TextModel model;
    model.set_right_to_left(!left_to_right);
    fuzz::require(model.set_logical(text), "any text can be set");
    for (size_t v = 0; v < text.size(); ++v) {
        fuzz::require(model.visual_index(model.map()[v]) == v, "typed and painted places agree");
        fuzz::require((text[v] == L'\n') == (model.map()[v] == v && model.visual()[v] == L'\n'),
                      "line feeds keep their places");
    }
}

/// Most lines are not repeated, since long ones are slow.
size_t times_to_repeat(uint8_t choice) {
    return choice >= 0xF8 ? 64 : choice >= 0xC0 ? 4 : 1;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size == 0) {
        return 0;
    }
    static const CharacterTypes with_all_types = all_types();
    // One object for all lines, as in the module.
    static Reordering by_codes(with_all_types);
    static Reordering by_system(*system_character_types());
    const std::string_view bytes = fuzz::bytes_of(data + 1, size - 1);
    const bool left_to_right = (data[0] & 1) != 0;
    const bool codes = (data[0] & 2) != 0;
    const std::wstring text = repeated(codes ? text_of_codes(bytes) : hebrew_text(bytes), times_to_repeat(data[0]));
    if (codes) {
        check_line(by_codes, with_all_types, text, left_to_right);
    } else {
        check_line(by_system, *system_character_types(), text, left_to_right);
        check_model(text, left_to_right);
    }
    return 0;
}
