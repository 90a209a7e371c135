// Names of commands for what was typed of them: completed, or the nearest to a misspelt one.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace host {

/// What Tab makes of a line: the first of `names` (in order) that begins as `typed` does, in any case; prefixes ("'",
/// "_", ".") stay. Further Tabs give the next ones and come back to the first; `shown` is what the Tab before gave, or
/// empty. Unchanged where nothing begins so.
std::wstring completed_name(std::wstring_view typed, std::wstring_view shown, std::vector<std::wstring> names);

/// The name that differs from `typed` by the fewest letters (left out, added, changed, or two swapped), without regard
/// to case; empty when more than a third of its letters differ. Never that name itself.
std::wstring nearest_name(std::wstring_view typed, const std::vector<std::wstring>& names);

}  // namespace host
