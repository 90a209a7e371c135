#include "platform/host/dxf/group.h"

#include <charconv>
#include <cmath>
#include <cstring>
#include <iterator>
#include <limits>
#include <optional>

namespace dxf {

namespace {

struct KindRange {
    int first;
    int last;
    ValueKind kind;
};

/// The codes that do not hold text, in order.
constexpr KindRange kinds[] = {
    {10, 59, ValueKind::real},      {60, 79, ValueKind::int16},    {90, 99, ValueKind::int32},
    {110, 149, ValueKind::real},    {160, 169, ValueKind::int64},  {170, 179, ValueKind::int16},
    {210, 239, ValueKind::real},    {270, 289, ValueKind::int16},  {290, 299, ValueKind::boolean},
    {310, 319, ValueKind::chunk},   {370, 389, ValueKind::int16},  {400, 409, ValueKind::int16},
    {420, 429, ValueKind::int32},   {440, 459, ValueKind::int32},  {460, 469, ValueKind::real},
    {1004, 1004, ValueKind::chunk}, {1010, 1059, ValueKind::real}, {1060, 1070, ValueKind::int16},
    {1071, 1071, ValueKind::int32},
};

std::string_view trimmed(std::string_view text) {
    const size_t first = text.find_first_not_of(" \t\r");
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

int64_t little_endian(std::string_view bytes) {
    uint64_t value = 0;
    for (size_t i = 0; i < bytes.size(); ++i) {
        value |= static_cast<uint64_t>(static_cast<unsigned char>(bytes[i])) << (8 * i);
    }
    const unsigned unused = 64 - 8 * static_cast<unsigned>(bytes.size());
    return unused >= 64 ? 0 : static_cast<int64_t>(value << unused) >> unused;
}

int64_t cut(double value) {
    constexpr double limit = 9.2e18;
    return std::isfinite(value) && std::fabs(value) < limit ? static_cast<int64_t>(value) : 0;
}

/// Reads digits from `at` on, behind those that `number` has already; where they end.
const char* read_digits(const char* at, const char* end, uint64_t& number) {
    for (; at != end && static_cast<unsigned char>(*at - '0') <= 9; ++at) {
        number = number * 10 + static_cast<uint64_t>(*at - '0');
    }
    return at;
}

/// The value of digits with at most one point among them, or nothing where another way must find it. An integer below
/// 2^53 and a power of ten up to 10^22 are exact as doubles, so that dividing them rounds but once (Clinger 1990).
std::optional<double> plain_decimal(std::string_view text) {
    constexpr double powers[] = {1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    constexpr size_t most_characters = std::size(powers) - 1;
    const char* const end = text.data() + text.size();
    const bool negative = !text.empty() && text.front() == '-';
    const char* const begin = text.data() + (negative ? 1 : 0);
    if (begin == end || text.size() > most_characters || static_cast<unsigned char>(*begin - '0') > 9) {
        return std::nullopt;
    }
    uint64_t number = 0;
    const char* at = read_digits(begin, end, number);
    ptrdiff_t places = 0;
    if (at != end && *at == '.') {
        const char* const behind_point = at + 1;
        at = read_digits(behind_point, end, number);
        places = at - behind_point;
    }
    if (at != end) {
        return std::nullopt;
    }
    const double value = static_cast<double>(number) / powers[places];
    return negative ? -value : value;
}

double real_of_text(std::string_view text) {
    if (text == "0.0") {
        return 0.0;  // every other number of many drawings
    }
    if (const std::optional<double> plain = plain_decimal(text)) {
        return *plain;
    }
    text = trimmed(text);
    text.remove_prefix(!text.empty() && text.front() == '+' ? 1 : 0);
    double value = 0.0;
    const auto parsed = std::from_chars(text.data(), text.data() + text.size(), value);
    return parsed.ec == std::errc() ? value : 0.0;
}

int64_t integer_of_text(std::string_view text) {
    text = trimmed(text);
    text.remove_prefix(!text.empty() && text.front() == '+' ? 1 : 0);
    int64_t value = 0;
    const char* const end = text.data() + text.size();
    const auto parsed = std::from_chars(text.data(), end, value);
    return parsed.ec == std::errc() && parsed.ptr == end ? value : cut(real_of_text(text));
}

bool stored_as_text(const Group& group) {
    return group.encoding == Encoding::ascii || kind_of(group.code) == ValueKind::text;
}

double real_of_bytes(std::string_view bytes) {
    double value = 0.0;
    std::memcpy(&value, bytes.data(), bytes.size() < sizeof value ? bytes.size() : sizeof value);
    return value;
}

}  // namespace

ValueKind kind_of(int code) {
    for (const KindRange& range : kinds) {
        if (code <= range.last) {
            return code >= range.first ? range.kind : ValueKind::text;
        }
    }
    return ValueKind::text;
}

std::string_view Group::word() const {
    return trimmed(value);
}

int64_t Group::integer() const {
    if (stored_as_text(*this)) {
        return integer_of_text(value);
    }
    switch (kind_of(code)) {
        case ValueKind::real:
            return cut(real_of_bytes(value));
        case ValueKind::chunk:
            return 0;
        default:
            return little_endian(value);
    }
}

double Group::real() const {
    if (stored_as_text(*this)) {
        return real_of_text(value);
    }
    return kind_of(code) == ValueKind::real ? real_of_bytes(value) : static_cast<double>(integer());
}

uint64_t Group::handle() const {
    return stored_as_text(*this) ? parse_handle(value) : 0;
}

uint64_t parse_handle(std::string_view text) {
    uint64_t value = 0;
    size_t digits = 0;
    for (const char character : trimmed(text)) {
        unsigned digit = static_cast<unsigned char>(character) - unsigned{'0'};
        if (digit > 9) {
            digit = (static_cast<unsigned char>(character) | 0x20U) - unsigned{'a'} + 10;
            if (digit < 10 || digit > 15) {
                return 0;
            }
        }
        if (++digits > 16) {
            return 0;
        }
        value = value << 4 | digit;
    }
    return value;
}

std::string handle_text(uint64_t handle) {
    std::string text;
    do {
        text.insert(text.begin(), "0123456789ABCDEF"[handle & 0xF]);
        handle >>= 4;
    } while (handle != 0);
    return text;
}

}  // namespace dxf
