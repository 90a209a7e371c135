#include "platform/host/dxf/text_codec.h"

#include <cctype>
#include <cstdint>
#include <optional>

#include "base/code_page.h"

namespace dxf {

namespace {

constexpr unsigned default_code_page = 1252;
constexpr unsigned multibyte_code_pages[] = {932, 950, 949, 1361, 936};

bool all_plain(std::string_view raw) {
    for (const char byte : raw) {
        if (static_cast<unsigned char>(byte) >= 0x80 || byte == '\\' || byte == '^') {
            return false;
        }
    }
    return true;
}

std::optional<unsigned> hex4(std::wstring_view text) {
    if (text.size() < 4) {
        return std::nullopt;
    }
    unsigned value = 0;
    for (const wchar_t digit : text.substr(0, 4)) {
        if (digit >= 0x80 || std::isxdigit(static_cast<int>(digit)) == 0) {
            return std::nullopt;
        }
        const auto lower = static_cast<unsigned>(std::tolower(static_cast<int>(digit)));
        value = value * 16 + (lower <= '9' ? lower - '0' : lower - 'a' + 10);
    }
    return value;
}

/// Appends a UTF-16 unit; where wchar_t holds whole characters, the second half of a pair completes the first.
void append_unit(std::wstring& text, unsigned unit) {
    if constexpr (sizeof(wchar_t) == 4) {
        const bool completes = unit >= 0xDC00 && unit < 0xE000 && !text.empty() &&
                               static_cast<unsigned>(text.back()) >= 0xD800 &&
                               static_cast<unsigned>(text.back()) < 0xDC00;
        if (completes) {
            const unsigned high = static_cast<unsigned>(text.back()) - 0xD800;
            text.back() = static_cast<wchar_t>(0x10000 + (high << 10) + (unit - 0xDC00));
            return;
        }
    }
    text += static_cast<wchar_t>(unit);
}

/// Reads the escape at the front of `text` into `out`; how many characters it took, 0 when there is none.
size_t take_escape(std::wstring_view text, std::wstring& out) {
    if (text[0] == L'^' && text.size() >= 2) {
        if (text[1] == L' ') {
            out += L'^';
            return 2;
        }
        if (text[1] >= L'@' && text[1] <= L'_') {
            out += static_cast<wchar_t>(text[1] - L'@');
            return 2;
        }
        return 0;
    }
    if (text.starts_with(L"\\U+")) {
        if (const auto unit = hex4(text.substr(3))) {
            append_unit(out, *unit);
            return 7;
        }
        return 0;
    }
    if (text.starts_with(L"\\M+") && text.size() >= 8 && text[3] >= L'1' && text[3] <= L'5') {
        if (const auto code = hex4(text.substr(4))) {
            const char bytes[] = {static_cast<char>(*code >> 8), static_cast<char>(*code & 0xFF)};
            const size_t lead = *code >> 8 == 0 ? 1 : 0;
            out += base::wide_from_bytes({bytes + lead, 2 - lead}, multibyte_code_pages[text[3] - L'1']);
            return 8;
        }
    }
    return 0;
}

std::wstring unescape(std::wstring_view text) {
    std::wstring out;
    out.reserve(text.size());
    while (!text.empty()) {
        const size_t plain = text.find_first_of(L"\\^");
        out += text.substr(0, plain);
        if (plain == std::wstring_view::npos) {
            break;
        }
        text.remove_prefix(plain);
        size_t taken = take_escape(text, out);
        if (taken == 0) {
            out += text[0];
            taken = 1;
        }
        text.remove_prefix(taken);
    }
    return out;
}

template <typename Text>
void append_unicode_escape(Text& out, unsigned unit) {
    static const char digits[] = "0123456789ABCDEF";
    for (const char character : {'\\', 'U', '+'}) {
        out += character;
    }
    for (int shift = 12; shift >= 0; shift -= 4) {
        out += digits[unit >> shift & 0xF];
    }
}

void append_escaped(std::string& out, unsigned character) {
    if (character > 0xFFFF) {
        append_unicode_escape(out, 0xD800 + ((character - 0x10000) >> 10));
        append_unicode_escape(out, 0xDC00 + ((character - 0x10000) & 0x3FF));
    } else {
        append_unicode_escape(out, character);
    }
}

bool is_surrogate(wchar_t unit) {
    return unit >= 0xD800 && unit < 0xE000;
}

bool is_pair(std::wstring_view text, size_t at) {
    return at + 1 < text.size() && text[at] >= 0xD800 && text[at] < 0xDC00 && text[at + 1] >= 0xDC00 &&
           text[at + 1] < 0xE000;
}

/// Whether a backslash that belongs to the text would be read as the beginning of an escape.
bool starts_escape(std::wstring_view text) {
    std::wstring ignored;
    return text[0] == L'\\' && take_escape(text, ignored) != 0;
}

/// The text with escapes for what a raw value cannot hold: control characters, carets, backslashes that would begin an
/// escape, and halves of surrogate pairs.
std::wstring escape(std::wstring_view text) {
    std::wstring out;
    out.reserve(text.size());
    for (size_t i = 0; i < text.size(); ++i) {
        const wchar_t character = text[i];
        if (character == L'^') {
            out += L"^ ";
        } else if (static_cast<unsigned>(character) < 0x20) {
            out += {L'^', static_cast<wchar_t>(character + L'@')};
        } else if (is_pair(text, i)) {
            out += text.substr(i++, 2);
        } else if (is_surrogate(character) || starts_escape(text.substr(i))) {
            append_unicode_escape(out, static_cast<unsigned>(character));
        } else {
            out += character;
        }
    }
    return out;
}

/// The number of a code page by the name that drawings give it: "ANSI_1255", "dos850", "ISO8859-8", "UTF-8".
unsigned code_page_number(std::string_view name) {
    std::string lower;
    for (const char character : name) {
        if (character != ' ') {
            lower += static_cast<char>(std::tolower(static_cast<unsigned char>(character)));
        }
    }
    if (lower == "utf-8" || lower == "utf8") {
        return base::code_page_utf8;
    }
    const bool iso = lower.rfind("iso8859-", 0) == 0;
    const size_t digits = iso ? 8 : lower.find_first_of("0123456789");
    unsigned number = 0;
    for (size_t i = digits; i < lower.size() && std::isdigit(static_cast<unsigned char>(lower[i])) != 0; ++i) {
        number = number * 10 + static_cast<unsigned>(lower[i] - '0');
        if (number > 65535) {
            return default_code_page;
        }
    }
    number += iso ? 28590 : 0;
    return number != 0 && base::code_page_known(number) ? number : default_code_page;
}

}  // namespace

TextCodec TextCodec::for_drawing(std::string_view version, std::string_view code_page_name) {
    const bool utf8 = version.size() >= 6 && version.starts_with("AC") && version >= "AC1021";
    const unsigned named = code_page_number(code_page_name);
    return TextCodec(utf8 ? base::code_page_utf8 : named, named);
}

std::wstring TextCodec::decode(std::string_view raw) const {
    if (all_plain(raw)) {
        return {raw.begin(), raw.end()};
    }
    // Escapes are looked for in the decoded text: in some code pages a backslash's byte is half of a character.
    const bool by_rule = code_page_ != base::code_page_utf8 || base::valid_utf8(raw);
    std::wstring text = base::wide_from_bytes(raw, by_rule ? code_page_ : instead_);
    return text.find_first_of(L"\\^") == std::wstring::npos ? text : unescape(text);
}

std::string TextCodec::encode(std::wstring_view text) const {
    const std::wstring safe = escape(text);
    if (auto whole = base::bytes_from_wide(safe, code_page_)) {
        return *std::move(whole);
    }
    std::string out;
    for (const wchar_t character : safe) {
        const auto bytes = base::bytes_from_wide({&character, 1}, code_page_);
        if (bytes) {
            out += *bytes;
        } else {
            append_escaped(out, static_cast<unsigned>(character));
        }
    }
    return out;
}

}  // namespace dxf
