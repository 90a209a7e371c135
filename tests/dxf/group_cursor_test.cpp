#include "platform/host/dxf/group_cursor.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>
#include <string>

#include "tests/support/rows.h"

namespace {

using dxf::Encoding;
using namespace std::string_literals;

/// All groups as "code=value;", then "!reason@position" where reading stopped at a fault.
std::string groups_text(const std::string& bytes, Encoding encoding) {
    dxf::GroupCursor cursor(bytes, encoding);
    dxf::Group group;
    std::string text;
    while (cursor.next(group)) {
        EXPECT_EQ(group.end, cursor.position());
        text += std::to_string(group.code) + "=" + std::string(group.value) + ";";
    }
    if (cursor.error() != nullptr) {
        text += "!" + std::string(cursor.error()) + "@" + std::to_string(cursor.position());
    }
    return text;
}

TEST(GroupCursor, ReadsTextWithAnyLineEndsAndSaysWhereItIsNoGroup) {
    const std::pair<const char*, const char*> cases[] = {
        {"", ""},
        {"0\r\nLINE\r\n  8\r\n0\r\n", "0=LINE;8=0;"},
        {"  0\nLINE\r\n 62 \r\n 7 \n", "0=LINE;62= 7 ;"},
        {"\t1\t\n\n1000\nx", "1=;1000=x;"},
        {"-5\nabc\n0\nEOF", "-5=abc;0=EOF;"},
        {"1\nlonger than one block of sixteen bytes\n2\nnext\n", "1=longer than one block of sixteen bytes;2=next;"},
        {"1\n\xD7\x90 \x0B\x7F\n", "1=\xD7\x90 \x0B\x7F;"},
        {"0", "!the drawing ends within a group@0"},
        {"0\nLINE\n  8", "0=LINE;!the drawing ends within a group@7"},
        {"0\nLINE\n  8\n", "0=LINE;!the drawing ends within a group@7"},
        {"0\nLINE\n-", "0=LINE;!the drawing ends within a group@7"},
        {"0\nLINE\n\nx\n", "0=LINE;!a group code was expected@7"},
        {"0\nLINE\n1x\ny\n", "0=LINE;!a group code was expected@7"},
        {"123456\nx\n", "!a group code was expected@0"},
        {"- 5\nx\n", "!a group code was expected@0"},
        {"5\rx\n", "!a group code was expected@0"},
    };
    for (const auto& [bytes, groups] : cases) {
        EXPECT_EQ(groups_text(bytes, Encoding::ascii), groups) << bytes;
    }
}

TEST(GroupCursor, ReadsBinaryOfBothKinds) {
    EXPECT_EQ(groups_text("\0LINE\0\x3E\7\0\xFF\xE8\3x\0"s, Encoding::binary_r12), "0=LINE;62=\7\0;1000=x;"s);
    EXPECT_EQ(groups_text("\0\0LINE\0\x3E\0\7\0\x22\1\1ok\0"s, Encoding::binary),
              "0=LINE;62=\7\0;290=\1;"s + "!a group code was expected@14");
    EXPECT_EQ(groups_text("\x36\1\3abc\5\0FF\0\x5A\0\1\0\0\0"s, Encoding::binary), "310=abc;5=FF;90=\1\0\0\0;"s);
    const char* const cut_short = "the drawing ends within a group";
    for (const std::string& bytes : {"\5"s, "\5\0FF"s, "\x36\1"s, "\x36\1\3ab"s, "\x0A\0\0\0\0"s, "\xA0\0\1\2\3"s}) {
        EXPECT_EQ(groups_text(bytes, Encoding::binary), "!"s + cut_short + "@0") << bytes;
    }
    EXPECT_EQ(groups_text("\xFF\xE8"s, Encoding::binary_r12), "!"s + cut_short + "@0");
    EXPECT_EQ(groups_text("\xFF\xFF\x7F"s, Encoding::binary_r12), "!a group code was expected@0");
}

TEST(Group, GivesNumbersOfEitherEncoding) {
    const struct {
        int code;
        Encoding encoding;
        std::string value;
        int64_t integer;
        double real;
    } cases[] = {
        {70, Encoding::ascii, "     5 ", 5, 5},
        {70, Encoding::ascii, "+12", 12, 12},
        {40, Encoding::ascii, " -2.75", -2, -2.75},
        {40, Encoding::ascii, "1.5E+3", 1500, 1500},
        {40, Encoding::ascii, "1e300", 0, 1e300},
        {70, Encoding::ascii, "x", 0, 0},
        {70, Encoding::ascii, "", 0, 0},
        {70, Encoding::binary, "\xFE\xFF"s, -2, -2},
        {90, Encoding::binary, "\0\1\0\0"s, 256, 256},
        {160, Encoding::binary, "\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF"s, -1, -1},
        {290, Encoding::binary, "\1"s, 1, 1},
        {40, Encoding::binary, "\0\0\0\0\0\0\4\xC0"s, -2, -2.5},
        {310, Encoding::binary, "abc", 0, 0},
        {1, Encoding::binary, "17", 17, 17},
    };
    for (const auto& item : cases) {
        dxf::Group group;
        group.code = item.code;
        group.encoding = item.encoding;
        group.value = item.value;
        EXPECT_EQ(group.integer(), item.integer) << item.value;
        EXPECT_EQ(group.real(), item.real) << item.value;
    }
    std::mt19937 random(1);
    for (int i = 0; i < 20000; ++i) {
        std::string digits = std::to_string(random() % 100000000);
        digits += i % 3 == 0 ? "" : "." + std::to_string(random() % (i % 3 == 1 ? 1000 : 4000000000));
        const dxf::Group group{.code = 40, .value = i % 2 == 0 ? digits : digits.insert(0, "-")};
        EXPECT_EQ(group.real(), std::strtod(digits.c_str(), nullptr)) << digits;
    }
    for (const auto& row : test_support::rows_of("1aF=1af| 20 =20|=0|12G=0|FFFFFFFFFFFFFFFF=ffffffffffffffff|"
                                                 "10000000000000000=0")) {
        EXPECT_EQ(dxf::parse_handle(row[0]), std::stoull(row[1], nullptr, 16)) << row[0];
    }
}

}  // namespace
