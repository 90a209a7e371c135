#include "base/code_page.h"

#include <array>
#include <cstdint>
#include <cstring>
#include <map>
#include <memory>
#include <mutex>
#include <unordered_map>

#include "base/code_page_system.h"

namespace base {
namespace {

constexpr wchar_t replacement = 0xFFFD;
/// Undefined bytes of a single-byte code page become private characters here, so that a text survives a round trip.
constexpr wchar_t undefined_bytes = 0xF700;

struct SingleBytePage {
    std::array<wchar_t, 256> wide{};
    std::unordered_map<wchar_t, char> bytes;
};

std::unique_ptr<SingleBytePage> make_single_byte_page(unsigned code_page) {
    auto page = std::make_unique<SingleBytePage>();
    for (unsigned byte = 0; byte < 256; ++byte) {
        const char character = static_cast<char>(byte);
        const auto decoded = system_decode({&character, 1}, code_page);
        const bool defined = decoded && decoded->size() == 1;
        page->wide[byte] = defined ? decoded->front() : static_cast<wchar_t>(undefined_bytes + byte);
        page->bytes.emplace(page->wide[byte], character);
    }
    return page;
}

/// The table of a code page of one byte a character; null for the others.
const SingleBytePage* single_byte_page(unsigned code_page) {
    static std::mutex mutex;
    static std::map<unsigned, std::unique_ptr<SingleBytePage>> pages;
    const std::lock_guard lock(mutex);
    const auto found = pages.find(code_page);
    if (found != pages.end()) {
        return found->second.get();
    }
    auto page = code_page_width(code_page) == 1 ? make_single_byte_page(code_page) : nullptr;
    return pages.emplace(code_page, std::move(page)).first->second.get();
}

std::wstring wide_from_latin1(std::string_view bytes) {
    std::wstring text;
    text.reserve(bytes.size());
    for (const char byte : bytes) {
        text.push_back(static_cast<wchar_t>(static_cast<unsigned char>(byte)));
    }
    return text;
}

/// A text in a multi-byte code page with invalid places: decoded character by character, each bad byte replaced.
std::wstring decode_with_replacement(std::string_view bytes, unsigned code_page) {
    const size_t widest = code_page_width(code_page);
    std::wstring text;
    for (size_t i = 0; i < bytes.size();) {
        size_t taken = 0;
        for (size_t length = 1; length <= widest && i + length <= bytes.size() && taken == 0; ++length) {
            if (const auto decoded = system_decode(bytes.substr(i, length), code_page); decoded && !decoded->empty()) {
                text += *decoded;
                taken = length;
            }
        }
        if (taken == 0) {
            text.push_back(replacement);
            taken = 1;
        }
        i += taken;
    }
    return text;
}

void append_utf8(std::string& bytes, char32_t code) {
    const auto put = [&bytes](char32_t value) { bytes.push_back(static_cast<char>(value)); };
    if (code < 0x80) {
        put(code);
    } else if (code < 0x800) {
        put(0xC0 | (code >> 6));
        put(0x80 | (code & 0x3F));
    } else if (code < 0x10000) {
        put(0xE0 | (code >> 12));
        put(0x80 | ((code >> 6) & 0x3F));
        put(0x80 | (code & 0x3F));
    } else {
        put(0xF0 | (code >> 18));
        put(0x80 | ((code >> 12) & 0x3F));
        put(0x80 | ((code >> 6) & 0x3F));
        put(0x80 | (code & 0x3F));
    }
}

void append_wide(std::wstring& text, char32_t code) {
    if constexpr (sizeof(wchar_t) == 2) {
        if (code >= 0x10000) {
            text.push_back(static_cast<wchar_t>(0xD800 + ((code - 0x10000) >> 10)));
            text.push_back(static_cast<wchar_t>(0xDC00 + ((code - 0x10000) & 0x3FF)));
            return;
        }
    }
    text.push_back(static_cast<wchar_t>(code));
}

/// One UTF-8 sequence from the front of `bytes`: its length and code point; length 0 when it is not valid.
struct Sequence {
    size_t length = 0;
    char32_t code = 0;
};

Sequence next_sequence(std::string_view bytes) {
    const auto at = [&bytes](size_t i) { return static_cast<unsigned char>(bytes[i]); };
    const unsigned char lead = at(0);
    if (lead < 0x80) {
        return {1, lead};
    }
    const size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || bytes.size() < length) {
        return {};
    }
    char32_t code = lead & (0x7F >> length);
    for (size_t i = 1; i < length; ++i) {
        if ((at(i) & 0xC0) != 0x80) {
            return {};
        }
        code = (code << 6) | (at(i) & 0x3F);
    }
    constexpr char32_t least[] = {0, 0, 0x80, 0x800, 0x10000};
    const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
    return code < least[length] || code > 0x10FFFF || surrogate ? Sequence{} : Sequence{length, code};
}

/// Returns the code point at `i` of UTF-16 or UTF-32 text and moves `i` past it; U+FFFD where none is valid.
char32_t next_code(std::wstring_view text, size_t& i) {
    const auto code = static_cast<char32_t>(text[i++]);
    const bool high = code >= 0xD800 && code <= 0xDBFF;
    const char32_t next = i < text.size() ? static_cast<char32_t>(text[i]) : 0;
    if (high && next >= 0xDC00 && next <= 0xDFFF) {
        ++i;
        return 0x10000 + ((code - 0xD800) << 10) + (next - 0xDC00);
    }
    return (code >= 0xD800 && code <= 0xDFFF) || code > 0x10FFFF ? replacement : code;
}

/// How many bytes at the front are ASCII; eight are looked at at a time, since most texts are all ASCII.
size_t ascii_prefix(std::string_view bytes) {
    constexpr std::uint64_t high_bits = 0x8080808080808080U;
    size_t i = 0;
    for (std::uint64_t eight = 0; i + sizeof eight <= bytes.size(); i += sizeof eight) {
        std::memcpy(&eight, bytes.data() + i, sizeof eight);
        if ((eight & high_bits) != 0) {
            break;
        }
    }
    while (i < bytes.size() && static_cast<unsigned char>(bytes[i]) < 0x80) {
        ++i;
    }
    return i;
}

}  // namespace

bool code_page_known(unsigned code_page) {
    return code_page == code_page_utf8 || code_page_width(code_page) != 0;
}

std::wstring wide_from_bytes(std::string_view bytes, unsigned code_page) {
    if (code_page == code_page_utf8) {
        return wide_from_utf8(bytes);
    }
    if (const SingleBytePage* page = single_byte_page(code_page)) {
        std::wstring text(bytes.size(), L'\0');
        for (size_t i = 0; i < bytes.size(); ++i) {
            text[i] = page->wide[static_cast<unsigned char>(bytes[i])];
        }
        return text;
    }
    if (!code_page_known(code_page)) {
        return wide_from_latin1(bytes);
    }
    auto text = system_decode(bytes, code_page);
    return text ? *text : decode_with_replacement(bytes, code_page);
}

std::optional<std::string> bytes_from_wide(std::wstring_view text, unsigned code_page) {
    if (code_page == code_page_utf8) {
        return utf8_from_wide(text);
    }
    const SingleBytePage* page = single_byte_page(code_page);
    if (page == nullptr) {
        return system_encode(text, code_page);
    }
    std::string bytes(text.size(), '\0');
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] < 0x80 && page->wide[static_cast<unsigned char>(text[i])] == text[i]) {
            bytes[i] = static_cast<char>(text[i]);
            continue;
        }
        const auto found = page->bytes.find(text[i]);
        if (found == page->bytes.end()) {
            return std::nullopt;
        }
        bytes[i] = found->second;
    }
    return bytes;
}

std::wstring wide_from_utf8(std::string_view bytes) {
    std::wstring text;
    text.reserve(bytes.size());
    while (!bytes.empty()) {
        const Sequence sequence = next_sequence(bytes);
        append_wide(text, sequence.length == 0 ? replacement : sequence.code);
        bytes.remove_prefix(sequence.length == 0 ? 1 : sequence.length);
    }
    return text;
}

std::string utf8_from_wide(std::wstring_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (size_t i = 0; i < text.size();) {
        append_utf8(bytes, next_code(text, i));
    }
    return bytes;
}

std::wstring wide_from_utf16(std::string_view bytes, ByteOrder order) {
    const auto unit_at = [&](size_t i) {
        const auto byte = [&](size_t k) { return static_cast<unsigned>(static_cast<unsigned char>(bytes[i + k])); };
        return static_cast<wchar_t>(order == ByteOrder::little_endian ? byte(0) | byte(1) << 8
                                                                      : byte(1) | byte(0) << 8);
    };
    std::wstring units;
    units.reserve(bytes.size() / 2);
    for (size_t i = 0; i + 1 < bytes.size(); i += 2) {
        units.push_back(unit_at(i));
    }
    std::wstring text;
    text.reserve(units.size());
    for (size_t i = 0; i < units.size();) {
        append_wide(text, next_code(units, i));
    }
    if (bytes.size() % 2 != 0) {
        text.push_back(replacement);
    }
    return text;
}

std::string utf16_from_wide(std::wstring_view text, ByteOrder order) {
    std::string bytes;
    bytes.reserve(text.size() * 2);
    const auto put = [&](char32_t unit) {
        const auto low = static_cast<char>(unit & 0xFF);
        const auto high = static_cast<char>(unit >> 8);
        bytes.push_back(order == ByteOrder::little_endian ? low : high);
        bytes.push_back(order == ByteOrder::little_endian ? high : low);
    };
    for (size_t i = 0; i < text.size();) {
        const char32_t code = next_code(text, i);
        if (code >= 0x10000) {
            put(0xD800 + ((code - 0x10000) >> 10));
            put(0xDC00 + ((code - 0x10000) & 0x3FF));
        } else {
            put(code);
        }
    }
    return bytes;
}

bool is_ascii(std::string_view bytes) {
    return ascii_prefix(bytes) == bytes.size();
}

bool valid_utf8(std::string_view bytes) {
    for (bytes.remove_prefix(ascii_prefix(bytes)); !bytes.empty(); bytes.remove_prefix(ascii_prefix(bytes))) {
        const Sequence sequence = next_sequence(bytes);
        if (sequence.length == 0) {
            return false;
        }
        bytes.remove_prefix(sequence.length);
    }
    return true;
}

}  // namespace base
