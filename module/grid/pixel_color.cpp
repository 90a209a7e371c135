#include "grid/pixel_color.h"

#include <algorithm>
#include <iterator>

#include "grid/label_fields.h"

namespace corvanes {

namespace {

constexpr PixelColor rgb(PixelColor red, PixelColor green, PixelColor blue) {
    return red | green << 8 | blue << 16;
}

constexpr struct {
    std::wstring_view name;
    PixelColor color;
} names[] = {
    {L"black", rgb(0, 0, 0)},        {L"gray", rgb(128, 128, 128)},  {L"grey", rgb(128, 128, 128)},
    {L"silver", rgb(192, 192, 192)}, {L"white", rgb(255, 255, 255)}, {L"red", rgb(220, 20, 20)},
    {L"maroon", rgb(128, 0, 0)},     {L"brown", rgb(150, 75, 20)},   {L"orange", rgb(255, 165, 0)},
    {L"yellow", rgb(255, 230, 0)},   {L"olive", rgb(128, 128, 0)},   {L"lime", rgb(0, 255, 0)},
    {L"green", rgb(0, 150, 50)},     {L"teal", rgb(0, 128, 128)},    {L"cyan", rgb(0, 200, 220)},
    {L"blue", rgb(30, 80, 220)},     {L"navy", rgb(0, 0, 128)},      {L"purple", rgb(128, 0, 160)},
    {L"magenta", rgb(220, 0, 200)},  {L"pink", rgb(255, 150, 180)},
};

constexpr PixelColor palette[] = {
    rgb(31, 119, 180),  rgb(255, 127, 14), rgb(44, 160, 44),   rgb(214, 39, 40),
    rgb(148, 103, 189), rgb(140, 86, 75),  rgb(227, 119, 194), rgb(188, 189, 34),
};

int hexadecimal(wchar_t digit) {
    constexpr std::wstring_view digits = L"0123456789abcdef";
    const auto value = digits.find(digit >= L'A' && digit <= L'F' ? static_cast<wchar_t>(digit | 0x20) : digit);
    return value == digits.npos ? -1 : static_cast<int>(value);
}

}  // namespace

std::optional<PixelColor> color_from_text(std::wstring_view text) {
    if (text.size() == 7 && text.front() == L'#') {
        PixelColor value = 0;
        for (const wchar_t digit : text.substr(1)) {
            if (hexadecimal(digit) < 0) {
                return std::nullopt;
            }
            value = value << 4 | static_cast<PixelColor>(hexadecimal(digit));
        }
        return rgb(value >> 16, value >> 8 & 0xFF, value & 0xFF);
    }
    const auto* const named = std::find_if(std::begin(names), std::end(names),
                                           [text](const auto& entry) { return same_word(entry.name, text); });
    return named != std::end(names) ? std::optional(named->color) : std::nullopt;
}

PixelColor mixed(PixelColor first, PixelColor second) {
    return ((first & 0xFEFEFE) >> 1) + ((second & 0xFEFEFE) >> 1) + (first & second & 0x010101);
}

// Weighs the three colours as the eye's receptors do; on a grey at the limit black and white have the same contrast.
PixelColor readable_on(PixelColor background) {
    const unsigned luma = 299 * (background & 0xFF) + 587 * (background >> 8 & 0xFF) + 114 * (background >> 16 & 0xFF);
    constexpr unsigned limit = 117;
    return luma > limit * 1000 ? rgb(0, 0, 0) : rgb(255, 255, 255);
}

PixelColor palette_color(std::size_t number) {
    return palette[number % std::size(palette)];
}

}  // namespace corvanes
