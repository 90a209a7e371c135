#include <gtest/gtest.h>

#include <string>

#include "platform/host/dxf/name_table.h"
#include "platform/host/dxf/record_fields.h"
#include "platform/host/dxf/record_writer.h"
#include "platform/host/dxf/text_codec.h"
#include "tests/support/rows.h"

namespace {

using dxf::Encoding;
using dxf::TextCodec;
using namespace std::string_literals;

TEST(TextCodec, ChoosesTheCodePage) {
    for (const auto& row : test_support::rows_of(
             "AC1009=ANSI_1255=1255|AC1015=ansi_1252=1252|AC1009=dos850=850|AC1015==1252|AC1015=ANSI_99999=1252|"
             "AC1021=ANSI_949=65001|AC1032==65001|=ANSI_1255=1255|AC1018=ANSI_936=936|AC1009=UTF-8=65001|"
             "AC1009=undefined=1252")) {
        EXPECT_EQ(std::to_string(TextCodec::for_drawing(row[0], row[1]).code_page()), row[2]) << row[1];
    }
}

TEST(TextCodec, ConvertsBothWays) {
    const struct {
        unsigned code_page;
        std::string raw;
        std::wstring text;
        bool both_ways;
    } cases[] = {
        {1255, "\xE3\xEC\xFA 90", L"\u05D3\u05DC\u05EA 90", true},
        {1252, "\\U+05D3\\U+05DC x", L"\u05D3\u05DC x", true},
        {1252, "\xE9\\U+20AB", L"\u00E9\u20AB", true},
        {65001, "\xD7\x93\xEA\xB0\x80", L"\u05D3\uAC00", true},
        {65001, "\\U+05d3", L"\u05D3", false},
        {1252, "\\M+1824F", L"\uFF10", false},
        {1252, "\\M+6824F \\U+12 \\U+", L"\\M+6824F \\U+12 \\U+", true},
        {1252, "a^Jb^I^ c^", L"a\nb\t^c^", false},
        {1252, "a^Jb^Ic", L"a\nb\tc", true},
        {932, "\x83\x5C", L"\u30BD", true},  // the second byte is that of a backslash
        {1252, "\\U+D83D\\U+DE00", L"\U0001F600", true},
        {65001, "\xF0\x9F\x98\x80", L"\U0001F600", true},
        {1252, "\\U+005CU+05D0 \\U+005CM+1824F \\U+5", L"\\U+05D0 \\M+1824F \\U+5", true},  // no escapes
        {1252, "^\\U+05D0", L"\x1CU+05D0", true},
        {65001, "\\U+D83D-", std::wstring{wchar_t{0xD83D}, L'-'}, true},
        {1361, "\\U+05D0", L"\u05D0", true},
    };
    for (const auto& item : cases) {
        const TextCodec codec(item.code_page);
        EXPECT_EQ(codec.decode(item.raw), item.text) << item.raw;
        if (item.both_ways) {
            EXPECT_EQ(codec.encode(item.text), item.raw) << item.raw;
        }
    }
}

TEST(TextCodec, ReadsByTheCodePageWhatIsNoUtf8) {
    const TextCodec korean = TextCodec::for_drawing("AC1021", "ANSI_949");
    EXPECT_EQ(korean.decode("\xB0\xA1 \\U+05D0"), L"\uAC00 \u05D0");
    EXPECT_EQ(korean.decode("\xEA\xB0\x80"), L"\uAC00");
    EXPECT_EQ(korean.encode(L"\uAC00"), "\xEA\xB0\x80");
    EXPECT_EQ(TextCodec::for_drawing("AC1027", "").decode("\xE9t\xE9"), L"\u00E9t\u00E9");
    EXPECT_EQ(TextCodec::for_drawing("AC1032", "UTF-8").decode("\xB0-"), L"\uFFFD-");
}

TEST(NameTable, HoldsNamesEqualButForCaseAsOne) {
    const TextCodec hebrew(1255);
    const TextCodec utf8(65001);
    dxf::NameTable names;
    EXPECT_EQ(names.intern("Door", hebrew), 0U);
    EXPECT_EQ(names.intern("DOOR", hebrew), 0U);
    EXPECT_EQ(names.intern("\xC3\x89TAG\xC3\x88RE", utf8), 1U);
    EXPECT_EQ(names.intern("\xC3\xA9tag\xC3\xA8re", utf8), 1U);
    EXPECT_EQ(names.intern("\xE3\xEC\xFA", hebrew), 2U);
    EXPECT_EQ(names.intern("\\U+05D3\\U+05DC\\U+05EA", hebrew), 2U);
    EXPECT_EQ(names.intern("", hebrew), 3U);
    for (int i = 0; i < 1000; ++i) {
        EXPECT_EQ(names.intern("B" + std::to_string(i), hebrew), 4U + static_cast<unsigned>(i));
    }
    EXPECT_EQ(names.intern("b999", hebrew), 1003U);
    EXPECT_EQ(names.find(L"dOOr"), 0U);
    EXPECT_EQ(names.find(L"window"), dxf::no_name);
    EXPECT_EQ(names.name(1), L"\u00C9TAG\u00C8RE");
    EXPECT_EQ(names.name(dxf::no_name), L"");
}

std::string written(dxf::Manner manner) {
    dxf::RecordWriter writer(std::move(manner));
    writer.type(L"TEXT").handle(5, 0x1AF).real(40, 2.5).integer(70, -3).integer(290, 1).text(1, L"\u05D3 \u20AB\nx");
    return writer.text(1004, L"0AFF").take();
}

TEST(RecordWriter, WritesInTheDrawingsManner) {
    EXPECT_EQ(written({Encoding::ascii, "\r\n", TextCodec(1255)}),
              "  0\r\nTEXT\r\n  5\r\n1AF\r\n 40\r\n2.5\r\n 70\r\n-3\r\n290\r\n1\r\n  1\r\n\xE3 \\U+20AB^Jx\r\n"
              "1004\r\n0AFF\r\n"s);
    EXPECT_EQ(written({Encoding::binary_r12, "\n", TextCodec(1252)}),
              "\0TEXT\0\5"s + "1AF\0\x28\0\0\0\0\0\0\4\x40\x46\xFD\xFF"s + "\xFF\x22\1\1\1\\U+05D3 \\U+20AB^Jx\0"s +
                  "\xFF\xEC\3\2\x0A\xFF"s);
    EXPECT_EQ(written({Encoding::binary, "\n", TextCodec(65001)}),
              "\0\0TEXT\0\5\0"s + "1AF\0\x28\0\0\0\0\0\0\0\4\x40\x46\0\xFD\xFF"s +
                  "\x22\1\1\1\0\xD7\x93 \xE2\x82\xAB^Jx\0"s + "\xEC\3\2\x0A\xFF"s);
}

TEST(RecordWriter, WritesRealsThatReadBackTheSame) {
    const dxf::Manner manner;
    for (const auto& row : test_support::rows_of("0=0.0|-1=-1.0|0.1=0.1|0.33333333333333331=0.3333333333333333|"
                                                 "1e20=1.0E+20|2.5e-9=2.5E-09|123456.75=123456.75")) {
        const double value = std::stod(row[0]);
        const std::string text = dxf::encode_value(40, value, manner);
        EXPECT_EQ(text, row[1]);
        dxf::Group group;
        group.value = text;
        EXPECT_EQ(group.real(), value);
    }
    EXPECT_EQ(dxf::encode_value(70, std::wstring(L"7"), manner), "7");
    EXPECT_EQ(dxf::encode_value(40, int64_t{7}, manner), "7.0");
    EXPECT_EQ(dxf::encode_value(70, std::wstring(L"7"), {Encoding::binary, "", TextCodec(1252)}), "\7\0"s);
}

TEST(RecordView, LooksAmongTheRecordsOwnGroups) {
    const std::string bytes =
        "0\nINSERT\n5\n2A\n102\n{ACAD_REACTORS\n330\n99\n102\n}\n330\n1F\n8\nWalls\n2\nD\\U+05D3\n10\n1.5\n66\n1\n"
        "101\nEmbedded Object\n66\n9\n70\n9\n1\nx\n1001\nAPP\n1000\nnote\n0\nATTRIB\n2\nTAG\n1\nvalue\n"
        "0\nSEQEND\n8\n0\n";
    const dxf::RecordView view(bytes, Encoding::ascii, TextCodec(1252));
    EXPECT_EQ(view.type(), "INSERT");
    EXPECT_EQ(view.handle(5), 0x2AU);
    EXPECT_EQ(view.handle(330), 0x1FU);
    EXPECT_EQ(view.text(2), L"D\u05D3");
    EXPECT_EQ(view.real(10), 1.5);
    EXPECT_EQ(view.integer(66), 1);
    EXPECT_EQ(view.integer(70, 4), 4);
    EXPECT_FALSE(view.has(1)) << "an attribute's value is not the reference's";
    EXPECT_FALSE(view.group(330, 1)) << "a reactor's handle is not the record's";
    EXPECT_EQ(dxf::RecordFields(view).groups().size(), 7U);
    EXPECT_EQ(view.extended_group(1000)->value, "note");
    EXPECT_FALSE(view.extended_group(70));
    const auto parts = view.parts();
    ASSERT_EQ(parts.size(), 2U);
    EXPECT_EQ(parts[0].text(1), L"value");
    EXPECT_EQ(parts[1].bytes(), "0\nSEQEND\n8\n0\n");
}

}  // namespace
