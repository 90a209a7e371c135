// Names of keys in scripts.
#pragma once

#include <optional>
#include <string_view>

namespace host {

struct NamedKey {
    int virtual_key = 0;     ///< a Windows virtual-key code
    unsigned modifiers = 0;  ///< DialogAction::Modifier bits
};

/// "RETURN", "CTRL+A", "SHIFT+F10": names and modifiers in any case; a single letter or digit is its own name.
std::optional<NamedKey> parse_key(std::wstring_view name);

}  // namespace host
