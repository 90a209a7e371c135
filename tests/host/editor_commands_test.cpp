// Tests of the command stack, the processor, the questions and the interface functions, in this process without a
// window.
#include <afxwin.h>
#include <gmock/gmock.h>

#include <deque>
#include <memory>
#include <stdexcept>

#include "aced.h"
#include "acui.h"
#include "base/code_page.h"
#include "platform/host/editor/commands.h"
#include "platform/host/editor/editor.h"
#include "rxdlinkr.h"
#include "tests/host/list_person.h"

namespace host {
namespace {

using testing::ElementsAre;

/// Each command below appends its name to this.
std::wstring ran;
void run_first() {
    ran += L"first;";
}
void run_second() {
    ran += L"second;";
}
void run_throwing() {
    throw std::runtime_error("broken");
}
void run_throwing_number() {
    throw 7;
}
void remove_own_group() {
    acedRegCmds->removeGroup(L"G");
    ran += L"removed;";
}
void run_asking() {
    ads_point point;
    ran += L"asked " + std::to_wstring(acedGetPoint(nullptr, L"P:", point)) + L";";
}

/// A person who also types transparent commands, as the one at the window does.
class TypingPerson final : public ListPerson {
  public:
    using ListPerson::ListPerson;
    Answer prompt(std::wstring_view text, const PointerGuide& guide) override {
        for (;;) {
            Answer answer = ListPerson::prompt(text, guide);
            if (answer.kind != Answer::line || !editor().processor.run_transparent(answer.text)) {
                return answer;
            }
        }
    }
};

class Commands : public testing::Test {
  protected:
    Commands() {
        ran.clear();
        add_session_commands(editor());
        add_file_commands(editor());
    }
    ~Commands() override {
        acedRegCmds->removeGroup(L"G");
        acedRegCmds->removeGroup(L"H");
    }
    static Acad::ErrorStatus add(const wchar_t* group, const wchar_t* global, const wchar_t* local, int flags,
                                 AcRxFunctionPtr function) {
        return acedRegCmds->addCommand(group, global, local, flags, function);
    }
    /// What the host says when `text` is typed at the "Command:" prompt, with these answers.
    static std::wstring typed(const wchar_t* text, std::deque<std::wstring> answers = {}) {
        TypingPerson person(std::move(answers));
        editor().processor.run(text);
        return person.said;
    }
    static std::vector<std::wstring> listed() {
        std::vector<std::wstring> names;
        for (const CommandGroup& group : editor().commands.groups()) {
            for (const RegisteredCommand& command : group.commands) {
                names.push_back(group.name + L":" + command.global_name);
            }
        }
        return names;
    }
};

TEST_F(Commands, AreAllExplained) {
    for (const auto add : {add_drawing_commands, add_view_commands, add_help_commands}) {
        add(editor());
    }
    const std::wstring help = typed(L"help");
    for (const std::wstring& name : editor().processor.own_names()) {
        EXPECT_TRUE(name.starts_with(L"TST") || help.find(L"\n" + name + L": ") != std::wstring::npos) << name.c_str();
    }
}

TEST_F(Commands, AreKeptInGroups) {
    EXPECT_EQ(AcEdCommandStack::cast(acrxSysRegistry()->at(L"acad_registered_commands")), &editor().commands);
    EXPECT_EQ(AcRxDynamicLinker::cast(acrxSysRegistry()->at(L"ACAD_REGISTERED_COMMANDS")), nullptr);
    EXPECT_NE(acrxDynamicLinker, nullptr);

    EXPECT_EQ(add(L"G", L"A_G", L"A", 0, run_first), Acad::eOk);
    EXPECT_EQ(add(L"g", L"B_G", L"B", ACRX_CMD_TRANSPARENT, run_first), Acad::eOk);
    EXPECT_EQ(add(L"H", L"A_G", L"A", 0, run_second), Acad::eOk);
    EXPECT_EQ(add(L"G", L"a_g", L"C", 0, run_first), Acad::eDuplicateKey);
    EXPECT_EQ(add(L"G", L"C_G", L"b", 0, run_first), Acad::eDuplicateKey);
    EXPECT_EQ(add(L"G", L"C_G", L"", 0, run_first), Acad::eInvalidInput);
    EXPECT_EQ(add(L"G", L"C_G", L"C", 0, nullptr), Acad::eInvalidInput);
    EXPECT_EQ(acedRegCmds->addCommand(L"G", L"C_G", L"C", 0, run_first, nullptr, 7), Acad::eInvalidInput);
    EXPECT_THAT(listed(), ElementsAre(L"H:A_G", L"G:A_G", L"G:B_G"));
    EXPECT_EQ(editor().commands.with_local_name(L"a")->function, &run_second) << "the top group answers";
    EXPECT_EQ(editor().commands.with_global_name(L"A"), nullptr);

    EXPECT_EQ(acedRegCmds->removeGroup(L"h"), Acad::eOk);
    EXPECT_EQ(acedRegCmds->removeGroup(L"H"), Acad::eKeyNotFound);
    EXPECT_THAT(listed(), ElementsAre(L"G:A_G", L"G:B_G"));
}

TEST_F(Commands, RunByTheirNames) {
    add(L"G", L"GLOBAL", L"LOCAL", 0, run_first);
    add(L"G", L"OTHER", L"QUIT", 0, run_second);
    for (const wchar_t* name : {L"local", L"_global", L"GLOBAL", L"Quit"}) {
        EXPECT_EQ(typed(name), L"") << name;
    }
    EXPECT_EQ(ran, L"first;first;first;second;");
    EXPECT_EQ(typed(L".local"), L"!Unknown command \"LOCAL\".") << "not one of the host's own";
    EXPECT_EQ(typed(L"_local"), L"!Unknown command \"LOCAL\".") << "not a global name";
    EXPECT_EQ(typed(L"  "), L"");
}

TEST_F(Commands, LeaveTheHostAliveWhateverTheyDo) {
    add(L"G", L"T", L"T", 0, run_throwing);
    add(L"G", L"N", L"N", 0, run_throwing_number);
    add(L"G", L"R", L"R", 0, remove_own_group);
    EXPECT_EQ(typed(L"t"), L"!T ended with an exception: broken");
    EXPECT_EQ(typed(L"n"), L"!N ended with an exception of a kind that the host does not know");
    EXPECT_FALSE(editor().processor.is_busy());
    EXPECT_EQ(typed(L"r"), L"");
    EXPECT_EQ(ran, L"removed;");
    EXPECT_EQ(typed(L"r"), L"!Unknown command \"R\".");
}

TEST_F(Commands, StartInsideOthersOnlyWhenTransparent) {
    add(L"G", L"ASK", L"ASK", 0, run_asking);
    add(L"G", L"T", L"T", ACRX_CMD_TRANSPARENT, run_first);
    add(L"G", L"M", L"M", ACRX_CMD_MODAL, run_second);
    EXPECT_EQ(typed(L"ask", {L"'t", L"'m", L"'x", L"1,2"}),
              L"<P:>\nResuming ASK command.<P:>!M cannot run while another command is active.\nResuming ASK command."
              L"<P:>!Unknown command \"X\".\nResuming ASK command.<P:>");
    EXPECT_EQ(ran, L"first;asked 5100;");
}

TEST_F(Commands, OfTheHostTakeTheirAnswersFromArguments) {
    ListPerson person;
    EXPECT_EQ(acedCommand(RTSTR, L"_.setvar", RTSTR, L"TEXTSIZE", RTREAL, 0.1, RTNONE), RTNORM);
    EXPECT_EQ(editor().variables.get(L"TEXTSIZE"), VariableValue(0.1));
    const ads_point base = {1, 2.5, 0};
    EXPECT_EQ(acedCommand(RTSTR, L".SETVAR", RTSTR, L"INSBASE", RT3DPOINT, base, 0), RTNORM);
    EXPECT_EQ(editor().variables.get(L"INSBASE"), VariableValue(Point{1, 2.5, 0}));
    EXPECT_EQ(acedCommand(RTSTR, L".NOSUCH", RTNONE), RTREJ);
    EXPECT_EQ(acedCommand(RTSTR, L".SETVAR", RTSTR, L"OSMODE", RTNONE), RTERROR);
    EXPECT_EQ(acedCommand(RTSTR, L".SETVAR", RTSTR, L"OSMODE", RTSHORT, 1, RTSHORT, 2, RTNONE), RTERROR);
    EXPECT_EQ(acedCommand(RTSTR, L".SETVAR", RTSTR, L"ATTREQ", RTSHORT, 9, RTNONE), RTERROR);
    EXPECT_EQ(person.said,
              L"!Unknown command \".NOSUCH\".!.SETVAR needs more arguments.!.SETVAR was given too many arguments."
              L"!\"9\" is no value for ATTREQ.");
}

TEST(Questions, FollowTheRulesOfInitGet) {
    ads_point point = {9, 9, 9};
    const auto ask = [&](int rules, const wchar_t* keywords, std::deque<std::wstring> answers) {
        ListPerson person(std::move(answers));
        acedInitGet(rules, keywords);
        const int outcome = acedGetPoint(nullptr, L"P", point);
        return std::to_wstring(outcome) + L" " + person.said;
    };
    EXPECT_EQ(ask(0, L"", {L"1,2,3"}), L"5100 <P>");
    EXPECT_EQ(point[X] * 100 + point[Y] * 10 + point[Z], 123);
    EXPECT_EQ(ask(0, L"", {L""}), L"5000 <P>");
    EXPECT_EQ(ask(RSG_NONULL, L"", {L"", L"bad", L"4,5"}),
              L"5100 <P>!A point is needed: x,y or x,y,z.<P>!A point is needed: x,y or x,y,z.<P>");
    EXPECT_EQ(ask(0, L"", {L"^C"}), L"-5002 <P>");
    EXPECT_EQ(ask(0, L"Base Undo", {L"b"}), L"-5005 <P>");
    ACHAR input[133];
    acedGetInput(input);
    EXPECT_STREQ(input, L"Base");
    EXPECT_EQ(ask(RSG_OTHER, L"", {L"some text"}), L"-5005 <P>");
    acedGetInput(input);
    EXPECT_STREQ(input, L"some text");

    ListPerson person({L"0", L"-1", L"5", L"", L"y"});
    ads_real real = 0;
    acedInitGet(RSG_NOZERO | RSG_NONEG, nullptr);
    EXPECT_EQ(acedGetReal(L"", &real), RTNORM);
    EXPECT_EQ(real, 5);
    EXPECT_EQ(acedGetReal(L"", &real), RTNONE) << "rules hold for one question";
    acedInitGet(0, L"Yes No");
    EXPECT_EQ(acedGetKword(L"", input), RTNORM);
    EXPECT_STREQ(input, L"Yes");
}

TEST(Variables, PassThroughResultBuffers) {
    resbuf value{};
    EXPECT_EQ(acedGetVar(L"cmdecho", &value), RTNORM);
    EXPECT_EQ(value.restype, RTSHORT);
    value.resval.rint = 0;
    EXPECT_EQ(acedSetVar(L"CMDECHO", &value), RTNORM);
    EXPECT_EQ(editor().variables.get(L"CMDECHO"), VariableValue(0));
    EXPECT_EQ(acedGetVar(L"EXTMIN", &value), RTNORM);
    EXPECT_EQ(value.restype, RT3DPOINT);
    EXPECT_EQ(acedGetVar(L"DATE", &value), RTNORM);
    EXPECT_EQ(value.restype, RTREAL);
    EXPECT_GT(value.resval.rreal, 2460000) << "days, after 2023";
    EXPECT_EQ(acedGetVar(L"ACADVER", &value), RTNORM);
    EXPECT_EQ(value.restype, RTSTR);
    EXPECT_STREQ(value.resval.rstring, L"18.0");
    EXPECT_EQ(acedSetVar(L"ACADVER", &value), RTERROR);
    EXPECT_EQ(acedSetVar(L"CMDECHO", &value), RTERROR);
    acad_free(value.resval.rstring);
    EXPECT_EQ(acedGetVar(L"NOSUCH", &value), RTERROR);
    EXPECT_EQ(acedGetVar(nullptr, &value), RTERROR);
}

}  // namespace
}  // namespace host
