// The program's name in the titles of its windows and boxes.
#pragma once

namespace host {

inline constexpr wchar_t program_name[] = L"Drawing Host";

}  // namespace host
