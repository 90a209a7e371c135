// Tests of the reading of typed text: command names, points, numbers, keywords, system variables, program arguments.
#include <gmock/gmock.h>

#include "platform/host/app/options.h"
#include "platform/host/editor/system_variables.h"
#include "platform/host/prompt/command_names.h"
#include "platform/host/prompt/input_text.h"
#include "platform/host/prompt/keywords.h"
#include "tests/support/rows.h"

namespace host {
namespace {

TEST(CommandName, KnowsItsPrefixes) {
    const auto show = [](std::wstring_view typed) {
        const CommandName name = parse_command_name(typed);
        return (name.transparent ? L"t" : L"") + std::wstring(name.built_in ? L"b" : L"") +
               (name.global_only ? L"g" : L"") + L"[" + name.name + L"]";
    };
    for (const auto& row :
         test_support::rows_of(L"  qxbomc =[qxbomc]|'_.INSERT=tbg[INSERT]|._A.B_C=bg[A.B_C]|__X=g[_X]|'=t[]| =[]")) {
        EXPECT_EQ(show(row[0]), row[1]);
    }
}

TEST(InputText, ReadsNumbersAndPoints) {
    EXPECT_EQ(parse_point(L" 1.5 , -2e3"), (Point{1.5, -2000, 0}));
    EXPECT_EQ(parse_point(L"+1,.5,3"), (Point{1, 0.5, 3}));
    for (const wchar_t* refused :
         {L"", L"1", L"1,", L"1,2,3,4", L"1;2", L"a,b", L"1,2x", L"inf,0", L"1e999,0", L"+-1,0"}) {
        EXPECT_FALSE(parse_point(refused)) << refused;
    }
    EXPECT_EQ(parse_percent_point(L"105%, -2.5%"), (Point{1.05, -0.025, 0}));
    EXPECT_FALSE(parse_percent_point(L"105%,1"));
    EXPECT_FALSE(parse_percent_point(L"%,%"));
    EXPECT_EQ(parse_integer(L"+12"), 12);
    EXPECT_FALSE(parse_integer(L"1.0"));
    EXPECT_FALSE(parse_integer(L"99999999999"));
    EXPECT_FALSE(parse_integer(L"\x0661"));
    for (const double number : {0.1, -1e-300, 12345678.25, 1.0 / 3}) {
        EXPECT_EQ(parse_real(format_real(number)), number);
    }
    EXPECT_EQ(format_point({1, 2.5, 0}), L"1,2.5,0");
}

TEST(InputText, ReadsPointerEvents) {
    const auto move = parse_input_event(L"move 3,4");
    ASSERT_TRUE(move);
    EXPECT_EQ(move->kind, InputEvent::move);
    EXPECT_EQ(move->point, (Point{3, 4, 0}));
    EXPECT_EQ(parse_input_event(L"pick  1,2,3")->kind, InputEvent::pick);
    EXPECT_EQ(parse_input_event(L"return")->character, L'\r');
    EXPECT_EQ(parse_input_event(L"")->character, L'\r');
    EXPECT_EQ(parse_input_event(L"key x")->character, L'x');
    for (const wchar_t* refused : {L"move", L"move 1", L"key", L"key xy", L"pick a,b", L"jump 1,2"}) {
        EXPECT_FALSE(parse_input_event(refused)) << refused;
    }
}

TEST(Keywords, TakeAbbreviations) {
    const Keywords keywords(L"Load  Unload eXit LType");
    for (const auto& row : test_support::rows_of(L"l=Load|LO=Load|lt=LType|X=eXit|exit=eXit|e=|loads=|=")) {
        EXPECT_EQ(keywords.match(row[0]), row[1]);
    }
}

TEST(SystemVariables, KeepTypesLimitsAndAccess) {
    SystemVariables variables;
    EXPECT_EQ(variables.get(L"AttReq"), VariableValue(1));
    EXPECT_FALSE(variables.get(L"NOSUCH"));
    EXPECT_TRUE(variables.set(L"attreq", 0));
    EXPECT_EQ(variables.get(L"ATTREQ"), VariableValue(0));
    EXPECT_EQ(variables.set(L"ATTREQ", 2).reason(), L"\"2\" is no value for ATTREQ.");
    EXPECT_FALSE(variables.set(L"ATTREQ", 0.0) || variables.set(L"ATTREQ", std::wstring(L"0")));
    EXPECT_TRUE(variables.set(L"TEXTSIZE", 3)) << "a whole number where a real is kept";
    EXPECT_EQ(variables.get(L"TEXTSIZE"), VariableValue(3.0));
    EXPECT_FALSE(variables.set(L"TEXTSIZE", 0.0));
    EXPECT_EQ(variables.set(L"DWGNAME", std::wstring(L"x")).reason(), L"DWGNAME is read-only.");
    EXPECT_EQ(variables.set(L"NOSUCH", 1).reason(), L"Unknown variable \"NOSUCH\".");
    EXPECT_TRUE(variables.set_from_text(L"INSBASE", L"1,2"));
    EXPECT_EQ(format_variable(*variables.get(L"INSBASE")), L"1,2,0");
    EXPECT_FALSE(variables.set_from_text(L"OSMODE", L"full") || variables.set_from_text(L"OSMODE", L"32768"));

    variables.compute(L"CMDNAMES", [] { return std::wstring(L"A'B"); });
    EXPECT_EQ(variables.get(L"cmdnames"), VariableValue(std::wstring(L"A'B")));
    EXPECT_ANY_THROW(variables.compute(L"OSMODE", [] { return 1; }));
    EXPECT_ANY_THROW(variables.put(L"OSMODE", 1.0));

    variables.reset_drawing_values();
    EXPECT_EQ(variables.get(L"TEXTSIZE"), VariableValue(2.5)) << "belongs to the drawing";
    EXPECT_EQ(variables.get(L"ATTREQ"), VariableValue(0)) << "belongs to the session";
}

TEST(Options, ReadArguments) {
    const auto options = read_options({L"a.dxf", L"--load", L"m.arx", L"--load", L"n.arx", L"--script", L"s.scr",
                                       L"--hidden", L"--verbose", L"--stall-seconds", L"7"});
    ASSERT_TRUE(options);
    EXPECT_EQ(options->drawing + L"," + options->script, L"a.dxf,s.scr");
    EXPECT_THAT(options->modules, testing::ElementsAre(L"m.arx", L"n.arx"));
    EXPECT_TRUE(options->hidden && options->verbose);
    EXPECT_EQ(options->stall_seconds, 7);
    EXPECT_EQ(read_options({L"--load"}).reason(), L"--load needs a value");
    EXPECT_EQ(read_options({L"--stall-seconds", L"0"}).reason(), L"--stall-seconds needs a number of seconds");
    EXPECT_EQ(read_options({L"--fast"}).reason(), L"unknown option --fast");
    EXPECT_EQ(read_options({L"a", L"b"}).reason(), L"more than one drawing: b");
}

}  // namespace
}  // namespace host
