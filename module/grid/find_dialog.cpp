#include "grid/find_dialog.h"

#include "grid/cell_changes.h"
#include "grid/cell_grid.h"
#include "grid/escape_key.h"
#include "grid/painting_area.h"

namespace corvanes {

namespace {

enum FindControl : int {
    find_text = 101,
    find_replacement,
    find_match_case,
    find_whole_cell,
    find_one_column,
    find_up,
    find_down,
    find_replace,
    find_replace_all,
};

constexpr short dialog_width = 250;
constexpr short row_height = 18;

// The controls from `y` on downwards, in the order of Tab.
std::vector<DialogControl> controls_for(bool replacing) {
    constexpr DWORD check = WS_TABSTOP | BS_AUTOCHECKBOX;
    constexpr DWORD button = WS_TABSTOP | BS_PUSHBUTTON;
    std::vector<DialogControl> controls{{L"STATIC", L"Fi&nd what:", 0, -1, 7, 9, 50, 8},
                                        {nullptr, L"", 0, find_text, 60, 7, 122, 13}};
    const short y = replacing ? 7 + 2 * row_height : 7 + row_height;
    if (replacing) {
        controls.push_back({L"STATIC", L"Re&place with:", 0, -1, 7, 9 + row_height, 50, 8});
        controls.push_back({nullptr, L"", 0, find_replacement, 60, 7 + row_height, 122, 13});
    }
    const auto below = [y](int distance) { return static_cast<short>(y + distance); };
    controls.insert(controls.end(),
                    {
                        {L"BUTTON", L"Match &case", check | WS_GROUP, find_match_case, 7, below(0), 80, 10},
                        {L"BUTTON", L"&Whole cell", check, find_whole_cell, 7, below(13), 80, 10},
                        {L"BUTTON", L"This c&olumn only", check, find_one_column, 7, below(26), 80, 10},
                        {L"BUTTON", L"Direction", BS_GROUPBOX, -1, 95, below(-2), 87, 24},
                        {L"BUTTON", L"&Up", WS_GROUP | WS_TABSTOP | BS_AUTORADIOBUTTON, find_up, 101, below(9), 30, 10},
                        {L"BUTTON", L"&Down", BS_AUTORADIOBUTTON, find_down, 138, below(9), 40, 10},
                        {L"BUTTON", L"&Find Next", WS_GROUP | WS_TABSTOP | BS_DEFPUSHBUTTON, IDOK, 190, 7, 53, 14},
                    });
    if (replacing) {
        controls.push_back({L"BUTTON", L"&Replace", button, find_replace, 190, 7 + row_height, 53, 14});
        controls.push_back({L"BUTTON", L"Replace &All", button, find_replace_all, 190, below(0), 53, 14});
    }
    controls.push_back({L"BUTTON", L"Close", button, IDCANCEL, 190, replacing ? below(row_height) : below(0), 53, 14});
    return controls;
}

// Disables the dialog below while this one asks something.
class OwnerWaits {
  public:
    explicit OwnerWaits(HWND owner) : owner_(owner), waits_(::EnableWindow(owner, FALSE) == 0) {}
    OwnerWaits(const OwnerWaits&) = delete;
    OwnerWaits& operator=(const OwnerWaits&) = delete;
    ~OwnerWaits() {
        if (waits_) {
            ::EnableWindow(owner_, TRUE);
        }
    }

  private:
    HWND owner_;
    bool waits_;
};

std::wstring cells_in_words(std::size_t count) {
    return std::to_wstring(count) + (count == 1 ? L" cell" : L" cells");
}

}  // namespace

BEGIN_MESSAGE_MAP(FindDialog, CDialog)
    ON_BN_CLICKED(find_replace, &FindDialog::OnReplace)
    ON_BN_CLICKED(find_replace_all, &FindDialog::OnReplaceAll)
    ON_EN_CHANGE(find_text, &FindDialog::OnTextChange)
    ON_WM_CLOSE()
END_MESSAGE_MAP()

void FindDialog::Open(bool replacing) {
    if (m_hWnd != nullptr && replacing != replacing_) {
        Prepare();
        DestroyWindow();
    }
    replacing_ = replacing;
    if (m_hWnd == nullptr) {
        const short height = replacing ? 7 + 5 * row_height : 7 + 4 * row_height - 6;
        if (!CreateOver(grid_, replacing ? L"Replace" : L"Find", {dialog_width, height}, controls_for(replacing))) {
            return;
        }
        // The window opens at the upper right of the grid, where few texts are.
        CRect grid, own;
        ::GetWindowRect(grid_.m_hWnd, grid);
        GetWindowRect(own);
        SetWindowPos(nullptr, grid.right - own.Width(), grid.top, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
        Uncover({grid_.state().current_column, grid_.state().current_row});
        ShowWindow(SW_SHOW);
    }
    ::SetActiveWindow(m_hWnd);
    text_field_.SetFocus();
    text_field_.SetSel(0, -1);
}

BOOL FindDialog::OnInitDialog() {
    MemoryDialog::OnInitDialog();
    SendMessage(DM_SETDEFID, IDOK);
    text_field_.SetText(text_);
    if (replacing_) {
        replacement_field_.SetText(replacement_);
    }
    ::CheckDlgButton(m_hWnd, find_match_case, options_.match_case ? BST_CHECKED : BST_UNCHECKED);
    ::CheckDlgButton(m_hWnd, find_whole_cell, options_.whole_cell ? BST_CHECKED : BST_UNCHECKED);
    ::CheckDlgButton(m_hWnd, find_one_column, one_column_ ? BST_CHECKED : BST_UNCHECKED);
    ::CheckRadioButton(m_hWnd, find_up, find_down, up_ ? find_up : find_down);
    OnTextChange();
    return FALSE;
}

HWND FindDialog::MakeControl(const DialogControl& control, const RECT& place) {
    constexpr DWORD style = WS_CHILD | WS_VISIBLE | WS_TABSTOP | ES_AUTOHSCROLL;
    FindField& field = control.id == find_text ? text_field_ : replacement_field_;
    field.CreateEx(WS_EX_CLIENTEDGE, L"EDIT", L"", style, place, this, static_cast<UINT>(control.id));
    return field.m_hWnd;
}

// The framework's top-level parent would be the owner of all, which waits for the dialog that the grid is in.
HWND FindDialog::Below() const {
    return ::GetAncestor(grid_.m_hWnd, GA_ROOT);
}

BOOL FindDialog::PreTranslateMessage(MSG* message) {
    if (message->message == WM_KEYDOWN && message->wParam == 'G' && ::GetKeyState(VK_CONTROL) < 0) {
        FindNext();
        return TRUE;
    }
    return MemoryDialog::PreTranslateMessage(message);
}

void FindDialog::OnTextChange() {
    const bool any = !text_field_.TypedText().empty();
    for (const int id : {static_cast<int>(IDOK), static_cast<int>(find_replace), static_cast<int>(find_replace_all)}) {
        if (const HWND control = ::GetDlgItem(m_hWnd, id)) {
            ::EnableWindow(control, any);
        }
    }
}

bool FindDialog::Prepare() {
    if (m_hWnd != nullptr) {
        text_ = text_field_.TypedText();
        replacement_ = replacing_ ? replacement_field_.TypedText() : replacement_;
        options_ = {IsDlgButtonChecked(find_match_case) != 0, IsDlgButtonChecked(find_whole_cell) != 0};
        one_column_ = IsDlgButtonChecked(find_one_column) != 0;
        up_ = IsDlgButtonChecked(find_up) != 0;
    }
    return !text_.empty() && ::IsWindowEnabled(Below()) != 0 && grid_.FinishEdit();
}

SearchSpace FindDialog::Space() const {
    const GridState& state = grid_.state();
    SearchSpace space;
    for (int column = 0; column < state.columns.count(); ++column) {
        if (state.columns.shows(column) && (!one_column_ || column == state.current_column)) {
            space.columns.push_back(column);
        }
    }
    space.rows = state.rows.count();
    space.text = [this](CellAddress cell) { return grid_.GetCellText(cell.column, cell.row); };
    return space;
}

void FindDialog::FindNext() {
    if (text_.empty() && m_hWnd == nullptr) {
        return Open(false);
    }
    if (!Prepare()) {
        return;
    }
    const GridState& state = grid_.state();
    const HCURSOR former = ::SetCursor(::LoadCursorW(nullptr, IDC_WAIT));
    const SearchResult result =
        search_cells(Search(), Space(), {state.current_column, state.current_row}, up_, [] { return !escape_waits(); });
    ::SetCursor(former);
    if (result.end == SearchEnd::found) {
        Show(result.cell);
    } else if (result.end == SearchEnd::not_found) {
        Say(L"Item not found", L"Not Found", MB_OK | MB_ICONINFORMATION);
    }
}

void FindDialog::Show(CellAddress cell) {
    if (grid_.GotoCell(cell.column, cell.row) == 0) {
        grid_.ClearSelection();
        grid_.SelectCell(cell.column, cell.row);
        Uncover(cell);
    }
}

void FindDialog::Uncover(CellAddress cell) {
    if (m_hWnd == nullptr) {
        return;
    }
    CRect own, covered;
    CRect shown = grid_.GetGrid().CellRectangle(cell.column, cell.row);
    ::MapWindowPoints(grid_.GetGrid().m_hWnd, nullptr, reinterpret_cast<POINT*>(&shown), 2);
    GetWindowRect(own);
    if (::IntersectRect(covered, own, shown) == 0) {
        return;
    }
    constexpr int distance = 8;
    const int below = shown.bottom + distance;
    const bool room_below = below + own.Height() <= ::GetSystemMetrics(SM_CYSCREEN);
    SetWindowPos(nullptr, own.left, room_below ? below : shown.top - distance - own.Height(), 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void FindDialog::OnReplace() {
    if (!Prepare() || !grid_.AllowsChanges()) {
        return;
    }
    const CellAddress current{grid_.state().current_column, grid_.state().current_row};
    const wchar_t* const text = grid_.GetCellText(current.column, current.row);
    if (current.row >= 0 && text != nullptr && Search().matches(text)) {
        const OwnerWaits waits(Below());
        if (!change_cells(grid_, {{current, Search().replaced(text, replacement_)}})) {
            return;
        }
    }
    FindNext();
}

void FindDialog::OnReplaceAll() {
    if (!Prepare() || !grid_.AllowsChanges()) {
        return;
    }
    const CellSearch search = Search();
    const SearchSpace space = Space();
    std::vector<CellChange> changes;
    for (int row = 0; row < space.rows; ++row) {
        for (const int column : space.columns) {
            const wchar_t* const text = grid_.GetCellText(column, row);
            if (text != nullptr && search.matches(text)) {
                changes.push_back({{column, row}, search.replaced(text, replacement_)});
            }
        }
    }
    if (changes.empty()) {
        Say(L"Item not found", L"Not Found", MB_OK | MB_ICONINFORMATION);
        return;
    }
    const std::wstring question =
        L"Replace \"" + text_ + L"\" by \"" + replacement_ + L"\" in " + cells_in_words(changes.size()) + L"?";
    if (Say(question, L"Replace All", MB_OKCANCEL | MB_ICONQUESTION) != IDOK) {
        return;
    }
    const OwnerWaits waits(Below());
    if (const auto changed = change_cells(grid_, std::move(changes))) {
        Say(cells_in_words(*changed) + (*changed == 1 ? L" was changed" : L" were changed"), L"Replace All", MB_OK);
    }
}

int FindDialog::Say(const std::wstring& text, const wchar_t* caption, UINT kind) {
    const HWND below = Below();
    if (m_hWnd == nullptr) {
        return ::MessageBoxW(below, text.c_str(), caption, kind);
    }
    const OwnerWaits waits(below);
    return ::MessageBoxW(m_hWnd, text.c_str(), caption, kind);
}

void FindDialog::Close() {
    if (m_hWnd == nullptr) {
        return;
    }
    Prepare();
    if (grid_.m_hWnd != nullptr && !grid_.IsEditing()) {
        grid_.SetFocus();
    }
    DestroyWindow();
}

}  // namespace corvanes
