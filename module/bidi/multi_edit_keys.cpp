// The editor's keys and its clipboard.
#include <algorithm>
#include <array>
#include <iterator>
#include <optional>

#include "base/code_page.h"
#include "bidi/clipboard_text.h"
#include "bidi/multi_edit.h"

using namespace corvanes;

namespace {

constexpr int tab_width = 4;
constexpr UINT scan_code_bits = 0x1FF;

bool held(int key) {
    return (::GetKeyState(key) & 0xF0) != 0;
}

bool toggled(int key) {
    return (::GetKeyState(key) & 1) != 0;
}

KeyModifiers held_modifiers() {
    KeyModifiers modifiers;
    modifiers.shift = held(VK_SHIFT);
    modifiers.ctrl = held(VK_CONTROL);
    modifiers.alt = held(VK_MENU);
    modifiers.left_shift = held(VK_LSHIFT);
    modifiers.right_shift = held(VK_RSHIFT);
    modifiers.caps_lock = toggled(VK_CAPITAL);
    modifiers.num_lock = toggled(VK_NUMLOCK);
    return modifiers;
}

std::optional<Motion> motion_of(EditCommand command) {
    switch (command) {
        case EditCommand::move_left:
            return Motion::left;
        case EditCommand::move_right:
            return Motion::right;
        case EditCommand::move_up:
            return Motion::up;
        case EditCommand::move_down:
            return Motion::down;
        case EditCommand::line_start:
            return Motion::line_start;
        case EditCommand::line_end:
            return Motion::line_end;
        case EditCommand::text_start:
            return Motion::text_start;
        case EditCommand::text_end:
            return Motion::text_end;
        default:
            return std::nullopt;
    }
}

using KeyboardState = std::array<BYTE, 256>;

/// The character that the system keyboard gives for a key, in the code page of the language in which it is asked.
std::wstring ask_keyboard(UINT key, UINT flags, LanguageId language, const KeyboardState& state) {
    DWORD code_page = 0;
    ::GetLocaleInfoW(MAKELCID(language, SORT_DEFAULT), LOCALE_IDEFAULTANSICODEPAGE | LOCALE_RETURN_NUMBER,
                     reinterpret_cast<LPWSTR>(&code_page), sizeof(code_page) / sizeof(wchar_t));
    if (code_page != ::GetACP()) {
        // ToAscii may answer in the system's code page, which lacks the letters of this keyboard.
        wchar_t letters[4];
        const int length = ::ToUnicode(key, flags & scan_code_bits, state.data(), letters, std::size(letters), 0);
        return {letters, static_cast<size_t>(std::max(length, 0))};
    }
    WORD characters = 0;
    const int count = ::ToAscii(key, flags & scan_code_bits, state.data(), &characters, 0);
    if (count <= 0) {
        return {};
    }
    const char bytes[] = {static_cast<char>(LOBYTE(characters)), static_cast<char>(HIBYTE(characters))};
    return base::wide_from_bytes({bytes, static_cast<size_t>(std::min(count, 2))}, code_page);
}

std::wstring ask_keyboard(UINT key, UINT flags, LanguageId language) {
    KeyboardState state{};
    return ::GetKeyboardState(state.data()) != 0 ? ask_keyboard(key, flags, language, state) : std::wstring();
}

/// Gives a punctuation key that carries a Hebrew letter its standard code, whatever code the system uses; other keys
/// keep theirs.
UINT recognised_key(UINT key, UINT flags) {
    if (key < VK_OEM_1) {
        return key;
    }
    const std::wstring letter = ask_keyboard(key, flags, hebrew_language, KeyboardState{});
    return letter.size() == 1 ? standard_key(key, letter.front()) : key;
}

}  // namespace

void CUGMultiEdit::OnKeyDown(UINT key, UINT repeat, UINT flags) {
    DropTranslatedCharacter(flags);
    HandleKey(key, repeat, flags);
}

// While Alt is held, Shift arrives as this message; the other keys are left to the system.
void CUGMultiEdit::OnSysKeyDown(UINT key, UINT repeat, UINT flags) {
    if (key == VK_SHIFT) {
        HandleKey(key, repeat, flags);
    } else {
        CEdit::OnSysKeyDown(key, repeat, flags);
    }
}

// Drops the character that the message loop has posted for the key that is being handled, because only the editor's own
// one counts. A character that comes without a key (from an input method, a script) is kept.
void CUGMultiEdit::DropTranslatedCharacter(UINT flags) {
    MSG character;
    if ((flags & scan_code_bits) != 0 && ::PeekMessageW(&character, m_hWnd, WM_CHAR, WM_DEADCHAR, PM_NOREMOVE) != 0 &&
        (HIWORD(character.lParam) & scan_code_bits) == (flags & scan_code_bits)) {
        ::PeekMessageW(&character, m_hWnd, character.message, character.message, PM_REMOVE);
    }
}

void CUGMultiEdit::OnChar(UINT character, UINT, UINT) {
    constexpr UINT rubout = 0x7F;
    if (character >= L' ' && character != rubout) {
        TypeCharacter(static_cast<wchar_t>(character));
    }
}

void CUGMultiEdit::TypeFirstCharacter(wchar_t character) {
    if (character >= L'0' && character <= L'9') {
        language_ = translate_key({character, 0}, {}, language_, locked_).language;
    }
    TypeCharacter(character);
}

void CUGMultiEdit::HandleKey(UINT key, UINT repeat, UINT flags) {
    const UINT recognised = recognised_key(key, flags);
    KeyAction action = translate_key({recognised, flags}, held_modifiers(), language_, locked_);
    if (action.command == EditCommand::insert_from_keyboard && action.key == recognised) {
        action.key = key;
    }
    if (recognised == VK_TAB || recognised == VK_ESCAPE) {
        editing_.forget_column();  // also when the key has no other effect here
    }
    Perform(action, repeat, flags);
}

void CUGMultiEdit::Perform(const KeyAction& action, UINT repeat, UINT flags) {
    language_ = action.language;
    if (action.direction != ParagraphDirection::unchanged) {
        SetDirection(action.direction);
    }
    if (action.layout != 0) {
        PostMessage(activate_layout_message, action.layout);
    }
    if (action.command == EditCommand::leave_to_parent) {
        LeaveToParent(action.key, repeat, flags);
        return;
    }
    const bool hides_caret = action.redraws_caret && has_caret_;
    if (hides_caret) {
        HideCaret();
    }
    PerformCommand(action, flags);
    if (hides_caret) {
        ShowCaret();
    }
}

void CUGMultiEdit::PerformCommand(const KeyAction& action, UINT flags) {
    const bool had_selection = !editing_.selection().empty();
    const bool deletes = action.deletes_selection && had_selection;
    if (deletes) {
        Edit([](TextEditing& editing) { editing.delete_selection(); });
    }
    if (const auto motion = motion_of(action.command)) {
        Edit([&motion](TextEditing& editing) { editing.move(*motion, held(VK_SHIFT)); });
        return;
    }
    switch (action.command) {
        case EditCommand::insert:
            return TypeCharacter(action.character);
        case EditCommand::insert_from_keyboard:
            return InsertFromKeyboard(action.key, flags);
        case EditCommand::insert_tab:
            return InsertTab();
        case EditCommand::insert_line:
            return TypeCharacter(L'\n');
        case EditCommand::delete_before:
        case EditCommand::delete_after:
            if (!deletes) {
                const bool before = action.command == EditCommand::delete_before;
                Edit([before](TextEditing& editing) { before ? editing.delete_before() : editing.delete_after(); });
            }
            return;
        case EditCommand::copy:
        case EditCommand::cut:
        case EditCommand::paste:
        case EditCommand::undo: {
            const UINT messages[] = {WM_COPY, WM_CUT, WM_PASTE, WM_UNDO};
            SendMessage(messages[static_cast<int>(action.command) - static_cast<int>(EditCommand::copy)]);
            return;
        }
        default:
            return;
    }
}

void CUGMultiEdit::InsertFromKeyboard(UINT key, UINT flags) {
    for (const wchar_t character : ask_keyboard(key, flags, language_.current)) {
        TypeCharacter(character);
    }
}

void CUGMultiEdit::InsertTab() {
    const std::wstring blanks(static_cast<size_t>(tab_blanks(editing_.caret_column(), tab_width)), L' ');
    Edit([&blanks](TextEditing& editing) {
        for (size_t i = 0; i < blanks.size() && editing.insert(L" "); ++i) {
        }
    });
}

void CUGMultiEdit::LeaveToParent(UINT key, UINT repeat, UINT flags) {
    const HWND parent = ::GetParent(m_hWnd);
    if (parent != nullptr && parent != m_hWnd) {
        const LPARAM details = (repeat & 0xFFFF) | (static_cast<LPARAM>(flags) << 16);
        ::PostMessageW(parent, WM_KEYDOWN, key, details);
    }
}

LRESULT CUGMultiEdit::OnCopy(WPARAM, LPARAM) {
    if (!editing_.selection().empty()) {
        put_clipboard_text(m_hWnd, editing_.selected_text());
    }
    return 0;
}

LRESULT CUGMultiEdit::OnCut(WPARAM, LPARAM) {
    if (!editing_.selection().empty() && put_clipboard_text(m_hWnd, editing_.selected_text())) {
        OnClear(0, 0);
    }
    return 0;
}

LRESULT CUGMultiEdit::OnPaste(WPARAM, LPARAM) {
    if (const auto text = clipboard_text(m_hWnd)) {
        OnReplaceSel(TRUE, reinterpret_cast<LPARAM>(text->c_str()));
    }
    return 0;
}

LRESULT CUGMultiEdit::OnReplaceSel(WPARAM, LPARAM text) {
    const std::wstring_view inserted = reinterpret_cast<const wchar_t*>(text);
    ReplaceSelection(locked_ ? single_line(inserted) : std::wstring(inserted));
    return 0;
}

LRESULT CUGMultiEdit::OnClear(WPARAM, LPARAM) {
    Edit([](TextEditing& editing) { editing.delete_selection(); });
    return 0;
}

LRESULT CUGMultiEdit::OnUndo(WPARAM, LPARAM) {
    Edit([](TextEditing& editing) { editing.undo(); });
    return TRUE;
}

LRESULT CUGMultiEdit::OnCanUndo(WPARAM, LPARAM) {
    return editing_.can_undo() ? TRUE : FALSE;
}
