#include "bidi/text_conversion.h"

#include "base/code_page.h"

namespace corvanes {
namespace {

constexpr std::string_view utf8_mark = "\xEF\xBB\xBF";

bool begins_with_mark(std::string_view bytes) {
    return bytes.substr(0, utf8_mark.size()) == utf8_mark;
}

}  // namespace

std::string file_bytes_from_text(std::wstring_view text) {
    auto bytes = base::bytes_from_wide(text, base::system_code_page());
    if (bytes && !begins_with_mark(*bytes)) {
        return std::move(*bytes);
    }
    return std::string(utf8_mark) + base::utf8_from_wide(text);
}

std::wstring text_from_file_bytes(std::string_view bytes) {
    if (begins_with_mark(bytes)) {
        return base::wide_from_utf8(bytes.substr(utf8_mark.size()));
    }
    return base::wide_from_bytes(bytes, base::system_code_page());
}

}  // namespace corvanes
