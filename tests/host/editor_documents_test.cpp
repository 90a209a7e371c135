// Tests of opening, saving and closing drawings, and of what reactors hear of it.
#include <gmock/gmock.h>

#include <filesystem>

#include "acdocman.h"
#include "dbapserv.h"
#include "platform/host/dxf/drawing.h"
#include "platform/host/editor/editor.h"
#include "tests/support/drawing_groups.h"
#include "tests/support/host_program.h"

namespace host {
namespace {

using testing::ElementsAre;

const std::string drawing = groups(
    "0 SECTION|2 HEADER|9 $ACADVER|1 AC1009|9 $SNAPMODE|70      1|9 $CLAYER|8 Walls|9 $INSBASE|10 1.0|20 2.0|30 3.0|"
    "9 $TEXTSIZE|40 nan|9 $LIMMIN|10 -nan(ind)|20 8.0|0 ENDSEC|0 SECTION|2 ENTITIES|0 ENDSEC|0 EOF",
    3);

/// Records what it hears.
class Listener final : public AcApDocManagerReactor {
  public:
    Listener() { acDocManager->addReactor(this); }
    ~Listener() override { acDocManager->removeReactor(this); }
    void documentActivated(AcApDocument* document) override { note("activated", document); }
    void documentTitleUpdated(AcApDocument* document) override { note("title", document); }
    void documentToBeDestroyed(AcApDocument* document) override { note("to be destroyed", document); }
    std::vector<std::string> heard;

  private:
    void note(const char* what, const AcApDocument* document) {
        heard.push_back(what + (" " + std::filesystem::path(document->docTitle()).string()));
    }
};

class Documents : public test_support::HostProgram {
  protected:
    Documents() {
        write("a.dxf", drawing);
        write("b.dxf", drawing);
        write("broken.dxf", "  0\nSECTION\n");
    }
    ~Documents() override { editor().documents.close(); }
};

TEST_F(Documents, ReplaceEachOther) {
    Listener listener;
    acDocManager->addReactor(&listener);
    EXPECT_EQ(editor().documents.open(folder_ / "a.dxf").reason(), L"");
    AcApDocument* const first = acDocManager->curDocument();
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(std::filesystem::path(first->fileName()), folder_ / "a.dxf");
    EXPECT_EQ(acdbHostApplicationServices()->workingDatabase(), first->database());
    const std::wstring refused = editor().documents.open(folder_ / "broken.dxf").reason();
    EXPECT_THAT(std::filesystem::path(refused).string(), testing::HasSubstr("broken.dxf"));
    EXPECT_EQ(acDocManager->curDocument(), first) << "a drawing that cannot be read closes none";
    EXPECT_EQ(editor().documents.open(folder_ / "b.dxf").reason(), L"");
    editor().documents.close();
    EXPECT_EQ(acdbHostApplicationServices()->workingDatabase(), nullptr);
    EXPECT_EQ(acDocManager->curDocument(), nullptr);
    EXPECT_THAT(listener.heard,
                ElementsAre("activated a.dxf", "to be destroyed a.dxf", "activated b.dxf", "to be destroyed b.dxf"));
}

TEST_F(Documents, BringTheirVariables) {
    ASSERT_TRUE(editor().documents.open(folder_ / "a.dxf"));
    const auto shown = [](const wchar_t* name) { return format_variable(*editor().variables.get(name)); };
    EXPECT_EQ(shown(L"SNAPMODE"), L"1");
    EXPECT_EQ(shown(L"CLAYER"), L"Walls");
    EXPECT_EQ(shown(L"INSBASE"), L"1,2,3");
    EXPECT_EQ(shown(L"LTSCALE"), L"1") << "not in this header";
    EXPECT_EQ(shown(L"DWGNAME"), L"a.dxf");
    EXPECT_EQ(std::filesystem::path(shown(L"DWGPREFIX") + shown(L"DWGNAME")), folder_ / "a.dxf");

    dxf::Drawing& store = editor().documents.document()->drawing();
    editor().variables.put(L"SNAPMODE", 0);
    editor().variables.put(L"SNAPMODE", 1);
    editor().drawing_variables.store(store);
    EXPECT_EQ(shown(L"DBMOD"), L"0") << "changed back, and what is no number is as it was";
    auto limit = std::get<Point>(*editor().variables.get(L"LIMMIN"));
    limit.y = 7;
    editor().variables.put(L"LIMMIN", limit);
    editor().variables.put(L"INSBASE", Point{1, 2.5, 3});
    editor().variables.put(L"CLAYER", std::wstring(L"0"));
    editor().drawing_variables.store(store);
    EXPECT_EQ(shown(L"DBMOD"), L"1");
    Listener listener;
    EXPECT_EQ(editor().documents.save(folder_ / "c.dxf").reason(), L"");
    EXPECT_THAT(listener.heard, ElementsAre("title c.dxf"));
    EXPECT_EQ(shown(L"DBMOD"), L"0");
    std::string expected = drawing;
    expected.replace(expected.find("2.0"), 3, "2.5");
    expected.replace(expected.find("8.0"), 3, "7.0");
    expected.replace(expected.find("Walls"), 5, "0");
    EXPECT_EQ(read("c.dxf"), expected);
    EXPECT_EQ(read("a.dxf"), drawing);
}

TEST(UserSettings, ThatCannotBeWrittenAreKnownUntilTheEnd) {
    const test_support::TemporaryFolder folder("settings");
    UserSettings settings;
    settings.use(folder.path());  // no file can be there
    const auto open = [&settings](const wchar_t* path) {
        return static_cast<bool>(settings.change([&](WindowSettings& known) { known.add_recent(path); }));
    };
    EXPECT_FALSE(open(L"first.dxf"));
    EXPECT_TRUE(open(L"second.dxf")) << "it was said once";
    EXPECT_THAT(settings.settings().recent, testing::ElementsAre(L"second.dxf", L"first.dxf"));
}

}  // namespace
}  // namespace host
