#include "tests/pricelist/open_template.h"

#include <array>
#include <stdexcept>

#include "bidi/clipboard_text.h"
#include "common/module_path.h"
#include "platform/host/editor/editor.h"
#include "platform/host/editor/modal_dialog.h"
#include "resources/resource.h"
#include "tests/host/list_person.h"
#include "tests/shell/small_drawing.h"

namespace test_support {
namespace {

constexpr UINT answer_interval = 10;  // milliseconds

}  // namespace

/// Presses the buttons of message boxes while their own loops run.
class OpenTemplate::Answers {
  public:
    Answers() {
        current_ = this;
        timer_ = ::SetTimer(nullptr, 0, answer_interval, &Answers::on_timer);
    }
    ~Answers() {
        ::KillTimer(nullptr, timer_);
        current_ = nullptr;
    }

    std::vector<int> next;
    std::vector<std::wstring> said;

  private:
    static void CALLBACK on_timer(HWND, UINT, UINT_PTR, DWORD) {
        const auto box = host::ModalDialog::find();
        if (current_ == nullptr || !box || !box->is_message_box()) {
            return;
        }
        int answer = IDCANCEL;
        if (!current_->next.empty()) {
            answer = current_->next.front();
            current_->next.erase(current_->next.begin());
        }
        current_->said.push_back(box->message());
        // A box with nothing but OK ends with IDOK, whatever it is sent.
        const bool has_button = ::GetDlgItem(box->window(), answer) != nullptr;
        ::EndDialog(box->window(), has_button ? answer : IDOK);
    }

    inline static Answers* current_ = nullptr;
    UINT_PTR timer_ = 0;
};

OpenTemplate::OpenTemplate(const std::vector<std::string>& blocks)
    : folder_("template_" + std::to_string(::GetCurrentProcessId())), answers_(std::make_unique<Answers>()) {
    write(L"drawing.dxf", drawing_of(blocks));
    if (!host::editor().documents.open(folder_ / "drawing.dxf")) {
        throw std::runtime_error("the drawing cannot be read");
    }
    corvanes::set_module_path((folder_ / "Corvanes.arx").wstring());
    // The owner of a modal dialog is disabled.
    main_window_.CreateEx(0, nullptr, L"", WS_POPUP | WS_DISABLED, CRect(0, 0, 0, 0), nullptr, 0);
    dialog_ = std::make_unique<BlockPriceDialog>(nullptr);
    dialog_->Create(IDD_BOM_TEMPLATE, &main_window_);
    dialog_->ShowWindow(SW_SHOW);
    pump();
}

OpenTemplate::~OpenTemplate() {
    dialog_->DestroyWindow();
    main_window_.DestroyWindow();
    host::editor().documents.close();
}

void OpenTemplate::press(int id, const std::wstring& file) {
    const host::ListPerson person(file.empty() ? std::deque<std::wstring>() : std::deque{file});
    const HWND button = control(id);
    if (::IsWindowEnabled(button) != 0) {
        ::SetFocus(button);
        ::SendMessageW(button, BM_CLICK, 0, 0);
    }
    pump();
}

void OpenTemplate::pump() {
    MSG message;
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != 0) {
        if (!CWnd::WalkPreTranslateTree(nullptr, &message)) {
            ::TranslateMessage(&message);
            ::DispatchMessageW(&message);
        }
    }
}

void OpenTemplate::key(UINT code, std::initializer_list<int> held) {
    BYTE states[256] = {};
    for (const int other : held) {
        states[other] = 0x80;
    }
    ::SetKeyboardState(states);
    ::PostMessageW(::GetFocus(), WM_KEYDOWN, code, 1);
    pump();
    ::SetKeyboardState(std::array<BYTE, 256>{}.data());
}

void OpenTemplate::type(const wchar_t* text) {
    for (; *text != L'\0'; ++text) {
        ::SendMessageW(::GetFocus(), WM_CHAR, *text, 1);
    }
    pump();
}

void OpenTemplate::click(int column, int row, int from_right) {
    grid().EnsureVisible(column, row);
    CUGGrid& cells = grid().GetGrid();
    const RECT cell = cells.CellRectangle(column, row);
    const LPARAM at = MAKELPARAM(cell.right - from_right, (cell.top + cell.bottom) / 2);
    cells.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, at);
    cells.SendMessage(WM_LBUTTONUP, 0, at);
    pump();
}

void OpenTemplate::click_heading(int column) {
    CUGTopHdg& heading = grid().GetTopHeading();
    const RECT cell = heading.CellRectangle(column);
    const LPARAM at = MAKELPARAM((cell.left + cell.right) / 2, (cell.top + cell.bottom) / 2);
    heading.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, at);
    heading.SendMessage(WM_LBUTTONUP, 0, at);
    pump();
}

void OpenTemplate::paste(int column, int row, const std::wstring& text) {
    corvanes::put_clipboard_text(dialog_->m_hWnd, text);
    click(column, row);
    ::SendMessageW(::GetFocus(), EM_SETSEL, 0, -1);
    ::SendMessageW(::GetFocus(), WM_PASTE, 0, 0);
    key(VK_TAB);
}

void OpenTemplate::answer_boxes(std::vector<int> answers) {
    answers_->next = std::move(answers);
}

std::vector<std::wstring> OpenTemplate::boxes() {
    return std::exchange(answers_->said, {});
}

MyCug& OpenTemplate::grid() const {
    return dynamic_cast<MyCug&>(*CWnd::FromHandlePermanent(control(IDC_TEMPLATE_GRID)));
}

std::wstring OpenTemplate::text_of(int id) const {
    CString text;
    CWnd::FromHandle(control(id))->GetWindowText(text);
    return text.GetString();
}

std::wstring OpenTemplate::rows() const {
    std::wstring lines;
    for (int row = 0; row < grid().GetRowCount(); ++row) {
        for (int column = 0; column < MyCug::column_count; ++column) {
            lines.append(grid().GetCellText(column, row)).push_back(L"||\n"[column]);
        }
    }
    return lines;
}

std::string OpenTemplate::buttons() const {
    std::string enabled;
    for (const auto& [id, letter] : {std::pair(IDC_TEMPLATE_SAVE, 'S'), std::pair(IDC_TEMPLATE_SAVE_AS, 'A'),
                                     std::pair(IDC_TEMPLATE_INSERT_ROW, 'I'), std::pair(IDC_TEMPLATE_DELETE_ROW, 'D'),
                                     std::pair(IDC_TEMPLATE_MOVE_UP, 'U'), std::pair(IDC_TEMPLATE_MOVE_DOWN, 'd')}) {
        enabled += ::IsWindowEnabled(control(id)) != 0 ? letter : '-';
    }
    return enabled;
}

}  // namespace test_support
