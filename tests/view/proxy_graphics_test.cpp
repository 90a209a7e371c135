#include <gtest/gtest.h>

#include <cstring>
#include <initializer_list>

#include "tests/view/described_list.h"

namespace host {

namespace {

template <typename Number>
std::string hexadecimal(Number number) {
    unsigned char bytes[sizeof number];
    std::memcpy(bytes, &number, sizeof number);
    std::string text;
    for (const unsigned char byte : bytes) {
        text += {"0123456789ABCDEF"[byte >> 4], "0123456789ABCDEF"[byte & 15]};
    }
    return text;
}

std::string word(uint32_t number) {
    return hexadecimal(number);
}

std::string reals(std::initializer_list<double> numbers) {
    std::string text;
    for (const double number : numbers) {
        text += hexadecimal(number);
    }
    return text;
}

std::string part(uint32_t type, const std::string& body) {
    return word(static_cast<uint32_t>(8 + body.size() / 2)) + word(type) + body;
}

/// An entity with a picture of these parts, in chunks of up to 254 digits.
std::string proxy(const std::string& parts, const std::string& more = "") {
    const std::string digits = word(0) + word(0) + parts;
    std::string groups = "0 ACAD_PROXY_ENTITY|8 0|62 1" + more + "|92 " + std::to_string(digits.size() / 2);
    for (size_t at = 0; at < digits.size(); at += 254) {
        groups += "|310 " + digits.substr(at, 254);
    }
    return groups;
}

}  // namespace

TEST(ProxyGraphics, AreReadPartByPart) {
    const std::string square = word(4) + reals({0, 0, 0, 2, 0, 0, 2, 2, 0, 0, 2, 0});
    const std::string up = reals({0, 0, 1});
    const std::string matrix = reals({0, -1, 0, 10, 1, 0, 0, 20, 0, 0, 1, 0, 0, 0, 0, 1});
    const std::string half = part(4, reals({1, 1, 0, 3}) + up + reals({0, 2, 0, 1.5707963267948966}) + word(0));
    const std::string layers =
        tables("0 TABLE|2 LAYER|" + layer("0", 7) + "|" + layer("GREEN", 3) + "|" + layer("OFF", -2) + "|0 ENDTAB");
    EXPECT_EQ(
        "ff0000 arc 5,6 u 7,0 v 0,7 from 0 by 360\n"
        "ff0000 arc 1,1 u 0,3 v -3,0 from 0 by 90\n"
        "ff0000 arc 0,0 u 5,0 v 0,5 from 0 by 180\n"
        "00ff00 strip 0,0 2,0 2,2 0,2 0,0\n"
        "0000ff fill 0,0 2,0 2,2 0,2\n"
        "123456 strip 10,20 10,22 8,22 8,20\n"
        "ff0000 strip 0,0 2,0 2,2 0,0\n"
        "ff0000 text \"ab\" left 1,2 x 0,6 y -3,0\n"
        "ff0000 text \"\u05d0\" left 1,2 x 0,6 y -3,0 from right\n"
        // A path of two points with equal y and a bulge of 1.
        "ff0000 arc 1.5,1 u 0.5,0 v 0,0.5 from 180 by 180\n",
        described(layers +
                  entities(proxy(part(1, reals({0, 0, 0, 1, 1, 1})) + part(2, reals({5, 6, 0, 7}) + up) + half +
                                 part(5, reals({5, 0, 0, 0, 5, 0, -5, 0, 0}) + word(0)) + part(16, word(1)) +
                                 part(14, word(256)) + part(7, square) + part(16, word(2)) + part(7, square) +
                                 part(16, word(1)) + part(14, word(5)) + part(20, word(1)) + part(7, square) +
                                 part(22, word(0xC2123456)) + part(29, matrix) + part(32, square + up) + part(31, "") +
                                 part(14, word(0)) + part(9, square + word(4) + word(3) + word(0) + word(1) + word(2)) +
                                 part(10, reals({1, 2, 0}) + up + reals({0, 1, 0, 3, 2, 0}) + "61620000") +
                                 part(36, reals({1, 2, 0}) + up + reals({0, 1, 0, 3, 2, 0}) + "D0050000") +
                                 part(33, "0400102404000000000003C0FC000000000003C0FF000000000000004010")))));
}

TEST(ProxyGraphics, AreReadUpToWhereTheyAreCutOff) {
    const std::string line = part(6, word(2) + reals({0, 0, 0, 1, 1, 0}));
    const std::string cut = line.substr(0, line.size() - 8);
    for (const std::string& rest :
         {cut, word(0) + word(6), word(0xFFFFFFF0) + word(6), part(8, word(0xFFFFFFFF) + word(0xFFFFFFFF)),
          part(9, word(3) + reals({0, 0, 0}) + word(0xFFFFFFFF) + word(0x80000000)), part(33, "0000"), part(99, "")}) {
        EXPECT_EQ("ff0000 strip 0,0 1,1\n", described(entities(proxy(line + rest)))) << rest;
    }
    const DisplayList list = DisplayList::build(*drawing_of(entities(
        "0 3DSOLID|8 0|0 ACAD_PROXY_ENTITY|8 0|0 3DSOLID|8 0|0 OLE2FRAME|8 0|90 4|310 ABCDEF00|0 VIEWPORT|8 0")));
    EXPECT_EQ((std::map<std::wstring, size_t>{{L"3DSOLID", 2}, {L"ACAD_PROXY_ENTITY", 1}, {L"OLE2FRAME", 1}}),
              list.not_shown);
}

}  // namespace host
