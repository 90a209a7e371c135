// Any sequence of keys, four bytes each: what comes of a key can always be carried out, and the input language follows
// its own rule whatever else the key does.
#include "bidi/key_translation.h"
#include "fuzz/fuzz_input.h"

namespace {

using namespace corvanes;

KeyModifiers modifiers_of(unsigned bits) {
    KeyModifiers modifiers;
    modifiers.shift = (bits & 1) != 0;
    modifiers.ctrl = (bits & 2) != 0;
    modifiers.alt = (bits & 4) != 0;
    modifiers.left_shift = (bits & 8) != 0;
    modifiers.right_shift = (bits & 16) != 0;
    modifiers.caps_lock = (bits & 32) != 0;
    modifiers.num_lock = (bits & 64) != 0;
    return modifiers;
}

InputLanguage language_after(unsigned key, InputLanguage language) {
    if (language.current == hebrew_language) {
        return is_number_key(key) ? InputLanguage{english_language, true} : language;
    }
    return language.temporary_english && !is_number_key(key) ? InputLanguage{hebrew_language, false} : language;
}

/// The digits 1, 2, 4, 6, 7 and 8 of the keypad are handled again, as moving keys, when they give no digits; those
/// belong to no number.
bool is_handled_again(const KeyPress& press, const KeyModifiers& modifiers) {
    constexpr std::string_view moving = "abdfgh";
    const unsigned scan_code = press.flags & 0x1FF;
    const bool shift_or_ctrl_key = scan_code == 29 || scan_code == 256 + 29 || scan_code == 42 || scan_code == 54;
    return moving.find(static_cast<char>(press.key)) != std::string_view::npos && !shift_or_ctrl_key &&
           !modifiers.ctrl && (!modifiers.num_lock || modifiers.shift);
}

bool moves_caret(EditCommand command) {
    return command >= EditCommand::move_left && command <= EditCommand::text_end;
}

bool needs_ctrl(EditCommand command) {
    return command >= EditCommand::text_start && command <= EditCommand::undo;
}

void check_command(const KeyAction& action, const KeyPress& press, const KeyModifiers& modifiers, bool locked) {
    const EditCommand command = action.command;
    fuzz::require((command == EditCommand::insert) == (action.character != 0), "an insertion has a character");
    fuzz::require(action.character == 0 || (action.character >= L' ' && action.character < 0x7F),
                  "the editor's own characters are those of the American keyboard");
    fuzz::require(command == EditCommand::nothing || modifiers.ctrl == needs_ctrl(command),
                  "Ctrl has its own commands");
    fuzz::require(!modifiers.ctrl || (!action.redraws_caret && !action.deletes_selection),
                  "with Ctrl the caret stays on the screen, and a selection where it is");
    fuzz::require(command != EditCommand::insert_from_keyboard || action.language.current != english_language,
                  "in English the system keyboard is not asked");
    fuzz::require(!locked || (command != EditCommand::insert_tab && command != EditCommand::insert_line),
                  "a locked editor gets neither tabs nor lines");
    const bool pressed_itself = press.key == 46 || press.key == 8 || press.key == 13;
    fuzz::require(!moves_caret(command) || !pressed_itself, "only moving keys move");
    const bool function_key = press.key >= 112 && press.key <= 185;
    fuzz::require(!function_key || command == EditCommand::nothing, "function keys are others' business");
}

void check_direction(const KeyAction& action, const KeyModifiers& modifiers) {
    if (action.direction != ParagraphDirection::unchanged) {
        const bool left_to_right = action.direction == ParagraphDirection::left_to_right;
        fuzz::require(action.layout == (left_to_right ? english_language : hebrew_language),
                      "a direction brings its language");
        fuzz::require(action.command == EditCommand::nothing, "and no command");
        fuzz::require(modifiers.ctrl || modifiers.left_shift || modifiers.right_shift, "Ctrl and Shift choose it");
    }
    fuzz::require(action.layout == 0 || action.layout == english_language || action.layout == hebrew_language,
                  "there are two languages to change to");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    InputLanguage language;
    for (; size >= 4; data += 4, size -= 4) {
        const KeyPress press{data[0], data[1] | (data[3] & 3U) << 8U};
        const KeyModifiers modifiers = modifiers_of(data[2]);
        const bool locked = (data[3] & 4) != 0;
        const KeyAction action = translate_key(press, modifiers, language, locked);
        constexpr unsigned moving_key = 35;
        InputLanguage after = language_after(press.key, language);
        after = is_handled_again(press, modifiers) ? language_after(moving_key, after) : after;
        fuzz::require(action.language == after, "the language follows the numbers");
        fuzz::require(action == translate_key({press.key, press.flags | 0xFE00}, modifiers, language, locked),
                      "of the flags only scan code and extended bit count");
        check_command(action, press, modifiers, locked);
        check_direction(action, modifiers);
        language = action.layout != 0 ? InputLanguage{action.layout, false} : action.language;
    }
    return 0;
}
