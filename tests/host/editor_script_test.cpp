// Tests of reading scripts, and of running them without a window.
#include <gmock/gmock.h>

#include "base/code_page.h"
#include "platform/host/editor/script.h"
#include "platform/host/editor/script_words.h"

namespace host {
namespace {

using testing::ElementsAre;

/// One line for each line of the script: its number, and its action in words.
std::vector<std::string> as_text(const Script& script) {
    std::vector<std::string> lines;
    for (const ScriptLine& line : script.lines) {
        std::wstring text = std::to_wstring(line.number) + L" ";
        if (line.action) {
            const DialogAction& action = *line.action;
            text += L"kind " + std::to_wstring(action.kind);
            text += action.id ? L" id " + std::to_wstring(*action.id) : L"";
            text += L" [" + action.text + L"]";
            text += action.button.empty() ? L"" : L" button " + action.button;
            for (const int number : {action.column, action.row, action.pixels, action.virtual_key}) {
                text += L" " + std::to_wstring(number);
            }
            text += (action.on ? L" on " : L" off ") + std::to_wstring(action.modifiers);
        } else {
            text += line.text;
        }
        lines.push_back(base::utf8_from_wide(text));
    }
    return lines;
}

std::vector<std::string> read(std::string_view bytes) {
    const base::Result<Script, ScriptFault> script = read_script(bytes, L"s");
    if (!script) {
        return {"fault " + std::to_string(script.reason().line) + ": " + base::utf8_from_wide(script.reason().reason)};
    }
    return as_text(*script);
}

TEST(Script, ReadsAnswersAsTheyAre) {
    EXPECT_THAT(read("\xEF\xBB\xBFQXBOMC\r\n; a comment\r\n\r\n  C:\\new \"x\"\n^C\n\xD7\x90"),
                ElementsAre("1 QXBOMC", "3 ", "4   C:\\new \"x\"", "5 ^C", "6 \xD7\x90"));
    EXPECT_THAT(read(""), ElementsAre());
    EXPECT_THAT(read("A\n\n"), ElementsAre("1 A", "2 "));
}

TEST(Script, ReadsActions) {
    EXPECT_THAT(read("@press \"&Save && go\"\n@press 212\n@tick \"Show Price\" on\n@tick 221 off\n"
                     "@click-cell 1 2\n@double-click-cell 3 0\n@click-heading 4\n@drag-border 1 -30\n"),
                ElementsAre("1 kind 0 [Save & go] 0 0 0 0 off 0", "2 kind 0 id 212 [] 0 0 0 0 off 0",
                            "3 kind 1 [Show Price] 0 0 0 0 on 0", "4 kind 1 id 221 [] 0 0 0 0 off 0",
                            "5 kind 2 [] 1 2 0 0 off 0", "6 kind 3 [] 3 0 0 0 off 0", "7 kind 4 [] 4 0 0 0 off 0",
                            "8 kind 5 [] 1 0 -30 0 off 0"));
    EXPECT_THAT(read("@type \"a\\\"b\\n\\\\c:\\dir\"\n@key ctrl+Shift+a\n@key F12\n@key ALT+escape\n@key CTRL+SHIFT\n"
                     "@picture Z:\\new\\a.png\n@picture \"Z:\\t b\\n.png\"\n@expect-text 214 \"\"\n@close\n"
                     "@alert \"\\nNo * here\"\n@alert \"?\" YES\n@expect-enabled 200 off\n@print Z:\\new\\a.png\n"),
                ElementsAre("1 kind 6 [a\"b\n\\c:\\dir] 0 0 0 0 off 0", "2 kind 7 [] 0 0 0 65 off 3",
                            "3 kind 7 [] 0 0 0 123 off 0", "4 kind 7 [] 0 0 0 27 off 4", "5 kind 7 [] 0 0 0 16 off 1",
                            "6 kind 8 [Z:\\new\\a.png] 0 0 0 0 off 0", "7 kind 8 [Z:\\t b\\n.png] 0 0 0 0 off 0",
                            "8 kind 9 id 214 [] 0 0 0 0 off 0", "9 kind 10 [] 0 0 0 0 off 0",
                            "10 kind 11 [\nNo * here] 0 0 0 0 off 0", "11 kind 11 [?] button YES 0 0 0 0 off 0",
                            "12 kind 12 id 200 [] 0 0 0 0 off 0", "13 kind 13 [Z:\\new\\a.png] 0 0 0 0 off 0"));
}

TEST(Script, RefusesWhatItCannotDoBeforeAnythingRuns) {
    const std::pair<const char*, std::vector<const char*>> refused[] = {
        {"fault 2: unknown action @pres", {"A\n@pres 1"}},
        {"fault 1: unknown action @", {"@"}},
        {"fault 1: expected @press TARGET", {"@press", "@press OK", "@press 1 2"}},
        {"fault 3: a quoted text is not closed", {"; c\n\n@type \"open"}},
        {"fault 1: a quoted text is not closed", {"@type \"a\"b"}},
        {"fault 1: expected @tick TARGET on|off", {"@tick 1", "@tick 1 maybe"}},
        {"fault 1: expected @click-cell COLUMN ROW", {"@click-cell 1 x"}},
        {"fault 1: expected @key [CTRL+][SHIFT+][ALT+]NAME", {"@key CTRL+", "@key HYPER+A", "@key F25"}},
        {"fault 1: expected @alert \"TEXT\" [BUTTON]", {"@alert \"x\" MAYBE"}},
        {"fault 1: expected @expect-text ID \"TEXT\"", {"@expect-text \"x\" \"y\""}},
        {"fault 2: not UTF-8", {"ok\n\xFF\n"}},
    };
    for (const auto& [fault, scripts] : refused) {
        for (const char* const script : scripts) {
            EXPECT_THAT(read(script), ElementsAre(fault)) << script;
        }
    }
}

ScriptRun run_of(std::string_view bytes) {
    return ScriptRun(*read_script(bytes, L"a.scr"));
}

TEST(ScriptRun, AnswersPromptsAndDialogsInOrder) {
    ScriptRun run = run_of("LINE\n\n@press 1\n^C\n");
    EXPECT_EQ(run.answer(L"?").text, L"LINE");
    EXPECT_EQ(run.answer(L"?").kind, Answer::return_only);
    const DialogAction* action = run.action(L"D");
    ASSERT_NE(action, nullptr);
    EXPECT_EQ(action, run.action(L"D")) << "looking takes nothing";
    run.take_action();
    EXPECT_EQ(run.answer(L"?").kind, Answer::cancel);
    EXPECT_TRUE(run.at_end());
    EXPECT_FALSE(run.failed());
    EXPECT_EQ(run.progress(), 4u);
}

TEST(ScriptRun, StopsAtTheFirstThingThatDoesNotFit) {
    ScriptRun ended = run_of("A\n; last\n");
    ended.answer(L"");
    EXPECT_EQ(ended.answer(L"\nUpper left\ncorner: ").kind, Answer::cancel);
    EXPECT_EQ(ended.failure(), L"script a.scr:1: the script ended, but an answer is needed: \"Upper left corner:\"");
    ended.fail(L"later");
    EXPECT_EQ(ended.stall_failure(L"stall"), ended.failure()) << "the first failure stays";

    ScriptRun no_dialog = run_of("A\n@close\nB\n");
    no_dialog.answer(L"");
    no_dialog.answer(L"File: ");
    EXPECT_EQ(no_dialog.answer(L"").kind, Answer::cancel) << "after a failure nothing is taken";
    EXPECT_EQ(no_dialog.action(L""), nullptr);

    ScriptRun stuck = run_of("\n\nA\n");
    stuck.answer(L"");
    stuck.answer(L"");
    EXPECT_EQ(stuck.stall_failure(L"stall"), L"script a.scr:2: stall");
    EXPECT_FALSE(stuck.failed());
}

TEST(Wildcard, FitsWholeTexts) {
    EXPECT_TRUE(matches_wildcard(L"File * could  not be opened", L"File C:\\a*b could  not be opened"));
    EXPECT_TRUE(matches_wildcard(L"*a*b*", L"xaxaxb"));
    EXPECT_TRUE(matches_wildcard(L"**", L""));
    EXPECT_TRUE(matches_wildcard(L"*ab", L"aab"));
    EXPECT_FALSE(matches_wildcard(L"a*", L"ba"));
    EXPECT_FALSE(matches_wildcard(L"*a", L"ab"));
    EXPECT_FALSE(matches_wildcard(L"", L"a"));
}

}  // namespace
}  // namespace host
