#include "bidi/key_translation.h"

#include <gtest/gtest.h>

#include <ostream>
#include <set>

namespace corvanes {

void PrintTo(const KeyAction& action, std::ostream* out) {
    *out << "language " << action.language.current << (action.language.temporary_english ? " for a number" : "")
         << ", layout " << action.layout << ", direction " << static_cast<int>(action.direction)
         << (action.redraws_caret ? ", caret" : "") << (action.deletes_selection ? ", deletes selection" : "")
         << ", command " << static_cast<int>(action.command) << ", character " << static_cast<int>(action.character)
         << ", key " << action.key;
}

namespace {

using C = EditCommand;

constexpr InputLanguage in_hebrew{hebrew_language, false};
constexpr InputLanguage in_english{english_language, false};
constexpr InputLanguage in_number{english_language, true};
constexpr KeyModifiers none{};

KeyModifiers with(bool KeyModifiers::*held) {
    KeyModifiers modifiers;
    modifiers.*held = true;
    return modifiers;
}

KeyAction action_of(unsigned key, const KeyModifiers& modifiers, const InputLanguage& language) {
    return translate_key({key, 0}, modifiers, language, false);
}

KeyAction editing(const InputLanguage& language, C command, unsigned key, bool deletes_selection = false) {
    KeyAction action;
    action.language = language;
    action.redraws_caret = true;
    action.deletes_selection = deletes_selection;
    action.command = command;
    action.key = key;
    return action;
}

KeyAction inserting(const InputLanguage& language, unsigned character) {
    KeyAction action = editing(language, C::insert, 0, true);
    action.character = static_cast<wchar_t>(character);
    return action;
}

KeyAction silent(const InputLanguage& language) {
    KeyAction action;
    action.language = language;
    return action;
}

TEST(KeyTranslation, LettersAndDigits) {
    const KeyModifiers shift = with(&KeyModifiers::shift);
    const KeyModifiers caps = with(&KeyModifiers::caps_lock);
    KeyModifiers both = shift;
    both.caps_lock = true;
    for (unsigned key = 'A'; key <= 'Z'; ++key) {
        EXPECT_EQ(action_of(key, none, in_hebrew), editing(in_hebrew, C::insert_from_keyboard, key, true));
        EXPECT_EQ(action_of(key, none, in_english), inserting(in_english, key + 32));
        for (const KeyModifiers& upper : {shift, caps, both}) {
            EXPECT_EQ(action_of(key, upper, in_hebrew), inserting(in_hebrew, key));
            EXPECT_EQ(action_of(key, upper, in_english), inserting(in_english, key));
        }
    }
    const unsigned symbols[] = {41, 33, 64, 35, 36, 37, 94, 38, 42, 40};
    for (unsigned digit = 0; digit < 10; ++digit) {
        EXPECT_EQ(action_of('0' + digit, none, in_english), inserting(in_english, '0' + digit));
        EXPECT_EQ(action_of('0' + digit, shift, in_english), inserting(in_english, symbols[digit]));
        EXPECT_EQ(action_of('0' + digit, caps, in_hebrew), inserting(in_number, symbols[digit]));
    }
    EXPECT_EQ(action_of(32, shift, in_hebrew), inserting(in_hebrew, 32));
    const InputLanguage french{1036, false};
    EXPECT_EQ(action_of('A', none, french), editing(french, C::insert_from_keyboard, 'A', true));
}

TEST(KeyTranslation, PunctuationKeys) {
    struct Row {
        unsigned key, plain, shifted;
        bool has_letter;
    };
    const Row rows[] = {{186, 59, 58, true},   {187, 61, 43, false},  {188, 44, 60, true},  {189, 45, 95, false},
                        {190, 46, 62, true},   {191, 47, 63, true},   {192, 96, 126, true}, {219, 91, 123, false},
                        {220, 92, 124, false}, {221, 93, 125, false}, {222, 39, 34, true},  {193, 32, 32, false},
                        {218, 32, 32, false}};
    const InputLanguage french{1036, false};
    for (const Row& row : rows) {
        EXPECT_EQ(action_of(row.key, none, in_english), inserting(in_english, row.plain));
        EXPECT_EQ(action_of(row.key, with(&KeyModifiers::shift), in_english), inserting(in_english, row.shifted));
        EXPECT_EQ(action_of(row.key, with(&KeyModifiers::caps_lock), french), inserting(french, row.shifted));
        EXPECT_EQ(action_of(row.key, none, french), row.has_letter
                                                        ? editing(french, C::insert_from_keyboard, row.key, true)
                                                        : inserting(french, row.plain));
    }
    EXPECT_EQ(action_of(190, none, in_hebrew), editing(in_hebrew, C::insert_from_keyboard, 190, true));
    EXPECT_EQ(action_of(223, none, in_hebrew), silent(in_hebrew));
}

TEST(KeyTranslation, NumbersSwitchToEnglishAndBack) {
    // In Hebrew the keys 1 2 / 5 give 12.5, and the next letter is Hebrew again.
    InputLanguage language = in_hebrew;
    const std::pair<unsigned, KeyAction> typed[] = {{'1', inserting(in_number, '1')},
                                                    {'2', inserting(in_number, '2')},
                                                    {191, inserting(in_number, '.')},
                                                    {'5', inserting(in_number, '5')},
                                                    {'A', editing(in_hebrew, C::insert_from_keyboard, 'A', true)}};
    for (const auto& [key, expected] : typed) {
        const KeyAction action = action_of(key, none, language);
        EXPECT_EQ(action, expected);
        language = action.language;
    }
    // A slash before any number stays a slash; in plain English every slash does.
    EXPECT_EQ(action_of(191, none, in_hebrew), inserting(in_number, '/'));
    EXPECT_EQ(action_of(191, none, in_english), inserting(in_english, '/'));
    EXPECT_EQ(action_of(16, none, in_number), silent(in_hebrew));
    EXPECT_EQ(action_of('C', with(&KeyModifiers::ctrl), in_number).language, in_hebrew);
    const std::set<unsigned> others = {46, 191, 192, 189, 187, 220, 110, 111, 106, 109, 107};
    for (unsigned key = 0; key < 256; ++key) {
        const bool digit = (key >= 48 && key <= 57) || (key >= 96 && key <= 105);
        EXPECT_EQ(is_number_key(key), digit || others.count(key) != 0) << key;
    }
}

TEST(KeyTranslation, ShiftAndCtrlChooseDirectionAndLanguage) {
    struct Row {
        unsigned flags;
        KeyModifiers held;
        InputLanguage language;
        LanguageId layout;
        ParagraphDirection direction;
    };
    const auto ltr = ParagraphDirection::left_to_right;
    const auto rtl = ParagraphDirection::right_to_left;
    const auto same = ParagraphDirection::unchanged;
    KeyModifiers ctrl_alt = with(&KeyModifiers::ctrl);
    ctrl_alt.alt = true;
    const Row rows[] = {
        {42, with(&KeyModifiers::ctrl), in_hebrew, english_language, ltr},
        {54, with(&KeyModifiers::ctrl), in_english, hebrew_language, rtl},
        {42, with(&KeyModifiers::alt), in_hebrew, english_language, same},
        {54, with(&KeyModifiers::alt), in_english, hebrew_language, same},
        {42, ctrl_alt, in_hebrew, english_language, ltr},
        {42, none, in_hebrew, 0, same},
        {29, with(&KeyModifiers::left_shift), in_hebrew, english_language, ltr},
        {29, with(&KeyModifiers::right_shift), in_hebrew, 0, same},
        {285, with(&KeyModifiers::right_shift), in_english, hebrew_language, rtl},
        {285, with(&KeyModifiers::left_shift), in_english, 0, same},
        {0x4000 | 42, with(&KeyModifiers::ctrl), in_hebrew, english_language, ltr},
    };
    for (const Row& row : rows) {
        // The key code does not matter, only the scan code does.
        for (const unsigned key : {16U, 65U}) {
            KeyAction expected = silent(row.language);
            expected.layout = row.layout;
            expected.direction = row.direction;
            EXPECT_EQ(translate_key({key, row.flags}, row.held, row.language, false), expected);
        }
    }
}

TEST(KeyTranslation, EditingKeys) {
    const std::pair<unsigned, C> moves[] = {{35, C::line_end},  {36, C::line_start},     {37, C::move_left},
                                            {38, C::move_up},   {39, C::move_right},     {40, C::move_down},
                                            {9, C::insert_tab}, {27, C::leave_to_parent}};
    for (const auto& [key, command] : moves) {
        EXPECT_EQ(action_of(key, none, in_english), editing(in_english, command, key));
    }
    EXPECT_EQ(action_of(8, none, in_english), editing(in_english, C::delete_before, 8, true));
    EXPECT_EQ(action_of(13, none, in_english), editing(in_english, C::insert_line, 13, true));
    EXPECT_EQ(action_of(46, none, in_hebrew), editing(in_number, C::delete_after, 46, true));
    EXPECT_EQ(translate_key({9, 0}, none, in_english, true), silent(in_english));
    EXPECT_EQ(translate_key({13, 0}, none, in_english, true), silent(in_english));

    const KeyModifiers ctrl = with(&KeyModifiers::ctrl);
    const std::pair<unsigned, C> with_ctrl[] = {
        {35, C::text_end}, {36, C::text_start}, {67, C::copy},    {86, C::paste},  {88, C::cut},
        {90, C::undo},     {65, C::nothing},    {37, C::nothing}, {8, C::nothing}, {13, C::nothing}};
    for (const auto& [key, command] : with_ctrl) {
        KeyAction expected = silent(in_english);
        expected.command = command;
        EXPECT_EQ(action_of(key, ctrl, in_english), expected);
    }
    // A key that should give a character, and gives none, still deletes the selection.
    for (const unsigned key : {33U, 34U, 41U, 44U, 45U, 47U, 58U, 64U}) {
        EXPECT_EQ(action_of(key, none, in_english), editing(in_english, C::nothing, 0, true)) << key;
    }
    for (const unsigned key : {0U, 7U, 18U, 20U, 31U, 91U, 95U, 112U, 144U, 185U, 223U, 255U}) {
        EXPECT_EQ(action_of(key, none, in_english), silent(in_english)) << key;
    }
}

TEST(KeyTranslation, Keypad) {
    const unsigned characters[] = {42, 43, 44, 45, 46, 47};
    for (unsigned key = 106; key <= 111; ++key) {
        EXPECT_EQ(action_of(key, none, in_english), inserting(in_english, characters[key - 106]));
    }
    const C commands[] = {C::nothing, C::line_end,   C::move_down,  C::nothing, C::move_left,
                          C::nothing, C::move_right, C::line_start, C::move_up, C::nothing};
    const unsigned keys[] = {0, 35, 40, 0, 37, 0, 39, 36, 38, 0};
    KeyModifiers shifted = with(&KeyModifiers::num_lock);
    shifted.shift = true;
    for (unsigned digit = 0; digit < 10; ++digit) {
        EXPECT_EQ(action_of(96 + digit, with(&KeyModifiers::num_lock), in_hebrew), inserting(in_number, '0' + digit));
        const KeyAction moving = editing(in_english, commands[digit], keys[digit], true);
        EXPECT_EQ(action_of(96 + digit, none, in_english), moving);
        EXPECT_EQ(action_of(96 + digit, shifted, in_english), moving);
    }
    // Without Num Lock the key is an arrow and not a number key, so Hebrew comes back at once.
    EXPECT_EQ(action_of(100, none, in_hebrew), editing(in_hebrew, C::move_left, 37, true));
}

}  // namespace
TEST(StandardKey, RecognisesThePunctuationKeysByTheirLetters) {
    const struct {
        unsigned key;
        wchar_t letter;
        unsigned standard;
    } cases[] = {
        {223, 0x05EA, 188}, {225, 0x05E5, 190}, {192, 0x05E3, 186}, {188, 0x05EA, 188},
        {192, L';', 192},   {191, L'.', 191},   {222, L',', 222},   {'A', 0x05E9, 'A'},
    };
    for (const auto& item : cases) {
        EXPECT_EQ(corvanes::standard_key(item.key, item.letter), item.standard) << item.key;
    }
}

}  // namespace corvanes
