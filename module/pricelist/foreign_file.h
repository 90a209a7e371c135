// Files that people choose for a price list and that are none.
#pragma once

#include <string_view>

namespace corvanes {

/// What the bytes of a file are instead of a price list, in words; empty when nothing
/// speaks against it. Whatever lines a text holds, it is one: the format drops those that it does not know.
std::wstring_view foreign_kind(std::string_view bytes);

}  // namespace corvanes
