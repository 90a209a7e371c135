// What stands above the table on each printed page.
#pragma once

#include <string>

namespace corvanes {

struct PrintTitles {
    std::wstring left;
    std::wstring right;
};

}  // namespace corvanes
