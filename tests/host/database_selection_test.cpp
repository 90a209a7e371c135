#include "acedsel.h"
#include "platform/host/database/entity_selector.h"
#include "platform/host/database/name_pattern.h"
#include "tests/host/database_fixture.h"
#include "tests/host/list_person.h"
#include "tests/support/rows.h"

namespace {

/// Entities 0 to 9 by handle A0 to A9. Layers: "ice" frozen, "dark" off, "safe" locked.
std::string mixed_drawing(const std::string& tilemode = "1") {
    return section("HEADER", groups("9 $ACADVER|1 AC1009|9 $TILEMODE|70 " + tilemode)) +
           section("TABLES", table("LAYER", {"2 0|70 0|62 7|6 CONTINUOUS", "2 ice|70 1|62 1|6 CONTINUOUS",
                                             "2 DARK|70 0|62 -2|6 CONTINUOUS", "2 safe|70 4|62 3|6 CONTINUOUS"})) +
           section("BLOCKS", groups("0 BLOCK|8 0|2 DOOR|70 0|10 0|20 0|0 LINE|8 0|10 0|20 0|11 2|21 0|0 ENDBLK|"
                                    "0 BLOCK|8 0|2 WINDOW1|70 0|10 0|20 0|0 CIRCLE|8 0|10 0|20 0|40 1|0 ENDBLK")) +
           section("ENTITIES",
                   groups("0 INSERT|5 A0|8 0|2 DOOR|10 0|20 0|0 INSERT|5 A1|8 0|2 Window1|62 1|10 10|20 0|"
                          "0 LINE|5 A2|8 0|62 5|10 20|20 0|11 30|21 10|0 INSERT|5 A3|8 ice|2 DOOR|10 0|20 50|"
                          "0 INSERT|5 A4|8 dark|2 DOOR|10 0|20 0|0 INSERT|5 A5|8 safe|2 DOOR|10 40|20 0|"
                          "0 CIRCLE|5 A6|8 Safe|62 1|10 60|20 0|40 5|0 INSERT|5 A7|8 0|67 1|2 DOOR|10 0|20 0|"
                          "0 TEXT|5 A8|67 1|10 0|20 9|40 1|1 Note|0 TEXT|5 A9|10 80|20 0|40 1|1 noted")) +
           end_of_file();
}

/// "0 2 5": the last digits of the set's entities, in its order.
std::string members(const ads_name set) {
    long length = -1;
    if (acedSSLength(set, &length) != RTNORM) {
        return "no set";
    }
    std::string text;
    for (long i = 0; i < length; ++i) {
        ads_name entity;
        AcDbObjectId id;
        if (acedSSName(set, i, entity) != RTNORM || acdbGetObjectId(id, entity) != Acad::eOk) {
            return "unknown member";
        }
        text += (text.empty() ? "" : " ") + std::to_string(Adesk::UInt64{id.handle()} - 0xA0);
    }
    return text;
}

std::string select(const ACHAR* mode, const struct resbuf* filter = nullptr, const ads_real* one = nullptr,
                   const ads_real* other = nullptr) {
    ads_name set;
    const int result = acedSSGet(mode, one, other, filter, set);
    return result == RTNORM ? members(set) : result == RTCAN ? "cancelled" : "nothing";
}

struct Question {
    std::string selected;
    std::wstring shown;
};

Question ask(std::deque<std::wstring> answers, const struct resbuf* filter = nullptr, const ACHAR* mode = nullptr) {
    host::ListPerson person(std::move(answers));
    const std::string selected = select(mode, filter);
    EXPECT_TRUE(person.selected.empty()) << "what was shown as selected is no more";
    return {selected, person.said};
}

}  // namespace

TEST(NamePattern, MatchesAsTheHostDoes) {
    const wchar_t* const fitting =
        L"door=door|door=d*r|door=d??r|door7=door#|doors=door@|a-b=a.b|wall=~d*|wall=door,wall|c=[abc]|d=[~a-c]|a,b=a`,"
        L"b|"
        L"a*b=a`*b|=*|=|aXbXc=*X*c|mississippi=*ss*pi|[x=[x|a~b=a~b";
    const wchar_t* const others =
        L"door=Door|door=d?r|doors=door#|axb=a.b|door=~d*|wall=door,~wall|d=[a-c]|axb=a`*b|x=";
    for (const wchar_t* const rows : {fitting, others}) {
        for (const auto& row : test_support::rows_of(rows)) {
            EXPECT_EQ(host::NamePattern(row[1]).matches(row[0]), rows == fitting) << row[0] << " " << row[1];
            EXPECT_EQ(acutWcMatch(row[0].c_str(), row[1].c_str()) == 1, rows == fitting);
        }
    }
    // Backtracking over every star would take for ever here.
    EXPECT_FALSE(host::NamePattern(L"*a*a*a*a*a*a*a*a*a*b").matches(std::wstring(5000, L'a')));
}

TEST(Selection, MethodsFindWhatTheHostFinds) {
    const OpenDrawing drawing(mixed_drawing());
    EXPECT_EQ(select(L"A"), "0 1 2 4 5 6 9");
    EXPECT_EQ(select(L"_X"), "0 1 2 3 4 5 6 7 8 9");
    EXPECT_EQ(select(L"L"), "9");
    EXPECT_EQ(select(L"P"), "nothing");
    EXPECT_EQ(select(L"I"), "nothing");
    EXPECT_EQ(select(L"Q"), "nothing");
    const ads_point low = {-1, -1, 0};
    const ads_point high = {25, 12, 0};
    EXPECT_EQ(select(L"W", nullptr, low, high), "0 1");
    EXPECT_EQ(select(L"_C", nullptr, high, low), "0 1 2");
    EXPECT_EQ(select(L"W", nullptr, low), "nothing");
    const ads_point on_the_rim = {65, 0, 0};
    const ads_point inside = {60, 0, 0};
    EXPECT_EQ(select(nullptr, nullptr, on_the_rim), "6");
    EXPECT_EQ(select(nullptr, nullptr, inside), "nothing");
    EXPECT_EQ(host::EntitySelector(drawing.store()).at_point(AcGePoint3d(60, 0, 0), 5.5).size(), 1U);

    const OpenDrawing paper(mixed_drawing("0"));
    EXPECT_EQ(select(L"A"), "7 8");
    EXPECT_EQ(select(L"C", nullptr, low, high), "7 8");
}

TEST(Selection, FiltersTakeTheListsOfTheHost) {
    const OpenDrawing drawing(mixed_drawing());
    struct Case {
        List filter;
        const char* found;
    };
    const Case cases[] = {
        {list(0, L"INSERT"), "0 1 3 4 5 7"},
        {list(0, L"insert"), "0 1 3 4 5 7"},
        {list(0, L"LINE,CIRC*"), "2 6"},
        {list(0, L"~INSERT"), "2 6 8 9"},
        {list(0, L"INSERT", 2, L"door"), "0 3 4 5 7"},
        {list(0, L"INSERT", 2, L"*#"), "1"},
        {list(8, L"ICE,dark"), "3 4"},
        {list(8, L"0"), "0 1 2 7 8 9"},
        {list(62, 1), "1 6"},
        {list(62, 256), "0 3 4 5 7 8 9"},
        {list(67, 1), "7 8"},
        {list(67, 0, 0, L"TEXT"), "9"},
        {list(410, L"model"), "0 1 2 3 4 5 6 9"},
        {list(410, L"Layout*"), "7 8"},
        {list(1, L"NOTE*"), "8 9"},
        {list(40, 1.0), "8 9"},
        {list(-4, L">", 40, 1.0), "6"},
        {list(-4, L"<OR", 0, L"LINE", 62, 1, -4, L"OR>"), "1 2 6"},
        {list(-4, L"<or", -4, L"<and", 0, L"INSERT", 8, L"ice", -4, L"and>", 0, L"LINE", -4, L"or>"), "2 3"},
        {list(-4, L"<NOT", 0, L"INSERT", -4, L"NOT>", 67, 0), "2 6 9"},
        {list(-4, L"<XOR", 0, L"INSERT", 62, 1, -4, L"XOR>"), "0 3 4 5 6 7"},
        {list(-4, L"&", 62, 4), "2"},
        {list(-4, L">=", 62, 5), "0 2 3 4 5 7 8 9"},
    };
    for (const Case& one : cases) {
        EXPECT_EQ(select(L"X", one.filter.get()), one.found);
    }
    const ads_point corner = {40, 0, 0};
    EXPECT_EQ(select(L"X", list(-4, L">=,=,*", 10, corner).get()), "5 6 9");

    const List broken[] = {list(-4, L"<OR", 62, 1), list(62, 1, -4, L"OR>"), list(-4, L"<OR", 62, 1, -4, L"AND>"),
                           list(-4, L"=>", 62, 1), list(-4, L">")};
    for (const List& filter : broken) {
        EXPECT_EQ(select(L"X", filter.get()), "nothing");
    }
}

TEST(Selection, TheQuestionTakesTheUsersAnswers) {
    const OpenDrawing drawing(mixed_drawing());
    const List inserts = list(0, L"INSERT");

    const Question all = ask({L"ALL", L""}, inserts.get());
    EXPECT_EQ(all.selected, "0 1 4 5");
    EXPECT_EQ(all.shown, L"<\nSelect objects: >\n4 found\n3 were filtered out.<\nSelect objects: >");

    const Question many = ask({L"w", L"-1,-1", L"15,5", L"_Crossing", L"15,5", L"25,12", L"10,1", L"r", L"20,0", L""});
    EXPECT_EQ(many.selected, "0 1");
    EXPECT_EQ(many.shown,
              L"<\nSelect objects: ><\nSpecify first corner: ><\nSpecify opposite corner: >\n2 found"
              L"<\nSelect objects: ><\nSpecify first corner: ><\nSpecify opposite corner: >\n1 found, 3 total"
              L"<\nSelect objects: >\n1 found (1 duplicate), 3 total"
              L"<\nSelect objects: ><\nRemove objects: >\n1 found, 1 removed, 2 total<\nRemove objects: >");
    EXPECT_EQ(ask({L"p", L""}).selected, "0 1");
    EXPECT_EQ(ask({L"last", L"p", L"u", L"a", L""}).selected, "9");

    // An empty place begins a rectangle: to the right a window, to the left a crossing.
    EXPECT_EQ(ask({L"15,20", L"35,-5", L""}).selected, "2");
    EXPECT_EQ(ask({L"22,20", L"35,-5", L""}).selected, "nothing");
    EXPECT_EQ(ask({L"35,20", L"22,-5", L""}).selected, "2");

    // An option may be typed in place of a corner.
    const Question instead = ask({L"15,20", L"all", L"w", L"r", L"10,1", L""}, inserts.get());
    EXPECT_EQ(instead.selected, "0 4 5");
    EXPECT_EQ(instead.shown,
              L"<\nSelect objects: ><\nSpecify opposite corner: >\n4 found\n3 were filtered out."
              L"<\nSelect objects: ><\nSpecify first corner: ><\nRemove objects: >\n1 found, 1 removed, 3 total"
              L"<\nRemove objects: >");

    // Shift, held at either corner, takes out what that pick selects, and nothing else.
    const Question without =
        ask({L"all", L"shift+10,1", L"shift+15,20", L"35,-5", L"10,1", L"5,5", L"shift+15,-1", L""});
    EXPECT_EQ(without.selected, "0 4 5 6 9");
    EXPECT_EQ(without.shown,
              L"<\nSelect objects: >\n7 found<\nSelect objects: >\n1 found, 1 removed, 6 total"
              L"<\nSelect objects: ><\nSpecify opposite corner: >\n1 found, 1 removed, 5 total"
              L"<\nSelect objects: >\n1 found, 6 total"
              L"<\nSelect objects: ><\nSpecify opposite corner: >\n1 found, 1 removed, 5 total<\nSelect objects: >");
    EXPECT_EQ(ask({L"65,0"}, nullptr, L":S").selected, "6");

    const Question refused = ask({L"everything", L"w", L"here", L""});
    EXPECT_EQ(refused.selected, "nothing");
    EXPECT_EQ(refused.shown,
              L"<\nSelect objects: >!*Invalid selection*\nExpects a point or "
              L"Window/Last/Crossing/BOX/ALL/Add/Remove/Previous/Undo"
              L"<\nSelect objects: ><\nSpecify first corner: >!Invalid point.<\nSelect objects: >\nNothing selected.");
    EXPECT_EQ(ask({L"ALL"}).selected, "cancelled");
    EXPECT_EQ(ask({L"w", L"0,0"}).selected, "cancelled");
    EXPECT_EQ(ask({L""}).shown, L"<\nSelect objects: >\nNothing selected.");
    EXPECT_EQ(ask({L"p", L""}).selected, "6") << "a cancelled or empty question leaves the previous selection";
}

TEST(Selection, SetsAreKeptUntilTheyAreFreed) {
    ads_name set;
    {
        const OpenDrawing drawing(mixed_drawing());
        const List red = list(62, 1);
        ASSERT_EQ(acedSSGet(L"X", nullptr, nullptr, red.get(), set), RTNORM);
        EXPECT_EQ(members(set), "1 6");
        ads_name entity;
        EXPECT_EQ(acedSSName(set, 2, entity), RTERROR);
        EXPECT_EQ(acedSSName(set, -1, entity), RTERROR);
        const ads_name freed = {set[0], set[1]};
        EXPECT_EQ(acedSSFree(set), RTNORM);
        EXPECT_EQ(acedSSFree(freed), RTERROR);
        EXPECT_EQ(members(freed), "no set");
        ASSERT_EQ(acedSSGet(L"X", nullptr, nullptr, red.get(), set), RTNORM);
        EXPECT_EQ(members(set), "1 6");
    }
    EXPECT_EQ(members(set), "no set") << "the drawing is closed";
}
