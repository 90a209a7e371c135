// Taking commands back, through the command, the database and the file.
#include <gtest/gtest.h>

#include <filesystem>

#include "dbsymtb.h"
#include "acedads.h"
#include "dbapserv.h"
#include "platform/host/database/insert_block.h"
#include "platform/host/editor/commands.h"
#include "platform/host/editor/editor.h"
#include "tests/host/list_person.h"
#include "tests/support/drawing_groups.h"
#include "tests/support/host_program.h"

namespace host {
namespace {

const std::string drawing = groups(
    "0 SECTION|2 BLOCKS|0 BLOCK|8 0|2 DOOR|70      0|0 LINE|8 0|0 ENDBLK|8 0|0 ENDSEC|"
    "0 SECTION|2 ENTITIES|0 POINT|8 0|0 ENDSEC|0 EOF",
    3);

class Undo : public test_support::HostProgram {
  protected:
    Undo() : file_(folder_ / "undo.dxf") {
        add_drawing_commands(editor());
        add_view_commands(editor());
        write("undo.dxf", drawing);
        EXPECT_TRUE(editor().documents.open(file_));
        editor().processor.add_built_in(L"TSTINSERT", [] {
            AcDbObjectId id;
            AcDbDatabase& database = *acdbHostApplicationServices()->workingDatabase();
            EXPECT_EQ(insert_block(database, L"door", {{1, 2, 0}, AcGeScale3d(1), 0}, id), Acad::eOk);
        });
    }
    ~Undo() override { editor().documents.close(); }

    void run(const wchar_t* command) { editor().processor.run(command); }
    static long entities() {
        ads_name set;
        long count = 0;
        if (acedSSGet(L"A", nullptr, nullptr, nullptr, set) == RTNORM) {
            acedSSLength(set, &count);
            acedSSFree(set);
        }
        return count;
    }
    std::filesystem::path file_;
    ListPerson person_;
};

TEST_F(Undo, TakesChangingCommandsBackOneByOne) {
    run(L"TSTINSERT");
    run(L"TSTINSERT");
    run(L"REDRAW");  // changes nothing
    EXPECT_EQ(entities(), 3);
    run(L"UNDO");
    EXPECT_EQ(entities(), 2);
    EXPECT_TRUE(editor().documents.document()->changed());
    run(L"U");
    EXPECT_EQ(entities(), 1);
    EXPECT_FALSE(editor().documents.document()->changed()) << "all is as it was";
    run(L"U");
    EXPECT_EQ(person_.said, L"\nTSTINSERT\nTSTINSERT\nNothing to undo.");
}

TEST_F(Undo, LeavesTheFileAsItWas) {
    run(L"TSTINSERT");
    run(L"UNDO");
    EXPECT_TRUE(editor().documents.save(file_));
    EXPECT_EQ(read("undo.dxf"), drawing);
    run(L"TSTINSERT");
    EXPECT_TRUE(editor().documents.save(file_));
    EXPECT_FALSE(editor().documents.document()->changed());
    run(L"UNDO");
    EXPECT_TRUE(editor().documents.document()->changed()) << "the file has what was taken back";
}

}  // namespace
}  // namespace host
