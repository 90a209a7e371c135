#include "pricelist/foreign_file.h"

#include <algorithm>

namespace corvanes {
namespace {

/// Removes the first line from the text and gives it back without its end and the blanks around it.
std::string_view take_line(std::string_view& bytes) {
    const size_t end = std::min(bytes.find('\n'), bytes.size());
    std::string_view line = bytes.substr(0, end);
    bytes.remove_prefix(std::min(end + 1, bytes.size()));
    constexpr std::string_view blanks = " \t\r";
    line.remove_prefix(std::min(line.find_first_not_of(blanks), line.size()));
    return line.substr(0, line.find_last_not_of(blanks) + 1);
}

bool is_drawing(std::string_view bytes) {
    constexpr std::string_view binary_dxf = "AutoCAD Binary DXF";
    if (bytes.starts_with(binary_dxf)) {
        return true;
    }
    std::string_view code = take_line(bytes);
    while (code == "999") {  // a comment
        take_line(bytes);
        code = take_line(bytes);
    }
    return code == "0" && take_line(bytes) == "SECTION";
}

/// Whether there are more control bytes than the few that may stray into a text.
bool is_binary(std::string_view bytes) {
    constexpr size_t looked_at = 1U << 16;
    bytes = bytes.substr(0, looked_at);
    const auto is_control = [](char byte) {
        constexpr std::string_view in_texts = "\t\n\v\f\r\x1a";
        return static_cast<unsigned char>(byte) < ' ' && in_texts.find(byte) == std::string_view::npos;
    };
    const auto controls = static_cast<size_t>(std::count_if(bytes.begin(), bytes.end(), is_control));
    constexpr size_t stray = 8;
    constexpr size_t share = 50;
    return controls > stray && controls > bytes.size() / share;
}

bool begins_with_utf16_mark(std::string_view bytes) {
    const std::string_view beginning = bytes.substr(0, 2);
    return beginning == "\xFF\xFE" || beginning == "\xFE\xFF";
}

}  // namespace

std::wstring_view foreign_kind(std::string_view bytes) {
    if (begins_with_utf16_mark(bytes)) {
        return {};
    }
    if (is_drawing(bytes)) {
        return L"it is a drawing";
    }
    if (is_binary(bytes)) {
        return L"it is not a text";
    }
    const bool returns_alone = bytes.find('\r') != bytes.npos && bytes.find('\n') == bytes.npos;
    return returns_alone ? L"its lines end in carriage returns alone" : std::wstring_view();
}

}  // namespace corvanes
