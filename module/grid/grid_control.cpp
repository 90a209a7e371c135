// Creation of the grid's windows and the messages that come to the grid window itself.
#include "grid/grid_control.h"

#include <algorithm>

#include "grid/cell_query.h"
#include "grid/page_painter.h"
#include "grid/page_query.h"

using namespace corvanes;

namespace {

constexpr UINT update_layout_message = WM_USER + 1;
constexpr UINT refocus_editor_message = WM_USER + 2;

constexpr UINT cells_id = 121;
constexpr UINT top_heading_id = 122;
constexpr UINT side_heading_id = 123;
constexpr UINT default_editor_id = 124;

UINT cell_query() {
    static const UINT message = ::RegisterWindowMessageW(cell_rectangle_query_message);
    return message;
}

UINT page_query() {
    static const UINT message = ::RegisterWindowMessageW(printed_page_query_message);
    return message;
}

}  // namespace

BEGIN_MESSAGE_MAP(CUGCtrl, CWnd)
    ON_WM_SIZE()
    ON_WM_PAINT()
    ON_WM_ERASEBKGND()
    ON_WM_SETFOCUS()
    ON_WM_HSCROLL()
    ON_WM_VSCROLL()
    ON_WM_MOUSEWHEEL()
    ON_MESSAGE(WM_MOUSEHWHEEL, &CUGCtrl::OnMouseSidewaysWheel)
    ON_WM_KEYDOWN()
    ON_WM_DESTROY()
    ON_MESSAGE(WM_SETFONT, &CUGCtrl::OnSetFontMessage)
    ON_MESSAGE(WM_GETFONT, &CUGCtrl::OnGetFontMessage)
    ON_MESSAGE(update_layout_message, &CUGCtrl::OnUpdateLayout)
    ON_MESSAGE(refocus_editor_message, &CUGCtrl::OnRefocusEditor)
END_MESSAGE_MAP()

CUGCtrl::CUGCtrl() : edit_(*this), commands_(*this) {
    font_ = static_cast<HFONT>(::GetStockObject(DEFAULT_GUI_FONT));
    for (CUGCellType* const standard : standard_types_.all()) {
        AddCellType(standard);
    }
}

CUGCtrl::~CUGCtrl() = default;

BOOL CUGCtrl::CreateGrid(DWORD style, const RECT& place, CWnd* parent, UINT id) {
    if (m_hWnd != nullptr || !CreateWindows(style | WS_CHILD, 0, place, parent, id)) {
        return FALSE;
    }
    OnGridSetup();
    return TRUE;
}

BOOL CUGCtrl::AttachGrid(CWnd* parent, UINT id) {
    const HWND placeholder = ::GetDlgItem(parent->m_hWnd, static_cast<int>(id));
    if (m_hWnd != nullptr || placeholder == nullptr) {
        return FALSE;
    }
    RECT place;
    ::GetWindowRect(placeholder, &place);
    ::MapWindowPoints(nullptr, parent->m_hWnd, reinterpret_cast<POINT*>(&place), 2);
    const auto style = static_cast<DWORD>(::GetWindowLongPtrW(placeholder, GWL_STYLE));
    const auto edge = static_cast<DWORD>(::GetWindowLongPtrW(placeholder, GWL_EXSTYLE));
    constexpr DWORD kept_styles = WS_VISIBLE | WS_DISABLED | WS_GROUP | WS_BORDER;
    constexpr DWORD kept_edges = WS_EX_CLIENTEDGE | WS_EX_STATICEDGE;
    if (const auto font = ::SendMessageW(placeholder, WM_GETFONT, 0, 0); font != 0) {
        font_ = reinterpret_cast<HFONT>(font);
    }
    if (!CreateWindows(WS_CHILD | WS_TABSTOP | (style & kept_styles), edge & kept_edges, place, parent, id)) {
        return FALSE;
    }
    ::SetWindowPos(m_hWnd, placeholder, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    ::DestroyWindow(placeholder);
    OnGridSetup();
    return TRUE;
}

bool CUGCtrl::CreateWindows(DWORD style, DWORD edge, const RECT& place, CWnd* parent, UINT id) {
    const LPCWSTR window_class = AfxRegisterWndClass(0, ::LoadCursorW(nullptr, IDC_ARROW));
    if (!CWnd::CreateEx(edge, window_class, L"", style | WS_CLIPCHILDREN | WS_CLIPSIBLINGS, place, parent, id)) {
        return false;
    }
    if (!cells_.Create(*this, cells_id) || !top_heading_.Create(*this, top_heading_id, true) ||
        !side_heading_.Create(*this, side_heading_id) ||
        !default_editor_.Create(WS_CHILD | WS_BORDER | ES_AUTOHSCROLL, CRect(0, 0, 0, 0), this, default_editor_id)) {
        DestroyWindow();
        return false;
    }
    state_.heading_height = GetFontHeight() + 6;
    LayoutChanged();
    UpdateLayout();
    return true;
}

int CUGCtrl::GetFontHeight() const {
    CClientDC dc(const_cast<CUGCtrl*>(this));
    const HGDIOBJ former = ::SelectObject(dc.m_hDC, font_);
    TEXTMETRICW metrics{};
    ::GetTextMetricsW(dc.m_hDC, &metrics);
    ::SelectObject(dc.m_hDC, former);
    return metrics.tmHeight;
}

// The scroll bars and the inner windows are brought up to date at the next turn of the message loop, however many rows
// come before it.
void CUGCtrl::LayoutChanged() {
    if (!layout_due_ && m_hWnd != nullptr) {
        layout_due_ = true;
        ::PostMessageW(m_hWnd, update_layout_message, 0, 0);
    }
}

void CUGCtrl::UpdateLayout() {
    if (!layout_due_ || laying_out_ || m_hWnd == nullptr) {
        return;
    }
    laying_out_ = true;
    const int top_row = state_.top_row;
    const int scroll_x = state_.scroll_x;
    const CellSpace space = fit_scroll_bars(m_hWnd, state_);
    const int side = state_.side.total_width();
    const int heading = state_.heading_height;
    top_heading_.Place({side, 0, side + space.width, heading});
    side_heading_.Place({0, heading, side, heading + space.height});
    cells_.Place({side, heading, side + space.width, heading + space.height});
    layout_due_ = false;
    laying_out_ = false;
    if (top_row != state_.top_row || scroll_x != state_.scroll_x) {
        RedrawAll();
    }
}

LRESULT CUGCtrl::OnUpdateLayout(WPARAM, LPARAM) {
    UpdateLayout();
    return 0;
}

void CUGCtrl::OnSize(UINT, int, int) {
    // A scroll bar that comes or goes resizes the window in the middle of laying out.
    if (!laying_out_ && cells_.m_hWnd != nullptr) {
        layout_due_ = true;
        UpdateLayout();
    }
}

// Only the corner between the headings shows; the rest is covered.
void CUGCtrl::OnPaint() {
    UpdateLayout();
    CPaintDC dc(this);
    RECT corner{0, 0, state_.side.total_width(), state_.heading_height};
    const RECT client = dc.m_ps.rcPaint;
    dc.FillSolidRect(&client, ::GetSysColor(COLOR_BTNFACE));
    if (corner.right > 0) {
        ::DrawEdge(dc.m_hDC, &corner, EDGE_RAISED, BF_RECT | BF_MIDDLE | BF_SOFT);
    }
}

BOOL CUGCtrl::OnEraseBkgnd(CDC*) {
    return TRUE;
}

void CUGCtrl::OnSetFocus(CWnd*) {
    cells_.SetFocus();
}

void CUGCtrl::OnHScroll(UINT code, UINT, CScrollBar*) {
    UpdateLayout();
    if (FinishEdit()) {
        SetScrollX(scrolled_x(m_hWnd, state_, code, cells_.width()));
    }
}

void CUGCtrl::OnVScroll(UINT code, UINT, CScrollBar*) {
    UpdateLayout();
    if (FinishEdit()) {
        SetTopRow(scrolled_row(m_hWnd, state_, code, state_.rows.fitting(state_.top_row, cells_.height())));
    }
}

BOOL CUGCtrl::OnMouseWheel(UINT keys, short turn, CPoint) {
    (keys & MK_SHIFT) != 0 ? ScrollSidewaysByWheel(-turn) : ScrollByWheel(turn);
    return TRUE;
}

LRESULT CUGCtrl::OnMouseSidewaysWheel(WPARAM turn, LPARAM) {
    ScrollSidewaysByWheel(GET_WHEEL_DELTA_WPARAM(turn));
    return 0;
}

// Keys come here from an editor that passes them on to its parent.
void CUGCtrl::OnKeyDown(UINT key, UINT repeat, UINT flags) {
    if (edit_.active() && key == VK_ESCAPE) {
        edit_.end_edit(EditEnd::cancel, key);
        return;
    }
    cells_.SendMessage(WM_KEYDOWN, key, MAKELPARAM(repeat, flags));
}

void CUGCtrl::OnDestroy() {
    edit_.abandon();
    commands_.CloseWindows();
    layout_due_ = false;
    CWnd::OnDestroy();
}

LRESULT CUGCtrl::OnSetFontMessage(WPARAM font, LPARAM redraw) {
    font_ = font != 0 ? reinterpret_cast<HFONT>(font) : static_cast<HFONT>(::GetStockObject(DEFAULT_GUI_FONT));
    if (LOWORD(redraw) != 0) {
        RedrawAll();
    }
    return 0;
}

LRESULT CUGCtrl::OnGetFontMessage(WPARAM, LPARAM) {
    return reinterpret_cast<LRESULT>(font_);
}

LRESULT CUGCtrl::OnRefocusEditor(WPARAM, LPARAM) {
    edit_.focus();
    return 0;
}

// An editor cannot take the focus back while it is losing it, so this waits for the next message.
void CUGCtrl::RefocusEditor() {
    PostMessage(refocus_editor_message);
}

BOOL CUGCtrl::OnCommand(WPARAM code, LPARAM control) {
    if (control != 0 && reinterpret_cast<HWND>(control) == drop_list_.m_hWnd) {
        drop_list_.Notified(HIWORD(code));
        return TRUE;
    }
    return CWnd::OnCommand(code, control);
}

LRESULT CUGCtrl::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == cell_query() && lParam != 0) {
        return AnswerCellQuery(lParam);
    }
    if (message == page_query() && lParam != 0) {
        return AnswerPageQuery(lParam);
    }
    return CWnd::WindowProc(message, wParam, lParam);
}

LRESULT CUGCtrl::AnswerCellQuery(LPARAM query) {
    auto* asked = reinterpret_cast<CellRectangleQuery*>(query);
    if (!Addresses(asked->column, asked->row)) {
        return 0;
    }
    EnsureVisible(std::max(0, asked->column), std::max(0, asked->row));
    GridPane* pane = &cells_;
    if (asked->row < 0) {
        pane = &top_heading_;
        asked->rect = asked->column >= 0 ? top_heading_.CellRectangle(asked->column) : RECT{};
    } else if (asked->column < 0) {
        pane = &side_heading_;
        asked->rect = side_heading_.CellRectangle(asked->row);
    } else {
        asked->rect = cells_.CellRectangle(asked->column, asked->row);
    }
    const RECT visible{0, 0, pane->width(), pane->height()};
    if (::IntersectRect(&asked->rect, &asked->rect, &visible) == 0) {
        return 0;
    }
    ::MapWindowPoints(pane->m_hWnd, nullptr, reinterpret_cast<POINT*>(&asked->rect), 2);
    return 1;
}

LRESULT CUGCtrl::AnswerPageQuery(LPARAM query) {
    const auto* asked = reinterpret_cast<const PrintedPageQuery*>(query);
    PrintTitles titles;
    if (!OnGridPrint(&titles)) {
        return 0;
    }
    PagePainter painter(*this, titles, asked->dc, {asked->width, asked->height, asked->dots_per_inch});
    if (asked->page >= 0 && asked->page < painter.page_count()) {
        painter.Paint(asked->page);
    }
    return painter.page_count();
}
