#include "platform/host/editor/prompt_label.h"

#include <windowsx.h>

#include <algorithm>
#include <utility>

#include "platform/host/view/gdi_handles.h"
#include "platform/host/view/window_class.h"

namespace host {
namespace {

constexpr wchar_t class_name[] = L"HostPrompt";
constexpr int margin = 4;  ///< pixels at both ends
constexpr COLORREF option_colour = RGB(0, 0, 192);

int width_of(HDC context, const std::wstring& text, size_t length) {
    SIZE size{};
    GetTextExtentPoint32W(context, text.c_str(), static_cast<int>(length), &size);
    return size.cx;
}

}  // namespace

PromptLabel::PromptLabel(HWND parent, HFONT font, std::function<void(std::wstring)> chosen)
    : font_(font), chosen_(std::move(chosen)) {
    register_window_class(class_name, &PromptLabel::procedure, COLOR_BTNFACE);
    window_ = CreateWindowExW(0, class_name, L"", WS_CHILD | WS_VISIBLE, 0, 0, 0, 0, parent, nullptr, host_instance(),
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
    const int hidden = std::max(0, 2 * margin + width_of(context, text_, text_.size()) - static_cast<int>(area.right));
    return margin + width_of(context, text_, length) - hidden;
}

int PromptLabel::wanted_width() const {
    const WindowContext context(window_);
    const SavedContext saved(context.get());
    SelectObject(context.get(), font_);
    return text_.empty() ? 0 : width_of(context.get(), text_, text_.size()) + 2 * margin;
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

}  // namespace host
