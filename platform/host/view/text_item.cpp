#include "platform/host/view/text_item.h"

#include <algorithm>

namespace host {

namespace {

/// Advances of the characters from 32 to 126 in thousandths of an em, of the usual metric-compatible sans-serif faces.
constexpr short advances[] = {278,  278, 355, 556, 556, 889, 667, 191, 333, 333, 389, 584, 278, 333, 278, 278,
                              556,  556, 556, 556, 556, 556, 556, 556, 556, 556, 278, 278, 584, 584, 584, 556,
                              1015, 667, 667, 722, 722, 667, 611, 778, 722, 278, 500, 667, 556, 833, 722, 778,
                              667,  778, 722, 667, 611, 722, 667, 944, 667, 667, 611, 278, 278, 278, 469, 556,
                              333,  556, 556, 500, 556, 556, 278, 556, 556, 222, 222, 500, 222, 833, 556, 556,
                              556,  556, 333, 500, 278, 556, 500, 722, 500, 500, 500, 334, 260, 334, 584};
constexpr double capital_height = 716;  // of the same faces
constexpr double usual_advance = 556;
constexpr double ideograph_advance = 1000;
constexpr double below_base_line = 0.3;  // of the capitals' height

double advance(wchar_t character) {
    if (character >= 32 && character < 127) {
        return advances[character - 32];
    }
    const bool wide = character >= 0x1100 && (character < 0xD800 || character >= 0xF900);
    return wide ? ideograph_advance : usual_advance;
}

/// Letters of any script; blanks, digits and signs say nothing about a line's direction.
bool is_letter(wchar_t character) {
    return (character >= L'A' && character <= L'Z') || (character >= L'a' && character <= L'z') ||
           (character >= 0xC0 && (character < 0x2000 || character >= 0x2C00));
}

bool is_right_to_left(wchar_t character) {
    return character >= 0x590 && character < 0x900;
}

}  // namespace

bool runs_from_right(std::wstring_view text) {
    const auto letter = std::find_if(text.begin(), text.end(), is_letter);
    return letter != text.end() && is_right_to_left(*letter);
}

double estimated_width(std::wstring_view text) {
    double width = 0;
    for (const wchar_t character : text) {
        width += advance(character);
    }
    return width / capital_height;
}

Box2 text_area(const TextItem& item) {
    const double width = item.fit_width > 0 ? item.fit_width : estimated_width(item.text);
    const double begin = item.anchor == TextItem::Anchor::left     ? 0
                         : item.anchor == TextItem::Anchor::centre ? -width / 2
                                                                   : -width;
    return {{begin, -below_base_line}, {begin + width, 1}};
}

}  // namespace host
