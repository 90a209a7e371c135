// Owners of drawing objects: nothing is left behind, and what is drawn is there.
#include "afxdc_.h"

#include <winternl.h>

#include <gtest/gtest.h>

#include "test_resources.h"
#include "test_windows.h"

namespace {

/// The drawing objects of this process, from the table that it shares with the system.
int drawing_objects() {
    struct Entry {
        ULONGLONG object;
        ULONG owner;
        USHORT unique;
        UCHAR type, flags;
        ULONGLONG user;
    };
    constexpr size_t kTableInProcessBlock = 0xf8;
    constexpr int kEntries = 0x4000;
    PROCESS_BASIC_INFORMATION process{};
    ::NtQueryInformationProcess(::GetCurrentProcess(), ProcessBasicInformation, &process, sizeof(process), nullptr);
    const auto* block = reinterpret_cast<const char*>(process.PebBaseAddress);
    const Entry* table = *reinterpret_cast<const Entry* const*>(block + kTableInProcessBlock);
    return static_cast<int>(std::count_if(table, table + kEntries, [](const Entry& entry) { return entry.type != 0; }));
}

/// A font of this face.
LOGFONTW described(const wchar_t* face) {
    LOGFONTW description{};
    description.lfHeight = -13;
    lstrcpynW(description.lfFaceName, face, LF_FACESIZE);
    return description;
}

void draw_once() {
    CWnd window;
    window.CreateEx(0, nullptr, L"", WS_POPUP, 0, 0, 60, 40, nullptr, nullptr);
    CClientDC screen(&window);
    CDC memory;
    CBitmap bitmap;
    ASSERT_TRUE(memory.CreateCompatibleDC(&screen) && bitmap.CreateCompatibleBitmap(&screen, 60, 40));
    CBitmap* const no_bitmap = memory.SelectObject(&bitmap);
    CBrush red(RGB(255, 0, 0));
    memory.FillRect(CRect(0, 0, 60, 40), &red);
    memory.FillSolidRect(CRect(10, 10, 15, 15), RGB(0, 255, 0));
    CPen blue(PS_SOLID, 1, RGB(0, 0, 255));
    CPen* const no_pen = memory.SelectObject(&blue);
    memory.MoveTo(0, 30);
    memory.LineTo(60, 30);
    EXPECT_EQ(memory.SelectObject(no_pen), &blue);
    CFont font;
    const LOGFONTW courier = described(L"Courier");
    ASSERT_TRUE(font.CreateFontIndirect(&courier));
    CFont* const no_font = memory.SelectObject(&font);
    EXPECT_EQ(::GetCurrentObject(memory, OBJ_FONT), font.m_hObject);
    const CSize w = memory.GetTextExtent(L"W", 1), i = memory.GetTextExtent(CString(L"i"));
    EXPECT_EQ(memory.GetTextExtent(L"WiW and more", 3), CSize(w.cx * 2 + i.cx, w.cy));
    memory.SelectObject(no_font);
    EXPECT_EQ(memory.GetPixel(5, 5), RGB(255, 0, 0));
    EXPECT_EQ(memory.GetPixel(12, 14), RGB(0, 255, 0));
    EXPECT_EQ(memory.GetPixel(40, 30), RGB(0, 0, 255));
    EXPECT_EQ(memory.SelectObject(no_bitmap), &bitmap);
    red.CreateSolidBrush(RGB(1, 2, 3));  // what it had before goes
    EXPECT_FALSE(red.Attach(blue));      // it has an owner
}

TEST(Drawing, LeavesNothingBehind) {
    draw_once();
    CGdiObject::DeleteTempMap();
    const int before = drawing_objects();
    const CPen probe(PS_SOLID, 3, RGB(9, 9, 9));
    ASSERT_EQ(drawing_objects(), before + 1);
    for (int i = 0; i < 20; ++i) {
        draw_once();
    }
    EXPECT_EQ(drawing_objects(), before + 1);
}

TEST(Drawing, AFontThatATemporaryObjectGotGoesWithIt) {
    OwnerWindow window;
    CFont font;
    LOGFONTW description = described(L"Arial");
    font.CreateFontIndirect(&description);
    const HFONT arial = static_cast<HFONT>(font.Detach());
    CGdiObject::DeleteTempMap();
    const int before = drawing_objects();
    CFont* const temporary = CFont::FromHandle(arial);
    temporary->GetLogFont(&description);
    ASSERT_TRUE(temporary->CreateFontIndirect(&description));
    EXPECT_EQ(drawing_objects(), before + 1);
    CFont* const other = CFont::FromHandle(arial);
    EXPECT_NE(other, temporary);
    EXPECT_EQ(other->m_hObject, arial);
    CGdiObject::DeleteTempMap();
    EXPECT_EQ(drawing_objects(), before);
    EXPECT_EQ(::GetObjectType(arial), static_cast<DWORD>(OBJ_FONT));
    ::DeleteObject(arial);
}

class Painter : public CWnd {
    DECLARE_MESSAGE_MAP()

  public:
    std::vector<CRect> painted;

  private:
    void OnPaint() {
        const CPaintDC dc(this);
        painted.emplace_back(dc.m_ps.rcPaint);
    }
};

BEGIN_MESSAGE_MAP(Painter, CWnd)
    ON_WM_PAINT()
END_MESSAGE_MAP()

TEST(Drawing, PaintingGetsTheInvalidPart) {
    Painter window;
    window.CreateEx(0, nullptr, L"", WS_POPUP | WS_VISIBLE, 0, 0, 60, 40, nullptr, nullptr);
    window.UpdateWindow();
    window.painted.clear();
    window.InvalidateRect(CRect(5, 6, 20, 30));
    window.UpdateWindow();
    window.UpdateWindow();
    EXPECT_EQ(window.painted, std::vector<CRect>{CRect(5, 6, 20, 30)});
}

TEST(Geometry, ReadsAMessagesPlace) {
    EXPECT_EQ(CPoint(static_cast<LPARAM>(MAKELPARAM(0xffff, 7))), CPoint(-1, 7));
    EXPECT_EQ(CRect(CPoint(10, 20), CSize(20, 40)).CenterPoint(), CPoint(20, 40));
}

}  // namespace
