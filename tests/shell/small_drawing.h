// Makes drawings of references to named blocks, as text.
#pragma once

#include <set>

#include "tests/support/drawing_groups.h"

namespace test_support {

/// An R12 drawing in code page 1255 with one empty block for each different name and one reference for each name, in
/// order.
inline std::string drawing_of(const std::vector<std::string>& references) {
    std::string blocks;
    std::string inserts;
    for (const std::string& name : std::set<std::string>(references.begin(), references.end())) {
        blocks += groups("0 BLOCK|8 0|2 " + name + "|70 0|10 0.0|20 0.0|3 " + name + "|0 ENDBLK|8 0", 3);
    }
    for (const std::string& name : references) {
        inserts += groups("0 INSERT|8 0|2 " + name + "|10 1.0|20 2.0", 3);
    }
    return section("HEADER", groups("9 $ACADVER|1 AC1009|9 $DWGCODEPAGE|3 ANSI_1255")) + section("BLOCKS", blocks) +
           section("ENTITIES", inserts) + end_of_file();
}

}  // namespace test_support
