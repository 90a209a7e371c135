// The translation of a key into what the right-to-left editor has to do, without any window.
#pragma once

#include <cstdint>

namespace corvanes {

using LanguageId = std::uint16_t;
constexpr LanguageId hebrew_language = 1037;
constexpr LanguageId english_language = 1033;

/// A key as WM_KEYDOWN gives it. Bits 0 to 7 of the flags are the scan code, bit 8 marks an extended key.
struct KeyPress {
    unsigned key = 0;
    unsigned flags = 0;
};

/// Which keys are held, and which locks are on.
struct KeyModifiers {
    bool shift = false;
    bool ctrl = false;
    bool alt = false;
    bool left_shift = false;
    bool right_shift = false;
    bool caps_lock = false;
    bool num_lock = false;
};

/// The editor's own input language. `temporary_english` is set while it has switched itself from Hebrew for a number.
struct InputLanguage {
    LanguageId current = hebrew_language;
    bool temporary_english = false;
    bool operator==(const InputLanguage&) const = default;
};

enum class EditCommand {
    nothing,
    /// Insert `character`.
    insert,
    /// Insert what the system keyboard gives for `key`; nothing when it gives nothing.
    insert_from_keyboard,
    insert_tab,
    insert_line,
    delete_before,
    delete_after,
    move_left,
    move_right,
    move_up,
    move_down,
    line_start,
    line_end,
    text_start,
    text_end,
    copy,
    cut,
    paste,
    undo,
    /// Pass the key on to the parent.
    leave_to_parent,
};

enum class ParagraphDirection { unchanged = 0, left_to_right = 1, right_to_left = 2 };

/// What the editor has to do, in the order of the members.
struct KeyAction {
    /// The editor's language after the key.
    InputLanguage language;
    /// The language whose keyboard layout is to be activated; 0 for none.
    LanguageId layout = 0;
    ParagraphDirection direction = ParagraphDirection::unchanged;
    /// The caret is removed from the screen before the actions that follow, and drawn again after them.
    bool redraws_caret = false;
    /// The selection, if there is one, is deleted; delete_before and delete_after then have nothing left to do.
    bool deletes_selection = false;
    EditCommand command = EditCommand::nothing;
    wchar_t character = 0;
    /// The key to ask the system keyboard about, or to pass on.
    unsigned key = 0;
    bool operator==(const KeyAction&) const = default;
};

/// Whether the key belongs to a number: typing it in Hebrew switches the editor to English until another key comes.
bool is_number_key(unsigned key);

/// The key that carries a Hebrew letter on the Israeli standard keyboard, beside the keys A to Z; any other character
/// leaves `key` as it is. Some systems give these three keys codes of their own while the Hebrew layout is on, which no
/// key of a Windows keyboard has together with such a letter.
unsigned standard_key(unsigned key, wchar_t letter);

/// What a key does. With `locked`, Tab and Enter do nothing.
KeyAction translate_key(const KeyPress& press, const KeyModifiers& modifiers, const InputLanguage& language,
                        bool locked);

}  // namespace corvanes
