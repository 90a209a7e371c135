// The link between a window and its object, from either side.
#include "afxwnd_.h"

#include <gtest/gtest.h>

#include "test_windows.h"

namespace {

HWND foreign_edit() {
    return ::CreateWindowExW(0, L"EDIT", L"text", WS_POPUP, 0, 0, 50, 20, nullptr, nullptr, nullptr, nullptr);
}

/// Counts characters and doubles them on their way to the system's control.
class DoublingEdit : public CEdit {
    DECLARE_MESSAGE_MAP()

  public:
    int characters = 0;

  private:
    void OnChar(UINT character, UINT repeat, UINT flags) {
        ++characters;
        CEdit::OnChar(character, repeat, flags);
        CEdit::OnChar(character, repeat, flags);
    }
};

BEGIN_MESSAGE_MAP(DoublingEdit, CEdit)
    ON_WM_CHAR()
END_MESSAGE_MAP()

CString text_of(HWND window) {
    CString text;
    CWnd::FromHandle(window)->GetWindowText(text);
    return text;
}

TEST(WindowMap, SubclassingPutsTheObjectBeforeTheControl) {
    const HWND window = foreign_edit();
    DoublingEdit edit;
    ASSERT_TRUE(edit.SubclassWindow(window));
    EXPECT_EQ(CWnd::FromHandlePermanent(window), &edit);
    edit.SetSel(4, 4);
    edit.SendMessage(WM_CHAR, L'!');
    EXPECT_EQ(edit.characters, 1);
    EXPECT_EQ(text_of(window), L"text!!");

    CEdit other;
    EXPECT_FALSE(other.SubclassWindow(window));
    EXPECT_FALSE(other.Attach(window));
    EXPECT_FALSE(edit.Attach(::GetDesktopWindow()));
}

TEST(WindowMap, WindowOrObjectMayGoFirst) {
    const HWND first = foreign_edit();
    {
        DoublingEdit edit;
        edit.SubclassWindow(first);
    }
    EXPECT_FALSE(::IsWindow(first));
    EXPECT_EQ(CWnd::FromHandlePermanent(first), nullptr);

    const HWND second = foreign_edit();
    DoublingEdit edit;
    edit.SubclassWindow(second);
    ::DestroyWindow(second);
    EXPECT_EQ(edit.m_hWnd, nullptr);
    EXPECT_EQ(CWnd::FromHandlePermanent(second), nullptr);
    EXPECT_FALSE(edit.DestroyWindow());

    const HWND third = foreign_edit();
    ASSERT_TRUE(edit.SubclassWindow(third));  // the object takes another window
    EXPECT_TRUE(edit.DestroyWindow());
    EXPECT_FALSE(::IsWindow(third));
}

/// Records whether its temporary objects survive a clean-up that is requested within a handler.
class Holder : public CWnd {
  protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message != WM_USER) {
            return CWnd::WindowProc(message, wParam, lParam);
        }
        CWnd* const held = CWnd::FromHandle(reinterpret_cast<HWND>(wParam));
        CWnd::DeleteTempMap();
        return CWnd::FromHandle(reinterpret_cast<HWND>(wParam)) == held && held->m_hWnd != nullptr;
    }
};

TEST(WindowMap, TemporaryObjectsOwnNothing) {
    const HWND window = foreign_edit();
    CWnd* const temporary = CWnd::FromHandle(window);
    EXPECT_EQ(temporary->m_hWnd, window);
    EXPECT_EQ(CWnd::FromHandle(window), temporary);
    EXPECT_EQ(CWnd::FromHandlePermanent(window), nullptr);
    EXPECT_EQ(CWnd::FromHandle(nullptr), nullptr);
    EXPECT_EQ(CScrollBar::FromHandle(window)->m_hWnd, window);

    Holder holder;
    holder.CreateEx(0, nullptr, L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr);
    EXPECT_EQ(holder.SendMessage(WM_USER, reinterpret_cast<WPARAM>(window)), 1);

    CWnd::DeleteTempMap();
    EXPECT_TRUE(::IsWindow(window));
    {
        DoublingEdit edit;
        edit.SubclassWindow(window);
        EXPECT_EQ(CWnd::FromHandle(window), &edit);
    }
    EXPECT_FALSE(::IsWindow(window));
}

}  // namespace
