// A drawing of references to named blocks, in text.
#pragma once

#include <string>
#include <vector>

namespace test_support {

/// An R12 drawing in code page 1255 with one empty block for each different name and one reference for each name, in
/// order.
inline std::string drawing_of(const std::vector<std::string>& references) {
    std::string blocks;
    std::string inserts;
    std::vector<std::string> defined;
    for (const std::string& name : references) {
        bool known = false;
        for (const std::string& other : defined) {
            known = known || other == name;
        }
        if (!known) {
            blocks += "  0\nBLOCK\n  8\n0\n  2\n" + name + "\n 70\n0\n 10\n0.0\n 20\n0.0\n  3\n" + name +
                      "\n  0\nENDBLK\n  8\n0\n";
            defined.push_back(name);
        }
        inserts += "  0\nINSERT\n  8\n0\n  2\n" + name + "\n 10\n1.0\n 20\n2.0\n";
    }
    return "  0\nSECTION\n  2\nHEADER\n  9\n$ACADVER\n  1\nAC1009\n  9\n$DWGCODEPAGE\n  3\nANSI_1255\n  0\nENDSEC\n"
           "  0\nSECTION\n  2\nBLOCKS\n" +
           blocks + "  0\nENDSEC\n  0\nSECTION\n  2\nENTITIES\n" + inserts + "  0\nENDSEC\n  0\nEOF\n";
}

}  // namespace test_support
