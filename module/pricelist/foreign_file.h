// The test that recognises files which people choose as a price list by mistake.
#pragma once

#include <string_view>

namespace corvanes {

/// Says in words what a file is instead of a price list; empty when it may be one. Every text file may be one, because
/// the format drops lines that it does not know.
std::wstring_view foreign_kind(std::string_view bytes);

}  // namespace corvanes
