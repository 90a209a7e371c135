// The numbered names of the table blocks: KVO0001 and so on.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvanes {

/// The number in a table block's name, which has 7 characters and begins with KVO in any case; the rest counts as far
/// as it is a number. Nothing for other names.
std::optional<int> table_number(std::wstring_view block_name);

/// The name after the highest number of `block_names`; nothing when that would be beyond KVO9999.
std::optional<std::wstring> next_table_name(const std::vector<std::wstring>& block_names);

}  // namespace corvanes
