// Tests of what helps a person to type: earlier lines, completed and corrected names, options of prompts, lines of the
// menu.
#include <gmock/gmock.h>

#include "platform/host/editor/window_settings.h"
#include "platform/host/prompt/command_history.h"
#include "platform/host/prompt/command_names.h"
#include "platform/host/prompt/keywords.h"
#include "platform/host/prompt/typed_ahead.h"
#include "tests/support/rows.h"

namespace host {
namespace {

TEST(CommandHistory, WalksThroughWhatWasTypedAndBack) {
    CommandHistory history;
    EXPECT_EQ(history.earlier(L"x") + history.later(L"y"), L"xy") << "nothing was typed";
    for (const wchar_t* const line : {L"open", L"zoom", L"zoom", L""}) {
        history.add(line);
    }
    EXPECT_EQ(history.earlier(L"unfinished"), L"zoom");
    EXPECT_EQ(history.earlier(L"zoom"), L"open");
    EXPECT_EQ(history.earlier(L"open"), L"open");
    EXPECT_EQ(history.later(L"open"), L"zoom");
    EXPECT_EQ(history.later(L"zoom"), L"unfinished");
    EXPECT_EQ(history.later(L"more"), L"more");
}

TEST(CommandNames, CompleteAndCorrect) {
    const std::vector<std::wstring> names{L"SAVEAS", L"QSAVE", L"ZOOM", L"SAVE", L"U", L"\x5D0\x5D1\x5D2\x5D3"};
    for (const auto& row : test_support::rows_of(L"sa==SAVE|'_sa='_SAVE='_SAVEAS|sa=SAVEAS=SAVE|x==x|==")) {
        EXPECT_EQ(completed_name(row[0], row[1], names), row[2]);
    }
    for (const auto& row : test_support::rows_of(L"zom=ZOOM|ozom=ZOOM|savesa=SAVEAS|ZOOM=|x=|drawing=")) {
        EXPECT_EQ(nearest_name(row[0], names), row[1]);
    }
    EXPECT_EQ(nearest_name(L"\x5D0\x5D1\x5D2", names), names.back());
    EXPECT_EQ(nearest_name(std::wstring(100000, L'z'), names), L"");
}

TEST(PromptOptions, AreTheWordsInBrackets) {
    using testing::ElementsAre;
    EXPECT_THAT(prompt_options(L"Factor or [All/Window] <All>: "),
                ElementsAre(PromptOption{11, 3}, PromptOption{15, 6}));
    EXPECT_THAT(prompt_options(L"[//x"), ElementsAre());
    EXPECT_THAT(prompt_options(L"]a[/b/]["), ElementsAre(PromptOption{4, 1}));
}

TEST(TypedAhead, CancelsWhatRunsAndThenGivesACommandWithItsAnswers) {
    TypedAhead typed;
    const auto answers = [&](std::initializer_list<bool> busy) {
        std::wstring all;
        for (const bool now : busy) {
            const std::optional<Answer> answer = typed.next(now);
            all += !answer ? L"-" : answer->kind == Answer::cancel ? L"*Cancel*" : answer->text;
        }
        return all;
    };
    typed.add(L"OPEN\na.dxf");
    EXPECT_EQ(answers({true, true, false, true, true}), L"*Cancel**Cancel*OPENa.dxf-");
    typed.add(L"'ZOOM\nE");
    EXPECT_EQ(answers({true, false}), L"'ZOOM-") << "the command has ended without its answer";
    typed.add(L"U");
    typed.add(L"'PAN");
    for (int prompt = 0; prompt < 20; ++prompt) {
        EXPECT_EQ(answers({true}), L"*Cancel*");
    }
    EXPECT_EQ(answers({true}), L"'PAN") << "a command that cannot be cancelled holds up no other";
}

TEST(WindowSettings, ComeBackAndPassOverWhatIsBroken) {
    WindowSettings settings;
    settings.place = WindowPlace{-5, 10, 800, 600, true};
    settings.folder = L"C:\\\x5D0 b=c";
    for (const wchar_t* const path : {L"C:\\a.dxf", L"C:\\b.dxf", L"c:\\A.DXF"}) {
        settings.add_recent(path);
    }
    EXPECT_THAT(settings.recent, testing::ElementsAre(L"c:\\A.DXF", L"C:\\b.dxf"));
    const std::wstring text = format_window_settings(settings);
    EXPECT_EQ(read_window_settings(text), settings);
    EXPECT_EQ(read_window_settings(L"window=1 2 3\nwindow\n=\n\x1\nrecent=\nfuture=x\r" + text), settings);
    for (const wchar_t* const broken :
         {L"window=1 2 0 4", L"window=1 2 x 4", L"window=1 2 3 99999999", L"folder=\x1"}) {
        EXPECT_EQ(read_window_settings(broken), WindowSettings()) << broken;
    }
    EXPECT_EQ((WindowPlace{-50, 700, 1000, 300, true}.within({0, 0, 800, 900})), (WindowPlace{0, 600, 800, 300, true}));
}

}  // namespace
}  // namespace host
