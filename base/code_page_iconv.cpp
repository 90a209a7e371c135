#include <iconv.h>

#include <algorithm>
#include <cstdint>
#include <memory>

#include "base/code_page.h"
#include "base/code_page_system.h"

namespace base {
namespace {

struct CloseConverter {
    void operator()(void* converter) const { iconv_close(converter); }
};
using Converter = std::unique_ptr<void, CloseConverter>;

Converter open_converter(const std::string& to, const std::string& from) {
    iconv_t converter = iconv_open(to.c_str(), from.c_str());
    return Converter(converter == reinterpret_cast<iconv_t>(-1) ? nullptr : converter);
}

std::string name_of(unsigned code_page) {
    return "CP" + std::to_string(code_page);
}

/// Windows reads byte 5C as a backslash in the Johab code page too; iconv has the Won sign there.
constexpr unsigned johab = 1361;
constexpr wchar_t won_sign = 0x20A9;

/// Converts everything or nothing.
bool convert(iconv_t converter, std::string_view from, std::string& to) {
    std::string source(from);
    char* in = source.data();
    size_t in_left = source.size();
    to.resize(from.size() * 4 + 16);
    char* out = to.data();
    size_t out_left = to.size();
    constexpr auto failed = static_cast<size_t>(-1);
    if (iconv(converter, &in, &in_left, &out, &out_left) == failed || in_left != 0) {
        return false;
    }
    // Some code pages hold a letter back in case a point follows; a last call without input lets it go.
    if (iconv(converter, nullptr, nullptr, &out, &out_left) == failed) {
        return false;
    }
    to.resize(to.size() - out_left);
    return true;
}

}  // namespace

unsigned system_code_page() {
    return code_page_hebrew;
}

unsigned code_page_width(unsigned code_page) {
    if (!open_converter("UTF-32LE", name_of(code_page))) {
        return 0;
    }
    constexpr unsigned multi_byte[] = {932, 936, 949, 950, 1361};
    const bool wide = std::find(std::begin(multi_byte), std::end(multi_byte), code_page) != std::end(multi_byte);
    return wide ? 2 : 1;
}

std::optional<std::wstring> system_decode(std::string_view bytes, unsigned code_page) {
    const Converter converter = open_converter("UTF-32LE", name_of(code_page));
    std::string wide;
    if (!converter || !convert(converter.get(), bytes, wide)) {
        return std::nullopt;
    }
    std::wstring text;
    for (size_t i = 0; i + 4 <= wide.size(); i += 4) {
        const auto at = [&wide, i](size_t k) {
            return static_cast<std::uint32_t>(static_cast<unsigned char>(wide[i + k]));
        };
        text.push_back(static_cast<wchar_t>(at(0) | at(1) << 8 | at(2) << 16 | at(3) << 24));
    }
    if (code_page == johab) {
        std::replace(text.begin(), text.end(), won_sign, L'\\');
    }
    return text;
}

std::optional<std::string> system_encode(std::wstring_view text, unsigned code_page) {
    const Converter converter = open_converter(name_of(code_page), "UTF-8");
    std::wstring wide(text);
    if (code_page == johab) {
        if (text.find(won_sign) != std::wstring_view::npos) {
            return std::nullopt;
        }
        std::replace(wide.begin(), wide.end(), L'\\', won_sign);
    }
    std::string bytes;
    if (!converter || !convert(converter.get(), utf8_from_wide(wide), bytes)) {
        return std::nullopt;
    }
    return bytes;
}

}  // namespace base
