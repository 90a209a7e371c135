// Tests "QXBOMC" up to the table in the drawing, with the built module: the names of blocks, what a cancelled placement
// leaves, and the system variables.
#include "platform/host/dxf/drawing.h"
#include "tests/shell/module_program.h"

using testing::ElementsAre;
using testing::HasSubstr;

namespace {

class TableCommand : public test_support::ModuleProgram {
  protected:
    TableCommand() {
        write("list.prc", "DOOR|1250|oak\r\n");
        write("House.dxf", test_support::drawing_of({"DOOR", "door"}));
    }

    /// The table blocks of a drawing, each followed by the x scales of its references.
    std::vector<std::string> tables(const char* name) const {
        const dxf::OpenResult opened = dxf::Drawing::open(folder_ / name);
        std::vector<std::string> found;
        for (const dxf::Block& block : (*opened)->blocks()) {
            const std::wstring& wide = (*opened)->block_names().name(block.name);
            std::string line(wide.begin(), wide.end());
            if (line.substr(0, 3) != "KVO") {
                continue;
            }
            for (const dxf::RecordId id : (*opened)->entities()) {
                if ((*opened)->record(id).block_name == block.name) {
                    line += " " + std::to_string((*opened)->view(id).real(41, 1)).substr(0, 4);
                }
            }
            found.push_back(line);
        }
        return found;
    }
};

const std::string report = "QXBOMC\nlist.prc\nALL\n\n@press \"Insert\"\n";

TEST_F(TableCommand, NumbersItsBlocksOnwards) {
    succeed(report + "0,0\nreturn\n" + report +
            "0,-50\nmove 10,-50\nmove 153,-51\npick 500,-500\nSAVEAS\ntwo.dxf\nQUIT\n");
    EXPECT_THAT(tables("two.dxf"), ElementsAre("KVO0001 1.00", "KVO0002 2.50"));
    // From then on the tables are counted too: a table is a block like any other.
    succeed("OPEN\ntwo.dxf\n" + report + "^C\nU\n" + report + "9,9\n^C\nSAVEAS\nthree.dxf\nQUIT\n");
    EXPECT_THAT(tables("three.dxf"), ElementsAre("KVO0001 1.00", "KVO0002 2.50", "KVO0003 1.00"))
        << "what was taken back is free again, and Escape while dragging takes the natural size";
}

TEST_F(TableCommand, LeavesTheBlockOfACancelledPlacement) {
    succeed(report + "^C\n" + report + "0,0\nreturn\nSAVEAS\nlater.dxf\nQUIT\n");
    EXPECT_THAT(tables("later.dxf"), ElementsAre("KVO0001", "KVO0002 1.00"));
}

TEST_F(TableCommand, RefusesTheTenThousandthTable) {
    write("House.dxf", test_support::drawing_of({"DOOR", "kvo9998"}));
    succeed(report + "0,0\nreturn\nSAVEAS\nHouse9999.dxf\n" + report +
            "@alert \"Too large number for name of table price\"\nSAVEAS\nrefused.dxf\nQUIT\n");
    EXPECT_THAT(tables("refused.dxf"), ElementsAre("KVO9999 1.00"));
}

TEST_F(TableCommand, RestoresTwoVariablesSwapped) {
    const auto set = [](const std::string& name, const std::string& value) {
        return "SETVAR\n" + name + "\n" + value + "\n";
    };
    const auto values = set("ATTREQ", "") + set("CMDECHO", "") + set("SNAPMODE", "") + set("OSMODE", "");
    for (const char* placement : {"0,0\nreturn\n", "^C\n"}) {
        const std::string said = succeed(set("SNAPMODE", "1") + set("OSMODE", "35") + set("CMDECHO", "0") + report +
                                         placement + values + "QUIT\nYes\n");
        for (const char* shown : {"for ATTREQ <1>", "for CMDECHO <0>", "for SNAPMODE <1>", "for OSMODE <1>"}) {
            EXPECT_THAT(said, HasSubstr(shown)) << placement;
        }
    }
}

}  // namespace
