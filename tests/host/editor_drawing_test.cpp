// Tests of the commands that insert blocks and save the drawing, and of what the host says about the drawing.
#include <gmock/gmock.h>

#include <filesystem>

#include "acedads.h"
#include "platform/host/dxf/drawing.h"
#include "platform/host/editor/commands.h"
#include "platform/host/editor/editor.h"
#include "platform/host/editor/main_window.h"
#include "platform/host/view/display_list.h"
#include "tests/host/database_fixture.h"
#include "tests/host/list_person.h"
#include "tests/support/host_program.h"

namespace fs = std::filesystem;

namespace host {
namespace {

using testing::HasSubstr;

/// A block with an attribute of each kind, and a line from 3,4 to 10,20; the extents in the header are wrong.
std::string drawing_with_attributes() {
    const auto attribute = [](const char* tag, const char* prompt, const char* text, int flags) {
        return groups(std::string("0 ATTDEF|8 0|10 1|20 1|40 2|1 ") + text + "|3 " + prompt + "|2 " + tag + "|70 " +
                      std::to_string(flags));
    };
    return groups(
               "0 SECTION|2 HEADER|9 $ACADVER|1 AC1009|9 $EXTMIN|10 1e20|20 1e20|30 1e20|9 $EXTMAX|10 7|20 7|30 7|"
               "0 ENDSEC|0 SECTION|2 BLOCKS|0 BLOCK|8 0|2 DOOR|70 2|10 0|20 0|3 DOOR") +
           attribute("WOOD", "Kind of wood", "oak", 0) + attribute("FIXED", "Never asked", "constant", 2) +
           attribute("LOCK", "", "", 0) + attribute("SET", "Not asked", "preset", 8) +
           groups("0 ENDBLK|8 0|0 ENDSEC|0 SECTION|2 ENTITIES|0 LINE|8 0|10 3|20 4|11 10|21 20|0 ENDSEC|0 EOF");
}

class DrawingCommands : public test_support::HostProgram {
  protected:
    DrawingCommands() {
        write("a.dxf", drawing_with_attributes());
        add_session_commands(editor());
        add_file_commands(editor());
        add_drawing_commands(editor());
        EXPECT_TRUE(editor().documents.open(folder_ / "a.dxf"));
        editor().variables.put(L"FILEDIA", 0);
    }
    ~DrawingCommands() override {
        editor().variables.put(L"FILEDIA", 1);
        editor().variables.put(L"ATTREQ", 1);
        editor().documents.close();
    }

    std::wstring run(const wchar_t* command, std::deque<std::wstring> answers) {
        ListPerson person(std::move(answers));
        editor().processor.run(command);
        return person.said;
    }
    /// Tags and texts of the attributes of all references, one line each.
    static std::string attributes() {
        const dxf::Drawing& drawing = editor().documents.document()->drawing();
        std::string text;
        for (const dxf::RecordId id : drawing.entities()) {
            if (drawing.record(id).type == dxf::type_insert && !drawing.record(id).is(dxf::Record::erased)) {
                for (const dxf::RecordView& part : drawing.view(id).parts()) {
                    text +=
                        part.type() == "ATTRIB" ? base::utf8_from_wide(part.text(2) + L"=" + part.text(1) + L" ") : "";
                }
                text += "\n";
            }
        }
        return text;
    }
};

TEST_F(DrawingCommands, AskForTheAttributesThatAreToBeAsked) {
    const std::wstring placing =
        L"<\nEnter block name: ><\nSpecify insertion point: ><\nEnter X scale factor <1>: >"
        L"<\nEnter Y scale factor <use X scale factor>: ><\nSpecify rotation angle <0>: >";
    const std::wstring asking = L"\nEnter attribute values<\nKind of wood <oak>: >";
    EXPECT_EQ(run(L"insert", {L"door", L"1,1", L"", L"", L"", L"ash", L"brass"}), placing + asking + L"<\nLOCK: >");
    EXPECT_EQ(run(L"insert", {L"door", L"2,2", L"", L"", L"", L"", L""}), placing + asking + L"<\nLOCK: >");
    EXPECT_EQ(run(L"insert", {L"door", L"3,3", L"", L"", L"", L"^C"}), placing + asking);
    editor().variables.put(L"ATTREQ", 0);
    EXPECT_EQ(run(L"insert", {L"door", L"4,4", L"", L"", L""}), placing);
    EXPECT_EQ(attributes(), "WOOD=ash LOCK=brass SET=preset \nWOOD=oak LOCK= SET=preset \nWOOD=oak LOCK= SET=preset \n")
        << "one of the four was cancelled";
}

/// A drawing that has variables of several kinds in its header.
class HeaderVariables : public DrawingCommands {
  protected:
    HeaderVariables() {
        write("v.dxf", unchanged);
        EXPECT_TRUE(editor().documents.open(folder_ / "v.dxf"));
        editor().processor.add_built_in(L"TSTHOLD", [] {
            resbuf snap{};
            acedGetVar(L"SNAPMODE", &snap);
            resbuf off = snap;
            off.resval.rint = 0;
            acedSetVar(L"SNAPMODE", &off);
            acedSetVar(L"SNAPMODE", &snap);
        });
        editor().processor.add_built_in(L"TSTLAYER", [] {
            std::wstring name = L"walls";
            resbuf layer{};
            layer.restype = RTSTR;
            layer.resval.rstring = name.data();
            EXPECT_EQ(acedSetVar(L"CLAYER", &layer), RTNORM);
            EXPECT_EQ(acedCommand(RTSTR, L"INSERT", RTSTR, L"door", RTSTR, L"1,1", RTSTR, L"", RTSTR, L"", RTSTR, L"",
                                  RTNONE),
                      RTNORM);
        });
    }

    static std::string drawing(const std::string& variables) {
        return groups("0 SECTION|2 HEADER|9 $ACADVER|1 AC1009|" + variables + "|0 ENDSEC|0 SECTION|2 TABLES") +
               table("LAYER", {"2 Walls|70 0"}) +
               groups(
                   "0 ENDSEC|0 SECTION|2 BLOCKS|0 BLOCK|8 0|2 DOOR|70 0|10 0|20 0|0 ENDBLK|8 0|0 ENDSEC|"
                   "0 SECTION|2 ENTITIES|0 ENDSEC|0 EOF");
    }
    static std::wstring shown(const wchar_t* name) { return format_variable(*editor().variables.get(name)); }
    static bool changed() { return editor().documents.document()->changed(); }
    std::string saved() const {
        EXPECT_TRUE(editor().documents.document()->save_copy(folder_ / "saved.dxf"));
        return read("saved.dxf");
    }
    std::wstring set(const wchar_t* name, const wchar_t* value) { return run(L"setvar", {name, value}); }

    const std::string unchanged = drawing("9 $LTSCALE|40 2.0|9 $CLAYER|8 0|9 $CECOLOR|62    256|9 $SNAPMODE|70      1");
};

TEST_F(HeaderVariables, StayAsTheyAreWhenNothingElseIsSet) {
    EXPECT_EQ(shown(L"CECOLOR"), L"BYLAYER");
    set(L"LTSCALE", L"2");
    set(L"CECOLOR", L"bylayer");
    set(L"INSUNITS", L"4");  // drawings of this version do not have it
    EXPECT_THAT(set(L"CLAYER", L"roof"), HasSubstr(L"!\"roof\" is no value for CLAYER."));
    EXPECT_THAT(set(L"TEXTSTYLE", L"roof"), HasSubstr(L"!\"roof\" is no value for TEXTSTYLE."));
    EXPECT_THAT(set(L"CECOLOR", L"300"), HasSubstr(L"!\"300\" is no value for CECOLOR."));
    run(L"tsthold", {});
    EXPECT_FALSE(changed());
    EXPECT_EQ(saved(), unchanged);
}

TEST_F(HeaderVariables, ChangeWithTheirCommand) {
    set(L"LTSCALE", L"10");
    EXPECT_EQ(run(L"quit", {L"no"}), L"<\nDiscard the changes to v.dxf? [Yes/No] <No>: >");
    set(L"CECOLOR", L"ByBlock");
    set(L"TEXTSIZE", L"3.5");
    const std::string three =
        drawing("9 $LTSCALE|40 10.0|9 $CLAYER|8 0|9 $CECOLOR|62 0|9 $SNAPMODE|70      1|9 $TEXTSIZE|40 3.5");
    EXPECT_EQ(plain(saved()), three);
    run(L"tstlayer", {});
    EXPECT_THAT(saved(), HasSubstr(groups("0 INSERT|8 Walls|62 0|2 DOOR", 3)));
    run(L"u", {});
    EXPECT_THAT(set(L"ADDEDCOLOR", L"300"), HasSubstr(L"!\"300\" is no value for ADDEDCOLOR."));
    set(L"ADDEDCOLOR", L"7");
    run(L"tstlayer", {});
    EXPECT_THAT(saved(), HasSubstr(groups("0 INSERT|8 Walls|62 7|2 DOOR", 3)));
    run(L"u", {});
    set(L"ADDEDCOLOR", L".");
    EXPECT_EQ(plain(saved()), three);
    EXPECT_EQ(shown(L"CLAYER"), L"0");
    run(L"qsave", {});
    run(L"u", {});
    EXPECT_EQ(shown(L"TEXTSIZE"), L"2.5") << "the header is silent again";
    run(L"u", {});
    run(L"u", {});
    EXPECT_EQ(shown(L"CECOLOR") + shown(L"LTSCALE"), L"BYLAYER2");
    EXPECT_TRUE(changed()) << "the file has what was taken back";
    run(L"qsave", {});
    EXPECT_EQ(saved(), unchanged);
    EXPECT_EQ(run(L"undo", {}), L"\nNothing to undo.");
}

TEST_F(DrawingCommands, AskBeforeTheWindowsSessionEnds) {
    MainWindow window;
    editor().window = &window;
    bool while_running = true;
    editor().processor.add_built_in(L"TSTEND", [&] { while_running = may_end_session(editor()); });
    const auto asked = [](const wchar_t* answer) {
        ListPerson person({answer});
        return std::to_wstring(may_end_session(editor()) ? 1 : 0) + person.said;
    };
    EXPECT_EQ(asked(L"no"), L"1");
    run(L"tstend", {});
    EXPECT_TRUE(while_running);
    editor().variables.put(L"ATTREQ", 0);
    run(L"insert", {L"door", L"1,1", L"", L"", L""});
    run(L"tstend", {});
    EXPECT_FALSE(while_running);
    EnableWindow(window.window(), FALSE);
    EXPECT_EQ(asked(L"yes"), L"0") << "a dialog is up";
    EnableWindow(window.window(), TRUE);
    EXPECT_EQ(asked(L"no"), L"0<\nDiscard the changes to a.dxf? [Yes/No] <No>: >");
    EXPECT_EQ(asked(L"yes"), L"1<\nDiscard the changes to a.dxf? [Yes/No] <No>: >");
    editor().window = nullptr;
}

TEST_F(DrawingCommands, InsertNoLayouts) {
    EXPECT_EQ(run(L"insert", {L"*model_space", L"1,1", L"", L"", L""}),
              L"<\nEnter block name: >!\"*model_space\" is a layout, which cannot be inserted.");
    EXPECT_EQ(run(L"insert", {L"gone"}), L"<\nEnter block name: >!The drawing has no block \"gone\".");
    EXPECT_FALSE(editor().documents.document()->changed());
}

TEST_F(DrawingCommands, OpenFilesThatHaveNoExtension) {
    fs::copy_file(folder_ / "a.dxf", folder_ / "bare");
    run(L"open", {(folder_ / "bare").wstring()});
    EXPECT_EQ(editor().documents.document()->path(), folder_ / "bare");
    fs::create_directory(folder_ / "a");
    run(L"open", {(folder_ / "a").wstring()});
    EXPECT_EQ(editor().documents.document()->path(), folder_ / "a.dxf") << "a folder is no drawing";
    fs::create_directory(folder_ / "only");
    EXPECT_THAT(run(L"open", {(folder_ / "only").wstring()}), HasSubstr(L"only: is a directory"));
}

TEST_F(DrawingCommands, SaveACopyOrTheDrawingItself) {
    editor().variables.put(L"ATTREQ", 0);
    run(L"insert", {L"door", L"1,1", L"", L"", L""});
    const std::wstring own = (folder_ / "a.dxf").wstring();
    EXPECT_THAT(run(L"save", {(folder_ / "copy.dxf").wstring()}), HasSubstr(L"<" + own + L">"));
    EXPECT_EQ(editor().documents.document()->path(), own);
    EXPECT_TRUE(editor().documents.document()->changed());
    EXPECT_EQ(fs::file_size(own), drawing_with_attributes().size());
    EXPECT_GT(fs::file_size(folder_ / "copy.dxf"), drawing_with_attributes().size());
    EXPECT_THAT(run(L"save", {(folder_ / "none" / "b.dxf").wstring()}), HasSubstr(L"could not be saved"));

    EXPECT_EQ(run(L"quit", {L"no"}), L"<\nDiscard the changes to a.dxf? [Yes/No] <No>: >");
    EXPECT_FALSE(editor().quit_requested);
    run(L"saveas", {(folder_ / "b.dxf").wstring()});
    EXPECT_EQ(editor().documents.document()->path(), folder_ / "b.dxf");
    EXPECT_FALSE(editor().documents.document()->changed());
    const ACHAR* file_name = nullptr;
    EXPECT_EQ(editor().documents.document()->database()->getFilename(file_name), Acad::eOk);
    EXPECT_EQ(fs::path(file_name), folder_ / "b.dxf");
    run(L"insert", {L"door", L"2,2", L"", L"", L""});
    fs::remove(folder_ / "b.dxf");
    run(L"save", {(folder_ / "none" / ".." / "B.dxf").wstring()});
    EXPECT_FALSE(editor().documents.document()->changed()) << "its own file, which was gone";
    EXPECT_EQ(run(L"quit", {}), L"");
    EXPECT_TRUE(std::exchange(editor().quit_requested, false));
}

TEST_F(DrawingCommands, SayOnceHowMuchIsNotShown) {
    ListPerson person;
    const dxf::Drawing& drawing = editor().documents.document()->drawing();
    DisplayList list;
    editor().say_left_out(drawing, list);
    EXPECT_EQ(person.said, L"");
    list.left_out = 2;
    list.not_shown = {{L"3DSOLID", 12}, {L"REGION", 1}};
    editor().say_left_out(drawing, list);
    editor().say_left_out(drawing, list);
    EXPECT_EQ(person.said,
              L"\nNot shown: 12 3DSOLID, 1 REGION."
              L"\nNot shown, or not whole: 2 entities, which would take too much memory or time.");
}

}  // namespace
}  // namespace host
