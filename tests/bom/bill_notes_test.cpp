#include "bom/bill_notes.h"

#include <gmock/gmock.h>

#include "bom/bill_json.h"
#include "bom/look_alikes.h"
#include "bom/nested_references.h"

using namespace corvanes;
using testing::ElementsAre;

namespace {

BillSurvey house() {
    BillSurvey survey;
    survey.counted = {{L"DOOR", {0x1A, 0x1B}}, {L"Shower", {0x20}}, {L"*U7", {0x30, 0x31}}};
    survey.arrays = {{L"DOOR", 0x1A, 3, 4}, {L"DOOR", 0x1B, 2, 1}};
    survey.frozen = {{L"lamp", {0x40}}};
    survey.nested = {{L"handle", 2}, {L"bomb", ~std::uint64_t{0}}};
    survey.stacked = {{L"DOOR", {0x1B}}};
    survey.dynamic = {{{L"*U7", {0x30, 0x31}}, L"WINDOW"}};
    return survey;
}

std::string json_of(const Bill& bill) {
    std::string json;
    write_bill_json(bill, [&json](std::string_view piece) { json += piece; });
    return json;
}

constexpr const wchar_t* price_list =
    L"door|12,50|oak\r\n"
    L"\r\n"
    L"no separator\r\n"
    L"|5|no name\r\n"
    L"SH\x041EWER |7|\r\n"
    L"Door||no price\r\n"
    L"DOOR|abc|\r\n"
    L"last|1|";

TEST(BillNotes, TellOneLineOfEachKind) {
    BillSurvey one = house();
    EXPECT_THAT(
        note_lines(bill_notes(one, price_list, true)),
        ElementsAre(L"No price for 3 references of 2 blocks: *U7 2, Shower 1",
                    L"Almost the same name in the price list (1 block): \"SH\x041EWER \" in line 5 for \"Shower\"",
                    L"Arrays, each counted as one (2 with 14 places): DOOR 3 x 4, DOOR 2 x 1",
                    L"Not counted, on frozen layers (1 reference): lamp 1",
                    L"Not counted, inside other blocks (18446744073709551615 references): bomb "
                    L"18446744073709551615, handle 2",
                    L"In the place of another of their block (1 reference): DOOR 1",
                    L"Dynamic blocks under anonymous names (2 references): *U7 is WINDOW 2",
                    L"No entries in the price list (3 lines): line 3 has no separator, line 4 has no name, line 6 has "
                    L"no price",
                    L"Not read in the price list, since no line end follows: line 8",
                    L"Read in part (2 prices): line 1 \"12,50\" as 12.00, line 7 \"abc\" as 0.00",
                    L"More than once in the price list, the last one counts (1 name): door in lines 1 and 7"));
    BillSurvey many;
    for (int i = 0; i < 8; ++i) {
        many.frozen.push_back({L"b" + std::to_wstring(i), {0}});
    }
    EXPECT_THAT(note_lines(bill_notes(many, L"", false)),
                ElementsAre(L"Not counted, on frozen layers (8 references): b0 1, b1 1, b2 1, b3 1, b4 1 and 3 more"));
    many.frozen.clear();
    many.counted = house().counted;
    EXPECT_THAT(bill_notes(many, L"", false), testing::IsEmpty()) << "without a list nothing lacks a price";
    const std::wstring pieces = L"a|1|" + std::wstring(1000, L'x') + L"\nb|2|\n";
    BillSurvey nothing;
    EXPECT_THAT(note_lines(bill_notes(nothing, pieces, true)),
                ElementsAre(L"No entries in the price list (1 line): line 1 is too long and falls apart"));
}

TEST(BillNotes, NamesThatLookAlikeHaveOneForm) {
    const std::pair<const wchar_t*, const wchar_t*> alike[] = {
        {L" Door\xA0", L"DOOR"},        {L"\x0421\x043E\x0432", L"COB"},
        {L"80\x2013x\x0445", L"80-XX"}, {L"\x0392\x039C", L"bm"},
        {L"5\x05F4", L"5\""},           {L"a\x200F", L"A"}};
    for (const auto& [one, other] : alike) {
        EXPECT_EQ(look_alike_form(one), look_alike_form(other));
    }
    EXPECT_NE(look_alike_form(L"door 1"), look_alike_form(L"door1"));
}

TEST(NestedReferences, MultiplyThroughAllLevels) {
    // Block 0 holds block 1 twice and block 2 once; 1 holds 2 three times; 3 holds itself and 2.
    const std::vector<std::vector<HeldBlock>> held{{{1, 2}, {2, 1}}, {{2, 3}}, {}, {{2, 1}, {3, 1}}};
    EXPECT_THAT(nested_counts(held, {5, 1, 9, 2}), ElementsAre(0, 10, 5 + 33 + 2, 0));
    std::vector<std::vector<HeldBlock>> bomb(100000);
    for (size_t i = 0; i + 1 < bomb.size(); ++i) {
        bomb[i] = {{i + 1, 1000}};
    }
    std::vector<std::uint64_t> outside(bomb.size(), 0);
    outside[0] = 1;
    EXPECT_EQ(nested_counts(bomb, outside).back(), ~std::uint64_t{0});
}

TEST(BillJson, HoldsWhatWasShown) {
    Bill bill;
    bill.drawing = {L"a\"b\\\x05D0.dxf", 12, "00ff"};
    bill.price_list = BillSource{L"list.prc", 0, ""};
    bill.rows = {{L"door", L"12.00", L"2", L"oak\t", L"24.00"},
                 {L"Summary:", L"", L"", L"", L"24.00"},
                 {L"Summary:", L"", L"", L"", L"24.00"}};
    bill.counted = {{L"DOOR", {0x1A}}, {L"door", {0xFFFFFFFFFFFFFFFF}}};
    bill.notes = {{NoteCode::stacked, L"DOOR 1", L"DOOR", {0x1B}, 0, 1},
                  {NoteCode::no_entry, L"line 3", L"", {}, 3, 1}};
    EXPECT_EQ(
        json_of(bill),
        "{\"schema\": 1,\n\"program\": \"Corvanes 1.0.0\",\n"
        "\"drawing\": {\"name\": \"a\\\"b\\\\\xD7\x90.dxf\", \"size\": 12, \"sha256\": \"00ff\"},\n"
        "\"prices\": {\"name\": \"list.prc\"},\n"
        "\"columns\": {\"block\": \"Block name\", \"price\": \"Item Price\", \"quantity\": \"Quantity\", "
        "\"description\": \"Description\", \"total\": \"Total\"},\n"
        "\"rows\": [{\"block\": \"door\", \"price\": \"12.00\", \"quantity\": 2, \"description\": \"oak\\u0009\", "
        "\"total\": \"24.00\", \"handles\": [\"1A\", \"FFFFFFFFFFFFFFFF\"]}],\n"
        "\"sum\": \"24.00\",\n"
        "\"notes\": [{\"code\": \"stacked\", \"text\": \"DOOR 1\", \"block\": \"DOOR\", \"handles\": [\"1B\"], "
        "\"number\": 1},\n{\"code\": \"no-entry\", \"text\": \"line 3\", \"line\": 3, \"number\": 1}],\n"
        "\"note_lines\": [\"In the place of another of their block (1 reference): DOOR 1\",\n"
        "\"No entries in the price list (1 line): line 3\"]}\n");
    bill.with_prices = false;
    bill.price_list.reset();
    bill.notes = {{NoteCode::partly_read_price, L"line 4 \"7,5\" as 7.00", L"oak", {}, 4, 1}};
    bill.made_from = {R"({"name": "a.dwg"})", R"({"code": "lost"})", R"("Lost")"};
    EXPECT_EQ(json_of(bill),
              "{\"schema\": 1,\n\"program\": \"Corvanes 1.0.0\",\n\"drawing\": {\"name\": \"a.dwg\"},\n"
              "\"prices\": null,\n\"columns\": {\"block\": \"Block name\", \"quantity\": \"Quantity\", "
              "\"description\": \"Description\"},\n\"rows\": [{\"block\": \"door\", \"price\": null, \"quantity\": 2, "
              "\"description\": \"oak\\u0009\", \"total\": null, \"handles\": [\"1A\", \"FFFFFFFFFFFFFFFF\"]}],\n"
              "\"sum\": null,\n\"notes\": [{\"code\": \"lost\"},\n{\"code\": \"partly-read-price\", "
              "\"text\": \"line 4\", \"block\": \"oak\", \"line\": 4, \"number\": 1}],\n"
              "\"note_lines\": [\"Lost\",\n\"Read in part (1 price): line 4\"]}\n");
}

}  // namespace
