// Tests of the whole program, run with scripts: its standard error and its exit status.
#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>

#include "tests/support/drawing_groups.h"
#include "tests/support/host_program.h"

namespace {

using test_support::Outcome;
using testing::EndsWith;
using testing::HasSubstr;

const std::string small_drawing = groups(
    "0 SECTION|2 HEADER|9 $ACADVER|1 AC1009|9 $TEXTSIZE|40 3.5|0 ENDSEC|"
    "0 SECTION|2 ENTITIES|0 LINE|8 0|10 0.0|20 0.0|11 1.0|21 1.0|0 ENDSEC|0 EOF",
    3);

class Program : public test_support::HostProgram {
  protected:
    Program() { write("plan.dxf", small_drawing); }

    /// Runs a script on the small drawing with the test module.
    Outcome run(const std::string& script, const std::string& more = "--verbose") {
        write("a.scr", script);
        return start("plan.dxf --load TestModule.arx --script a.scr " + more);
    }
    /// The failure line of a script that must fail.
    std::string failure(const std::string& script, const std::string& more = "") {
        const Outcome outcome = run(script, more);
        EXPECT_EQ(outcome.status, 1u);
        return outcome.said;
    }
};

TEST_F(Program, TellsWhatIsWrongBeforeItRuns) {
    EXPECT_EQ(start("--fast").status, 2u);
    write("broken.dxf", "  0\nSECTION\n  2\nENTITIES\n  x\nLINE\n");
    const Outcome broken = start("broken.dxf --script none");
    EXPECT_EQ(broken.said, "drawinghost: none: the script could not be opened\n");
    write("a.scr", "QUIT\n@pres\n");
    EXPECT_EQ(start("plan.dxf --script a.scr").said, "script a.scr:2: unknown action @pres\n");
    write("a.scr", "");
    const Outcome drawing = start("broken.dxf --script a.scr");
    EXPECT_EQ(drawing.status, 1u);
    EXPECT_THAT(drawing.said, testing::MatchesRegex("drawinghost: .*broken.dxf:5: .*\n"));
    EXPECT_THAT(start("plan.dxf --script a.scr --load OldModule.arx").said,
                HasSubstr("OldModule.arx is built for interface version 17, not 18\n"));
    EXPECT_THAT(start("plan.dxf --script a.scr --load kernel32.dll").said, HasSubstr("drawinghost: "));
    EXPECT_EQ(start("plan.dxf --script a.scr").status, 0u);
}

TEST_F(Program, RunsCommandsAndModules) {
    const Outcome outcome =
        run("TSTPOINT\n"
            "'tststate\n"
            "3,4\n"
            "_GLOBAL_TSTEVENTS\n"
            "move 1,2\n"
            "pick 5,6\n"
            "return\n"
            "SETVAR\nTEXTSIZE\n\n"
            "ARX\nUnload\nTestModule\n"
            "ARX\nCommands\n"
            "ARX\nLoad\nTestModule.arx\n"
            "ARX\nC\n"
            "OPEN\nplan.dxf\n"
            "QUIT\n");
    EXPECT_EQ(outcome.status, 0u);
    EXPECT_THAT(outcome.said, HasSubstr("\nstate TSTPOINT'TSTSTATE 7\nResuming TSTPOINT command."));
    EXPECT_THAT(outcome.said, HasSubstr("\npoint 5100 3 4"));
    EXPECT_THAT(outcome.said, HasSubstr("\nevent 5 1,2"));
    EXPECT_THAT(outcome.said, HasSubstr("\nevent 3 5,6"));
    EXPECT_THAT(outcome.said, HasSubstr("\nlast 5100 13"));
    EXPECT_THAT(outcome.said, HasSubstr("TEXTSIZE <3.5>")) << "from the drawing's header";
    EXPECT_THAT(outcome.said, HasSubstr("[Files/Commands/Load/Unload]: Commands\nCommand: ")) << "none are left";
    EXPECT_THAT(outcome.said, HasSubstr("TST_GROUP: GLOBAL_TSTPOINT, TSTPOINT, 0\n"));
    EXPECT_THAT(outcome.said, HasSubstr("\nmessage 4\nto be destroyed plan.dxf\nmessage 3\nactivated"));
    EXPECT_THAT(outcome.said, EndsWith("\nmessage 4\nto be destroyed plan.dxf\nmessage 8"));
}

TEST_F(Program, StopsScriptsThatDoNotFit) {
    const std::pair<const char*, const char*> failing[] = {
        {"NOSUCH\n", "script a.scr:1: Unknown command \"NOSUCH\".\n"},
        {"TSTPOINT\n\n", "script a.scr:2: A point is needed: x,y or x,y,z.\n"},
        {"TSTPOINT\n'TSTEVENTS\n1,1\n", "script a.scr:2: TSTEVENTS cannot run while another command is active.\n"},
        {"TSTPOINT\n", "script a.scr:1: the script ended, but an answer is needed: \"Point:\"\n"},
        {"TSTPOINT\n@close\n", "script a.scr:2: no dialog is open for this line; an answer is needed: \"Point:\"\n"},
        {"TSTTHROW\n", "script a.scr:1: TSTTHROW ended with an exception: out of order\n"},
        {"TSTLEAK\n", "script a.scr:1: TSTLEAK left the resource handles unbalanced.\n"},
        {"TSTUNLOAD\n", "script a.scr:1: testmodule.arx cannot be unloaded: one of its commands is active\n"},
        {"TSTPOINT\n^C\nARX\nUnload\nNoModule\n", "script a.scr:5: NoModule is not loaded\n"},
    };
    for (const auto& [script, line] : failing) {
        EXPECT_EQ(failure(script, "--hidden"), line) << script;
    }
}

TEST_F(Program, EndsAScriptThatHangs) {
    EXPECT_EQ(failure("TSTSTATE\nTSTHANG\n", "--stall-seconds 1"), "script a.scr:2: nothing happened for 1 s\n");
}

}  // namespace
