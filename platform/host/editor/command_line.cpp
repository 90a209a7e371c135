#include "platform/host/editor/command_line.h"

#include <windowsx.h>

#include <algorithm>
#include <utility>

#include "platform/host/prompt/command_names.h"
#include "platform/host/view/gdi_handles.h"
#include "platform/host/view/window_class.h"

namespace host {
namespace {

constexpr int history_limit = 60000;  ///< characters; the older half, or more, is dropped when there are more
constexpr int history_lines = 6;

std::wstring with_carriage_returns(std::wstring_view text) {
    std::wstring converted;
    for (const wchar_t character : text) {
        converted += character == L'\n' ? L"\r\n" : std::wstring(1, character);
    }
    return converted;
}

HWND edit_field(HWND parent, HFONT font, DWORD style) {
    const HWND made = CreateWindowExW(WS_EX_CLIENTEDGE, L"EDIT", L"", WS_CHILD | WS_VISIBLE | style, 0, 0, 0, 0, parent,
                                      nullptr, host_instance(), nullptr);
    SendMessageW(made, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    return made;
}

constexpr wchar_t prompt_class[] = L"HostPrompt";
constexpr int prompt_margin = 4;  ///< pixels at both ends of the prompt
constexpr COLORREF option_colour = RGB(0, 0, 192);

int width_of(HDC context, const std::wstring& text, size_t length) {
    SIZE size{};
    GetTextExtentPoint32W(context, text.c_str(), static_cast<int>(length), &size);
    return size.cx;
}

}  // namespace

PromptLabel::PromptLabel(HWND parent, HFONT font, std::function<void(std::wstring)> chosen)
    : font_(font), chosen_(std::move(chosen)) {
    register_window_class(prompt_class, &PromptLabel::procedure, COLOR_BTNFACE);
    window_ = CreateWindowExW(0, prompt_class, L"", WS_CHILD | WS_VISIBLE, 0, 0, 0, 0, parent, nullptr, host_instance(),
                              nullptr);
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

PromptLabel::~PromptLabel() {
    SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
}

void PromptLabel::set_text(std::wstring text) {
    if (text != text_) {
        text_ = std::move(text);
        options_ = prompt_options(text_);
        InvalidateRect(window_, nullptr, TRUE);
    }
}

int PromptLabel::right_of(HDC context, size_t length) const {
    RECT area;
    GetClientRect(window_, &area);
    const int hidden =
        std::max(0, 2 * prompt_margin + width_of(context, text_, text_.size()) - static_cast<int>(area.right));
    return prompt_margin + width_of(context, text_, length) - hidden;
}

int PromptLabel::wanted_width() const {
    const WindowContext context(window_);
    const SavedContext saved(context.get());
    SelectObject(context.get(), font_);
    return text_.empty() ? 0 : width_of(context.get(), text_, text_.size()) + 2 * prompt_margin;
}

void PromptLabel::paint() const {
    PAINTSTRUCT painting;
    const HDC context = BeginPaint(window_, &painting);
    SelectObject(context, font_);
    SetBkMode(context, TRANSPARENT);
    SetTextColor(context, GetSysColor(COLOR_BTNTEXT));
    RECT area;
    GetClientRect(window_, &area);
    area.left = right_of(context, 0);
    DrawTextW(context, text_.c_str(), -1, &area, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
    SetTextColor(context, option_colour);
    for (const PromptOption& option : options_) {
        RECT word = area;
        word.left = right_of(context, option.begin);
        word.right = right_of(context, option.begin + option.length);
        DrawTextW(context, text_.c_str() + option.begin, static_cast<int>(option.length), &word,
                  DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_NOCLIP);
        TEXTMETRICW metrics;
        GetTextMetricsW(context, &metrics);
        word.top = (area.bottom - metrics.tmHeight) / 2 + metrics.tmAscent + 1;
        word.bottom = word.top + 1;
        SetDCBrushColor(context, option_colour);
        FillRect(context, &word, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
    }
    EndPaint(window_, &painting);
}

const PromptOption* PromptLabel::option_at(int x) const {
    const WindowContext context(window_);
    const SavedContext saved(context.get());
    SelectObject(context.get(), font_);
    const auto found = std::find_if(options_.begin(), options_.end(), [&](const PromptOption& option) {
        return x >= right_of(context.get(), option.begin) && x < right_of(context.get(), option.begin + option.length);
    });
    return found == options_.end() ? nullptr : &*found;
}

LRESULT CALLBACK PromptLabel::procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    const auto* const label = reinterpret_cast<PromptLabel*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (label != nullptr && message == WM_PAINT) {
        label->paint();
        return 0;
    }
    if (label != nullptr && message == WM_LBUTTONDOWN) {
        if (const PromptOption* const option = label->option_at(GET_X_LPARAM(lparam))) {
            label->chosen_(label->text_.substr(option->begin, option->length));
        }
        return 0;
    }
    if (label != nullptr && message == WM_SETCURSOR) {
        POINT at;
        GetCursorPos(&at);
        ScreenToClient(window, &at);
        SetCursor(LoadCursorW(nullptr, label->option_at(at.x) != nullptr ? IDC_HAND : IDC_ARROW));
        return TRUE;
    }
    return DefWindowProcW(window, message, wparam, lparam);
}

CommandLine::CommandLine(HWND parent, HFONT font, std::function<void(std::wstring)> option_chosen)
    : history_(edit_field(parent, font, WS_VSCROLL | ES_MULTILINE | ES_READONLY | ES_AUTOVSCROLL)),
      line_(edit_field(parent, font, ES_AUTOHSCROLL)),
      prompt_(parent, font, std::move(option_chosen)) {
    SendMessageW(history_, EM_SETLIMITTEXT, 0, 0);  // append_history keeps its own limit
    const WindowContext context(parent);
    const SavedContext saved(context.get());
    SelectObject(context.get(), font);
    TEXTMETRICW metrics;
    GetTextMetricsW(context.get(), &metrics);
    letter_height_ = metrics.tmHeight;
}

int CommandLine::wanted_height(int window_height) const {
    const int usual = history_lines * letter_height_ + line_height() + 2 * GetSystemMetrics(SM_CYEDGE) + 2;
    return std::min(large_ ? std::max(usual, window_height * 2 / 3) : usual, window_height);
}

void CommandLine::place(const RECT& area) {
    area_ = area;
    const int width = area.right - area.left;
    const int line_top = area.bottom - line_height();
    const int most = std::max(width / 3, width - 10 * letter_height_);  // room for a line
    const int prompt_width = std::min(std::max(prompt_.wanted_width(), width / 8), most);
    MoveWindow(history_, area.left, area.top, width, line_top - area.top, TRUE);
    MoveWindow(prompt_.window(), area.left, line_top, prompt_width, line_height(), TRUE);
    MoveWindow(line_, area.left + prompt_width, line_top, width - prompt_width, line_height(), TRUE);
}

void CommandLine::append_history(std::wstring_view text) {
    const size_t last_break = text.find_last_of(L'\n');
    if (last_break == std::wstring_view::npos) {
        last_line_ += text;
    } else {
        last_line_ = text.substr(last_break + 1);
    }
    unshown_ += text;
    if (unshown_.size() > history_limit) {
        unshown_.erase(0, unshown_.size() - history_limit / 2);
    }
}

void CommandLine::update_history() {
    if (unshown_.empty() || IsWindowVisible(history_) == 0) {
        return;
    }
    const std::wstring added = with_carriage_returns(std::exchange(unshown_, {}));
    const int whole = GetWindowTextLengthW(history_) + static_cast<int>(added.size());
    if (whole > history_limit) {
        SendMessageW(history_, EM_SETSEL, 0, std::max(history_limit / 2, whole - history_limit));
        SendMessageW(history_, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(L""));
    }
    const int end = GetWindowTextLengthW(history_);
    SendMessageW(history_, EM_SETSEL, static_cast<WPARAM>(end), end);
    SendMessageW(history_, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(added.c_str()));
}

void CommandLine::set_prompt(std::wstring_view text) {
    const size_t last_line = text.find_last_of(L'\n');
    prompt_.set_text(std::wstring(last_line == std::wstring_view::npos ? text : text.substr(last_line + 1)));
    place(area_);
}

std::wstring CommandLine::take_typed() {
    std::wstring typed = window_text(line_);
    typed_before_.add(typed);
    clear_typed();
    return typed;
}

void CommandLine::clear_typed() {
    SetWindowTextW(line_, L"");
}

void CommandLine::set_typed(const std::wstring& text) {
    SetWindowTextW(line_, text.c_str());
    SendMessageW(line_, EM_SETSEL, text.size(), static_cast<LPARAM>(text.size()));
}

bool CommandLine::edits_text(const MSG& message) const {
    return message.hwnd == history_ || (message.hwnd == line_ && GetWindowTextLengthW(line_) > 0);
}

void CommandLine::redirect_typing(MSG& message) const {
    constexpr WPARAM first_printable = 0x20;
    const bool ends = message.message == WM_KEYDOWN && (message.wParam == VK_RETURN || message.wParam == VK_ESCAPE);
    const bool types = message.message == WM_CHAR && message.wParam >= first_printable;
    if (message.hwnd == history_ && (ends || types)) {
        SetFocus(line_);
        message.hwnd = line_;
    }
}

bool CommandLine::take_key(const MSG& message) {
    if (message.hwnd != line_ || message.message != WM_KEYDOWN) {
        return false;
    }
    switch (message.wParam) {
        case VK_TAB:
            complete();
            return true;
        case VK_UP:
            set_typed(typed_before_.earlier(window_text(line_)));
            return true;
        case VK_DOWN:
            set_typed(typed_before_.later(window_text(line_)));
            return true;
        default:
            return false;
    }
}

void CommandLine::complete() {
    const std::wstring typed = window_text(line_);
    if (completed_.empty() || typed != completed_) {
        completing_ = typed;
        completed_.clear();
    }
    completed_ = completed_name(completing_, completed_, names_ ? names_() : std::vector<std::wstring>());
    set_typed(completed_);
}

}  // namespace host
