#include <windows.h>

#include <gtest/gtest.h>

#include "platform/host/editor/commands.h"
#include "platform/host/editor/editor.h"
#include "platform/host/editor/main_window.h"
#include "platform/host/editor/window_person.h"
#include "tests/host/list_person.h"
#include "tests/view/described_list.h"

namespace host {

namespace {

/// A fixture: the main window with a drawing of a square of 100 units, and a mouse.
class DrawingPaneTest : public testing::Test {
  protected:
    DrawingPaneTest()
        : drawing_(drawing_of(entities("0 LWPOLYLINE|8 0|90 4|70 1|10 0|20 0|10 100|20 0|10 100|20 100|10 0|20 100|"
                                       "0 CIRCLE|8 0|10 50|20 50|40 25"))),
          window_(WindowProgram{.content = [this] {
              return PaneContent{drawing_.get(), edits_};
          }}) {
        window_.show();
        run_messages();
    }

    DrawingPane& pane() { return window_.pane(); }
    HWND view() { return pane().window(); }
    POINT pixel(double x, double y) {
        const Vec2 at = pane().view().to_pixel({x, y});
        return {static_cast<LONG>(at.x), static_cast<LONG>(at.y)};
    }
    static LPARAM packed(POINT at) { return MAKELPARAM(at.x, at.y); }

    void post(UINT message, POINT at) { PostMessageW(view(), message, 0, packed(at)); }
    void run_messages() {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != 0) {
            DispatchMessageW(&message);
        }
        UpdateWindow(view());
    }

    /// What the view shows on the screen, without the pointer.
    std::vector<COLORREF> screen() {
        SendMessageW(view(), WM_MOUSELEAVE, 0, 0);
        run_messages();
        const WindowContext context(view());
        RECT client{};
        GetClientRect(view(), &client);
        FrameBitmap copy(client.right, client.bottom);
        BitBlt(copy.context(), 0, 0, client.right, client.bottom, context.get(), 0, 0, SRCCOPY);
        const Raster raster = copy.raster();
        std::vector<COLORREF> pixels;
        for (int y = 0; y < client.bottom; ++y) {
            for (int x = 0; x < client.right; ++x) {
                pixels.push_back(raster.at(x, y) & 0xFFFFFF);
            }
        }
        width_ = client.right;
        return pixels;
    }
    COLORREF shown_at(double x, double y) {
        const POINT at = pixel(x, y);
        return screen()[static_cast<size_t>(at.y * width_ + at.x)];
    }

    std::unique_ptr<dxf::Drawing> drawing_;
    uint64_t edits_ = 0;
    MainWindow window_;
    WindowPerson person_{window_, editor().processor};
    int width_ = 0;
};

}  // namespace

TEST_F(DrawingPaneTest, ShowsTheWholeDrawingAndWhatIsAddedToIt) {
    EXPECT_NEAR(50, pane().view().centre().x, 1e-9);
    EXPECT_TRUE(pane().view().visible().contains(Box2{{0, 0}, {100, 100}}));
    EXPECT_EQ(0xFFFFFFU, shown_at(0, 30));
    EXPECT_EQ(0U, shown_at(50, 50));
    dxf::RecordWriter writer(drawing_->manner());
    writer.type(L"LINE").text(8, L"0").point(10, 40, 50, 0).point(11, 60, 50, 0);
    drawing_->append_entity(writer.take());
    edits_ = 1;
    std::vector<const DisplayList*> told;
    pane().on_new_list([&told](const dxf::Drawing&, const DisplayList& list) { told.push_back(&list); });
    pane().update();
    EXPECT_EQ(0xFFFFFFU, shown_at(50, 50));
    EXPECT_EQ(told, std::vector<const DisplayList*>{&pane().list()});
    pane().set_background(0xFFFFFF);
    EXPECT_EQ(0U, shown_at(50, 50)) << "colour 7 goes with the background";
}

TEST_F(DrawingPaneTest, KeepsTheWholeDrawingInSightUntilSomebodyLooksCloser) {
    const auto scale_in = [this](int width, int height) {
        MoveWindow(window_.window(), 0, 0, width, height, TRUE);
        run_messages();
        return pane().view().pixels_per_unit();
    };
    const double usual = scale_in(600, 500);
    EXPECT_GT(scale_in(1000, 800), usual * 1.3);
    EXPECT_DOUBLE_EQ(scale_in(600, 500), usual);
    ViewTransform closer = pane().view();
    closer.zoom_about({10, 10}, 2);
    pane().set_view(closer);
    EXPECT_DOUBLE_EQ(scale_in(1000, 800), usual * 2);
}

TEST_F(DrawingPaneTest, ComplementingVectorsUndoThemselves) {
    const std::vector<COLORREF> before = screen();
    const Point from{10, 20, 0};
    const Point to{90, 20, 0};
    person_.draw_vector(from, to, VectorOverlay::complement, false);
    EXPECT_EQ(0xFFFFFFU, shown_at(50, 20));
    EXPECT_EQ(0U, shown_at(40, 15));
    InvalidateRect(view(), nullptr, FALSE);
    EXPECT_EQ(0xFFFFFFU, shown_at(50, 20)) << "they outlast being covered";
    // Where two vectors cross, or one crosses the drawing, the pixel turns back.
    person_.draw_vector({50, 0, 0}, {50, 40, 0}, VectorOverlay::complement, false);
    EXPECT_EQ(0U, shown_at(50, 20));
    person_.draw_vector({50, 40, 0}, {50, 0, 0}, VectorOverlay::complement, false);
    person_.draw_vector(from, to, VectorOverlay::complement, false);
    EXPECT_EQ(before, screen());

    // The same with the frame of a table, dashed, while the person zooms in between.
    const Point corners[] = {{15, 15, 0}, {80, 15, 0}, {80, 60, 0}, {15, 60, 0}};
    const auto draw_frame = [&] {
        for (int i = 0; i < 4; ++i) {
            person_.draw_vector(corners[i], corners[(i + 1) % 4], VectorOverlay::complement, true);
        }
    };
    draw_frame();
    EXPECT_NE(before, screen());
    const ViewTransform whole = pane().view();
    SendMessageW(view(), WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA), 0);
    draw_frame();
    pane().set_view(whole);
    EXPECT_EQ(before, screen());

    person_.draw_vector(from, to, 1, false);
    EXPECT_EQ(0xFF0000U, shown_at(50, 20)) << "other colours are what they are";
    pane().redraw();
    EXPECT_EQ(before, screen());
}

TEST_F(DrawingPaneTest, ThePointerLeavesNoTrace) {
    const std::vector<COLORREF> before = screen();
    const PointerGuide::Kind kinds[] = {PointerGuide::Kind::idle,   PointerGuide::Kind::crosshair,
                                        PointerGuide::Kind::follow, PointerGuide::Kind::pick_box,
                                        PointerGuide::Kind::line,   PointerGuide::Kind::rectangle,
                                        PointerGuide::Kind::window, PointerGuide::Kind::crossing};
    for (const PointerGuide::Kind kind : kinds) {
        pane().update({kind, {30, 30}});
        for (const POINT at : {pixel(10, 70), pixel(60, 30), pixel(30, 30), pixel(80, 90)}) {
            SendMessageW(view(), WM_MOUSEMOVE, 0, packed(at));
        }
        EXPECT_EQ(before, screen()) << static_cast<int>(kind);
    }
}

TEST_F(DrawingPaneTest, LosesThePointerToTheOtherPartsOfTheWindow) {
    screen();
    const POINT at = pixel(10, 70);
    const auto arm = [&] { return GetPixel(WindowContext(view()).get(), at.x - 40, at.y); };
    SendMessageW(view(), WM_MOUSEMOVE, 0, packed(at));
    EXPECT_EQ(0xFFFFFFU, arm());
    PostMessageW(GetWindow(view(), GW_HWNDNEXT), WM_MOUSEMOVE, 0, packed({5, 5}));
    PostMessageW(window_.window(), WM_CLOSE, 0, 0);
    window_.wait_for_answer(L"\nCommand: ");
    EXPECT_EQ(0U, arm());
}

TEST_F(DrawingPaneTest, DashesTheRectangleThatSelectsWhatItTouches) {
    const auto top_side = [this](PointerGuide::Kind kind, double x) {
        pane().update({kind, {30, 95}});
        SendMessageW(view(), WM_MOUSEMOVE, 0, packed(pixel(x, 90)));
        const WindowContext context(view());
        const POINT start = pixel(30, 95);
        const int step = x > 30 ? 1 : -1;
        int lit = 0;
        for (int along = 2; along < 42; ++along) {
            lit += GetPixel(context.get(), start.x + step * along, start.y) == 0xFFFFFF ? 1 : 0;
        }
        return lit == 40 ? "solid" : lit > 20 ? "dashed" : "nothing";
    };
    const std::tuple<PointerGuide::Kind, double, const char*> cases[] = {
        {PointerGuide::Kind::window, 10, "solid"},    {PointerGuide::Kind::window, 50, "solid"},
        {PointerGuide::Kind::crossing, 10, "dashed"}, {PointerGuide::Kind::crossing, 50, "dashed"},
        {PointerGuide::Kind::box, 10, "dashed"},      {PointerGuide::Kind::box, 50, "solid"},
        {PointerGuide::Kind::rectangle, 10, "solid"}, {PointerGuide::Kind::rectangle, 50, "solid"}};
    for (const auto& [kind, x, side] : cases) {
        EXPECT_STREQ(side, top_side(kind, x)) << static_cast<int>(kind) << " to " << x;
    }
}

TEST_F(DrawingPaneTest, ZoomsAndPansUnderThePointer) {
    const POINT at = pixel(20, 80);
    const auto under_pointer = [&] { return pane().view().to_world({at.x + 0.5, at.y + 0.5}); };
    const Vec2 before = under_pointer();
    const double scale = pane().view().pixels_per_unit();
    POINT on_screen = at;
    ClientToScreen(view(), &on_screen);
    SendMessageW(view(), WM_MOUSEWHEEL, MAKEWPARAM(0, 2 * WHEEL_DELTA), packed(on_screen));
    EXPECT_NEAR(scale * 1.44, pane().view().pixels_per_unit(), 1e-9);
    EXPECT_NEAR(before.x, under_pointer().x, 1e-9);
    EXPECT_NEAR(before.y, under_pointer().y, 1e-9);

    SendMessageW(view(), WM_MBUTTONDOWN, 0, packed(at));
    SendMessageW(view(), WM_MOUSEMOVE, 0, packed({at.x + 30, at.y - 12}));
    SendMessageW(view(), WM_MBUTTONUP, 0, packed({at.x + 30, at.y - 12}));
    EXPECT_NEAR(before.x, pane().view().to_world({at.x + 30.5, at.y - 11.5}).x, 1e-9);
    EXPECT_NEAR(before.y, pane().view().to_world({at.x + 30.5, at.y - 11.5}).y, 1e-9);
    const Vec2 rest = pane().view().centre();
    SendMessageW(view(), WM_MOUSEMOVE, 0, packed(at));
    EXPECT_EQ(rest, pane().view().centre()) << "the button is up";
    pane().remember_view();
    pane().zoom_extents();
    EXPECT_NEAR(scale, pane().view().pixels_per_unit(), 1e-9);
    EXPECT_TRUE(pane().restore_view());
    EXPECT_EQ(rest, pane().view().centre());
    EXPECT_FALSE(pane().restore_view());
}

TEST_F(DrawingPaneTest, EndsASelectionWhereTheButtonIsLetGo) {
    const auto answer = [&](PointerGuide::Kind kind) {
        const Answer given = person_.prompt(L"\nCorner: ", {kind, {20, 80}});
        const std::optional<Point> point = parse_point(given.text);
        return (point ? std::to_string(std::lround(point->x)) : "none") + (given.with_shift ? " shift" : "");
    };
    const auto drag = [this](POINT to, WPARAM keys) {
        post(WM_LBUTTONDOWN, pixel(20, 80));
        PostMessageW(view(), WM_LBUTTONUP, keys, packed(to));
        post(WM_RBUTTONDOWN, to);
    };
    drag(pixel(40, 60), MK_SHIFT);
    EXPECT_EQ("20", answer(PointerGuide::Kind::pick_box));
    EXPECT_EQ("40 shift", answer(PointerGuide::Kind::box));
    EXPECT_EQ("none", answer(PointerGuide::Kind::pick_box));
    // A selection does not end where the button goes up at once, nor at other questions.
    drag(pixel(20, 80), 0);
    EXPECT_EQ("20", answer(PointerGuide::Kind::pick_box));
    EXPECT_EQ("none", answer(PointerGuide::Kind::window));
    drag(pixel(40, 60), 0);
    EXPECT_EQ("20", answer(PointerGuide::Kind::crosshair));
    EXPECT_EQ("none", answer(PointerGuide::Kind::rectangle));
}

TEST_F(DrawingPaneTest, FollowsTheCommandsForLooking) {
    add_view_commands(editor());
    editor().window = &window_;
    /// Whether the command took all answers and refused none.
    const auto run = [](const wchar_t* command, std::deque<std::wstring> answers) {
        const ListPerson person(std::move(answers));
        return editor().processor.run_built_in(command) && !person.has_more() &&
               person.said.find(L'!') == std::wstring::npos;
    };
    const double whole = pane().view().pixels_per_unit();
    const Vec2 middle = pane().view().centre();
    EXPECT_TRUE(run(L"ZOOM", {L"10,10", L"30,20"}));
    EXPECT_NEAR(20, pane().view().centre().x, 1e-9);
    EXPECT_NEAR(15, pane().view().centre().y, 1e-9);
    EXPECT_NEAR(pane().view().width() / 20.0, pane().view().pixels_per_unit(), 1e-9);
    EXPECT_TRUE(run(L"PAN", {L"0,0", L"5,-5"}));
    EXPECT_NEAR(15, pane().view().centre().x, 1e-9);
    EXPECT_NEAR(20, pane().view().centre().y, 1e-9);
    EXPECT_TRUE(run(L"ZOOM", {L"2X"}));
    EXPECT_NEAR(pane().view().width() / 10.0, pane().view().pixels_per_unit(), 1e-9);
    EXPECT_TRUE(run(L"ZOOM", {L"P"}));
    EXPECT_TRUE(run(L"ZOOM", {L"Previous"}));
    EXPECT_NEAR(20, pane().view().centre().x, 1e-9);
    EXPECT_TRUE(run(L"ZOOM", {L"0.5"}));
    EXPECT_NEAR(whole / 2, pane().view().pixels_per_unit(), 1e-9);
    EXPECT_TRUE(run(L"ZOOM", {L"W", L"0,0", L"1,1"}));
    EXPECT_TRUE(run(L"ZOOM", {L""}));
    EXPECT_NEAR(whole, pane().view().pixels_per_unit(), 1e-9);
    EXPECT_NEAR(middle.x, pane().view().centre().x, 1e-9);
    EXPECT_FALSE(run(L"ZOOM", {L"nearer"}));
    EXPECT_TRUE(run(L"BACKGROUND", {L"w"}));
    EXPECT_EQ(0xFFFFFFU, shown_at(50, 50));
    EXPECT_FALSE(run(L"BACKGROUND", {L"Green"}));
    editor().window = nullptr;
}

TEST_F(DrawingPaneTest, DashesTheSelectionUntilItIsDone) {
    const std::vector<COLORREF> before = screen();
    person_.show_selected({drawing_->entities()[0]});
    {
        const std::vector<COLORREF> selected = screen();
        const auto lit = [](const std::vector<COLORREF>& pixels) {
            return std::count(pixels.begin(), pixels.end(), COLORREF{0xFFFFFF});
        };
        EXPECT_LT(lit(selected), lit(before) * 3 / 4);
        EXPECT_EQ(0xFFFFFFU, shown_at(75, 50)) << "the circle is not selected";
    }
    person_.show_selected({});
    EXPECT_EQ(before, screen());
}

}  // namespace host
