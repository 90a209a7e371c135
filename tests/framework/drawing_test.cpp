// Owners of drawing objects: nothing is left behind.
#include "afxdc_.h"

#include <winternl.h>

#include <gtest/gtest.h>

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

TEST(Drawing, APenGoesWithItsObject) {
    const int before = drawing_objects();
    {
        const CPen pen(PS_SOLID, 3, RGB(9, 9, 9));
        EXPECT_EQ(drawing_objects(), before + 1);
    }
    EXPECT_EQ(drawing_objects(), before);
}

TEST(Drawing, AFontThatATemporaryObjectGotGoesWithIt) {
    OwnerWindow window;
    CFont font;
    LOGFONTW description{};
    lstrcpynW(description.lfFaceName, L"Arial", LF_FACESIZE);
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

}  // namespace
