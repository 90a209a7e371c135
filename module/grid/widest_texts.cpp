#include "grid/widest_texts.h"

#include <algorithm>
#include <cstdint>

namespace corvanes {

namespace {

constexpr std::size_t remembered_characters = 0x10000;

}  // namespace

WidestTexts::WidestTexts(std::function<int(wchar_t)> width_of)
    : ask_(std::move(width_of)), known_(remembered_characters, -1) {}

int WidestTexts::width_of(wchar_t character) {
    const auto code = static_cast<char32_t>(character);
    if (code >= known_.size()) {
        return ask_(character);
    }
    if (known_[code] < 0) {
        known_[code] = ask_(character);
    }
    return known_[code];
}

int WidestTexts::width_of(std::wstring_view text) {
    int widest = 0;
    int line = 0;
    for (const wchar_t character : text) {
        line = character == L'\n' ? 0 : line + width_of(character);
        widest = std::max(widest, line);
    }
    return widest;
}

void WidestTexts::add(int row, std::wstring_view text) {
    const int width = width_of(text);
    if (widest_.size() == kept && width <= widest_.back().width) {
        return;
    }
    const auto narrower = std::find_if(widest_.begin(), widest_.end(),
                                       [width](const Measured& measured) { return measured.width < width; });
    widest_.insert(narrower, {width, row});
    widest_.resize(std::min(widest_.size(), kept));
}

std::vector<int> WidestTexts::rows() const {
    std::vector<int> rows;
    for (const Measured& measured : widest_) {
        rows.push_back(measured.row);
    }
    return rows;
}

}  // namespace corvanes
