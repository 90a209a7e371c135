// Scripts: what a person would type at the prompts, line by line, and do in the dialogs.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"

namespace host {

/// One step in the dialog that is open: a line that begins with "@".
struct DialogAction {
    enum Kind {
        press,              ///< @press TARGET
        tick,               ///< @tick TARGET on|off
        click_cell,         ///< @click-cell COLUMN ROW
        double_click_cell,  ///< @double-click-cell COLUMN ROW
        click_heading,      ///< @click-heading COLUMN
        drag_border,        ///< @drag-border COLUMN PIXELS: the right border of the column's heading
        type,               ///< @type "text"
        key,                ///< @key [CTRL+][SHIFT+][ALT+]NAME
        picture,            ///< @picture "file.png": here backslashes are themselves
        expect_text,        ///< @expect-text ID "text"
        close,              ///< @close: the title bar's close box
        alert,              ///< @alert "text" [BUTTON]: "*" in the text stands for anything
        expect_enabled,     ///< @expect-enabled TARGET on|off
        print,              ///< @print "file.png": the pages that the dialog would print, as pictures
    };

    Kind kind = press;
    /// The control: its number, or (when the number is absent) its caption in `text`, "&" left out.
    std::optional<int> id;
    std::wstring text;
    /// Of alert: OK, CANCEL, ABORT, RETRY, IGNORE, YES or NO; empty is the default button.
    std::wstring button;
    int column = 0;
    int row = 0;
    int pixels = 0;
    bool on = false;
    /// A Windows virtual-key code.
    int virtual_key = 0;
    unsigned modifiers = 0;  ///< NamedKey::Modifier bits
};

struct ScriptLine {
    size_t number = 0;  ///< 1-based line of the file
    std::wstring text;
    std::optional<DialogAction> action;  ///< of a line that begins with "@"
};

/// The lines of a script. Comment lines (";" first) are left out; empty lines are answers and stay.
struct Script {
    std::wstring file;
    std::vector<ScriptLine> lines;
};

/// What is wrong with a script, and where.
struct ScriptFault {
    size_t line = 0;
    std::wstring reason;
};

/// Reads a whole script, UTF-8 with or without byte-order mark, lines ended by LF or CR LF. All "@" lines are checked
/// here, so that a misspelt one stops the script before anything has run.
base::Result<Script, ScriptFault> read_script(std::string_view bytes, std::wstring file);

/// A caption as it is read aloud: without "&" ("&&" is one), and without the text after a tab.
std::wstring plain_caption(std::wstring_view caption);

}  // namespace host
