#include "platform/host/editor/status_line.h"

#include <commctrl.h>

#include <algorithm>

#include "platform/host/view/gdi_handles.h"
#include "platform/host/view/window_class.h"

namespace host {

StatusLine::StatusLine(HWND parent, HFONT font) {
    const INITCOMMONCONTROLSEX bars{sizeof bars, ICC_BAR_CLASSES};
    InitCommonControlsEx(&bars);
    window_ = CreateWindowExW(0, STATUSCLASSNAMEW, L"", WS_CHILD | WS_VISIBLE | SBARS_SIZEGRIP, 0, 0, 0, 0, parent,
                              nullptr, host_instance(), nullptr);
    SendMessageW(window_, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    const WindowContext context(parent);
    const SavedContext saved(context.get());
    SelectObject(context.get(), font);
    TEXTMETRICW metrics;
    GetTextMetricsW(context.get(), &metrics);
    letter_width_ = metrics.tmAveCharWidth;
}

int StatusLine::height() const {
    RECT place;
    GetWindowRect(window_, &place);
    return place.bottom - place.top;
}

void StatusLine::place() {
    constexpr int letters_of_coordinates = 32;
    constexpr int letters_of_selected = 18;
    SendMessageW(window_, WM_SIZE, 0, 0);
    const int first = letters_of_coordinates * letter_width_;
    const int ends[part_count] = {first, first + letters_of_selected * letter_width_, -1};
    SendMessageW(window_, SB_SETPARTS, part_count, reinterpret_cast<LPARAM>(ends));
}

void StatusLine::set(Part part, const std::wstring& text) {
    if (text != texts_[part]) {
        texts_[part] = text;
        SendMessageW(window_, SB_SETTEXTW, part, reinterpret_cast<LPARAM>(text.c_str()));
    }
}

std::wstring selected_text(size_t count) {
    return count == 0 ? L"" : std::to_wstring(count) + L" selected";
}

std::wstring entity_text(const dxf::Drawing& drawing, dxf::RecordId entity) {
    if (entity == dxf::no_record) {
        return {};
    }
    const dxf::Record& record = drawing.record(entity);
    std::wstring text = drawing.type_names().name(record.type);
    if (record.type == dxf::type_insert && record.block_name != dxf::no_name) {
        const auto count =
            std::count_if(drawing.entities().begin(), drawing.entities().end(), [&](dxf::RecordId other) {
                const dxf::Record& beside = drawing.record(other);
                return beside.type == dxf::type_insert && beside.block_name == record.block_name &&
                       !beside.is(dxf::Record::erased) &&
                       beside.is(dxf::Record::paper_space) == record.is(dxf::Record::paper_space);
            });
        text += L" \"" + drawing.block_names().name(record.block_name) + L"\", " + std::to_wstring(count) +
                L" in the drawing";
    }
    text += L", layer " + (record.layer == dxf::no_name ? L"0" : drawing.layer_names().name(record.layer));
    return text;
}

}  // namespace host
