#include "bidi/key_translation.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>

namespace corvanes {
namespace {

// The virtual-key codes that the rules name.
enum Key : unsigned {
    key_backspace = 8,
    key_tab = 9,
    key_enter = 13,
    key_escape = 27,
    key_space = 32,
    key_end = 35,
    key_home = 36,
    key_left = 37,
    key_up = 38,
    key_right = 39,
    key_down = 40,
    key_delete = 46,
    key_keypad_0 = 96,
    key_keypad_9 = 105,
    key_keypad_multiply = 106,
    key_keypad_add = 107,
    key_keypad_subtract = 109,
    key_keypad_decimal = 110,
    key_keypad_divide = 111,
    key_semicolon = 186,
    key_equals = 187,
    key_comma = 188,
    key_minus = 189,
    key_full_stop = 190,
    key_slash = 191,
    key_grave = 192,
    key_backslash = 220,
    key_last = 222,
};

enum ScanCode : unsigned {
    scan_left_ctrl = 29,
    scan_left_shift = 42,
    scan_right_shift = 54,
    scan_right_ctrl = 256 + 29,
};

bool between(unsigned key, unsigned first, unsigned last) {
    return key >= first && key <= last;
}

/// Switches to English for a number and back after it; inside a number the slash key is a decimal point.
unsigned follow_number(unsigned key, InputLanguage& language) {
    if (language.current == hebrew_language && is_number_key(key)) {
        language = {english_language, true};
    } else if (language.temporary_english && !is_number_key(key)) {
        language = {hebrew_language, false};
    } else if (language.temporary_english && key == key_slash) {
        return key_keypad_decimal;
    }
    return key;
}

void choose_direction(KeyAction& action, ParagraphDirection direction) {
    action.direction = direction;
    action.layout = direction == ParagraphDirection::left_to_right ? english_language : hebrew_language;
}

/// Handles the combinations of Shift and Ctrl; true when the key was one of these two.
bool translate_shift_or_ctrl(unsigned scan_code, const KeyModifiers& modifiers, KeyAction& action) {
    switch (scan_code) {
        case scan_left_shift:
        case scan_right_shift:
            if (modifiers.ctrl) {
                choose_direction(action, scan_code == scan_left_shift ? ParagraphDirection::left_to_right
                                                                      : ParagraphDirection::right_to_left);
            } else if (modifiers.alt) {
                action.layout = action.language.current == hebrew_language ? english_language : hebrew_language;
            }
            return true;
        case scan_left_ctrl:
            if (modifiers.left_shift) {
                choose_direction(action, ParagraphDirection::left_to_right);
            }
            return true;
        case scan_right_ctrl:
            if (modifiers.right_shift) {
                choose_direction(action, ParagraphDirection::right_to_left);
            }
            return true;
        default:
            return false;
    }
}

/// Whether the editor handles the key. It leaves alone the Windows keys, the function keys and the like.
bool is_handled_key(unsigned key) {
    const bool control_key = key == key_backspace || key == key_tab || key == key_enter || key == key_escape;
    return control_key || (between(key, key_space, key_last) && !between(key, 91, 95) && !between(key, 112, 185));
}

struct KeyCommand {
    unsigned key;
    EditCommand command;
};

constexpr KeyCommand commands_with_ctrl[] = {
    {key_end, EditCommand::text_end}, {key_home, EditCommand::text_start},
    {'C', EditCommand::copy},         {'V', EditCommand::paste},
    {'X', EditCommand::cut},          {'Z', EditCommand::undo},
};

/// Handles the keys that edit or move without a character; the others are translated to characters.
constexpr KeyCommand commands_without_ctrl[] = {
    {key_backspace, EditCommand::delete_before},
    {key_tab, EditCommand::insert_tab},
    {key_enter, EditCommand::insert_line},
    {key_escape, EditCommand::leave_to_parent},
    {key_end, EditCommand::line_end},
    {key_home, EditCommand::line_start},
    {key_left, EditCommand::move_left},
    {key_up, EditCommand::move_up},
    {key_right, EditCommand::move_right},
    {key_down, EditCommand::move_down},
    {key_delete, EditCommand::delete_after},
};

template <size_t count>
EditCommand command_in(const KeyCommand (&commands)[count], unsigned key) {
    const auto found = std::find_if(std::begin(commands), std::end(commands),
                                    [key](const KeyCommand& each) { return each.key == key; });
    return found != std::end(commands) ? found->command : EditCommand::nothing;
}

void insert_character(KeyAction& action, unsigned character) {
    action.command = EditCommand::insert;
    action.character = static_cast<wchar_t>(character);
}

void ask_keyboard(KeyAction& action, unsigned key) {
    action.command = EditCommand::insert_from_keyboard;
    action.key = key;
}

void translate_letter(unsigned key, const KeyModifiers& modifiers, KeyAction& action) {
    if (modifiers.shift || modifiers.caps_lock) {
        insert_character(action, key);
    } else if (action.language.current != english_language) {
        ask_keyboard(action, key);
    } else {
        insert_character(action, key + 32);
    }
}

void translate_digit(unsigned key, const KeyModifiers& modifiers, KeyAction& action) {
    constexpr std::string_view shifted = ")!@#$%^&*(";
    const bool shift = modifiers.shift || modifiers.caps_lock;
    insert_character(action, shift ? static_cast<unsigned char>(shifted[key - '0']) : key);
}

struct PunctuationKey {
    unsigned key;
    char plain;
    char shifted;
};

constexpr std::array<PunctuationKey, 11> punctuation_keys = {{
    {186, ';', ':'},
    {187, '=', '+'},
    {188, ',', '<'},
    {189, '-', '_'},
    {190, '.', '>'},
    {191, '/', '?'},
    {192, '`', '~'},
    {219, '[', '{'},
    {220, '\\', '|'},
    {221, ']', '}'},
    {222, '\'', '"'},
}};

/// The keys on which the Hebrew keyboard has letters, by their American characters.
constexpr std::string_view characters_with_letters = ",.;`'/";

void translate_punctuation(unsigned key, const KeyModifiers& modifiers, KeyAction& action) {
    const auto found = std::find_if(punctuation_keys.begin(), punctuation_keys.end(),
                                    [key](const PunctuationKey& each) { return each.key == key; });
    const bool known = found != punctuation_keys.end();
    const bool shift = modifiers.shift || modifiers.caps_lock;
    const char character = !known ? ' ' : shift ? found->shifted : found->plain;
    const bool has_letter = known && characters_with_letters.find(character) != std::string_view::npos;
    if (!shift && has_letter && action.language.current != english_language) {
        ask_keyboard(action, key);
    } else {
        insert_character(action, static_cast<unsigned char>(character));
    }
}

/// The key that a key of the keypad stands for when it does not give its digit; 0 for none.
unsigned navigation_key(unsigned keypad_digit) {
    constexpr std::array<unsigned, 10> keys = {0, key_end, key_down, 0, key_left, 0, key_right, key_home, key_up, 0};
    return keys[keypad_digit - key_keypad_0];
}

void translate_character(unsigned key, const KeyModifiers& modifiers, KeyAction& action) {
    action.deletes_selection = true;
    if (between(key, 'A', 'Z')) {
        translate_letter(key, modifiers, action);
    } else if (between(key, key_keypad_multiply, key_keypad_divide)) {
        insert_character(action, key - 64);
    } else if (between(key, key_keypad_0, key_keypad_9)) {
        insert_character(action, key - 48);
    } else if (between(key, '0', '9')) {
        translate_digit(key, modifiers, action);
    } else if (key == key_space) {
        insert_character(action, ' ');
    } else if (key >= key_semicolon) {
        translate_punctuation(key, modifiers, action);
    }
}

}  // namespace

bool is_number_key(unsigned key) {
    constexpr unsigned signs[] = {key_delete,          key_slash,           key_grave,          key_minus,
                                  key_equals,          key_backslash,       key_keypad_decimal, key_keypad_divide,
                                  key_keypad_multiply, key_keypad_subtract, key_keypad_add};
    return between(key, '0', '9') || between(key, key_keypad_0, key_keypad_9) ||
           std::find(std::begin(signs), std::end(signs), key) != std::end(signs);
}

unsigned standard_key(unsigned key, wchar_t letter) {
    constexpr wchar_t final_pe = 0x05E3;
    constexpr wchar_t final_tsadi = 0x05E5;
    constexpr wchar_t tav = 0x05EA;
    switch (letter) {
        case final_pe:
            return key_semicolon;
        case tav:
            return key_comma;
        case final_tsadi:
            return key_full_stop;
        default:
            return key;
    }
}

KeyAction translate_key(const KeyPress& press, const KeyModifiers& modifiers, const InputLanguage& language,
                        bool locked) {
    KeyAction action;
    action.language = language;
    const unsigned key = follow_number(press.key, action.language);
    if (translate_shift_or_ctrl(press.flags & 0x1FF, modifiers, action) || !is_handled_key(key)) {
        return action;
    }
    if (modifiers.ctrl) {
        action.command = command_in(commands_with_ctrl, key);
        return action;
    }
    if (locked && (key == key_tab || key == key_enter)) {
        return action;
    }
    const bool navigates = between(key, key_keypad_0, key_keypad_9) && (!modifiers.num_lock || modifiers.shift);
    if (navigates && navigation_key(key) != 0) {
        action = translate_key({navigation_key(key), press.flags}, modifiers, action.language, locked);
        action.deletes_selection = true;
        return action;
    }
    action.redraws_caret = true;
    action.command = command_in(commands_without_ctrl, key);
    if (action.command != EditCommand::nothing) {
        action.key = key;
        action.deletes_selection = key == key_backspace || key == key_enter || key == key_delete;
    } else if (navigates) {
        action.deletes_selection = true;
    } else {
        translate_character(key, modifiers, action);
    }
    return action;
}

}  // namespace corvanes
