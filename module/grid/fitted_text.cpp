#include "grid/fitted_text.h"

#include <algorithm>

namespace corvanes {

namespace {

bool is_low_surrogate(wchar_t character) {
    return character >= 0xDC00 && character <= 0xDFFF;
}

// How much of a line goes before a break: up to the last blank that keeps within the width, else as many characters.
std::size_t breaking_place(std::wstring_view line, int width, const std::function<int(std::wstring_view)>& width_of) {
    std::size_t fitting = 1;
    for (std::size_t step = line.size(); step > 0; step /= 2) {
        while (fitting + step <= line.size() && width_of(line.substr(0, fitting + step)) <= width) {
            fitting += step;
        }
    }
    if (fitting == line.size()) {
        return fitting;
    }
    const std::size_t blank = line.rfind(L' ', fitting);
    if (blank != line.npos && blank > 0) {
        return blank;
    }
    return fitting > 1 && is_low_surrogate(line[fitting]) ? fitting - 1 : fitting;
}

}  // namespace

bool is_number_text(std::wstring_view text) {
    constexpr std::wstring_view digits = L"0123456789";
    constexpr std::wstring_view signs = L"+-.,";
    const auto belongs = [=](wchar_t character) {
        return digits.find(character) != digits.npos || signs.find(character) != signs.npos;
    };
    return text.find_first_of(digits) != text.npos && std::all_of(text.begin(), text.end(), belongs);
}

std::wstring wrapped_text(std::wstring_view text, int width, const std::function<int(std::wstring_view)>& width_of) {
    std::wstring wrapped;
    while (!text.empty()) {
        const std::wstring_view line = text.substr(0, text.find(L'\n'));
        const std::size_t end = line.empty() ? 0 : breaking_place(line, width, width_of);
        wrapped += text.substr(0, end);
        text.remove_prefix(end);
        if (!text.empty()) {
            wrapped += L'\n';
            text.remove_prefix(text.front() == L' ' || text.front() == L'\n' ? 1 : 0);
        }
    }
    return wrapped;
}

FittedLine fit_line(std::wstring_view line, const std::vector<int>& ends, const LineSpace& space) {
    if (line.empty() || ends.back() <= space.width) {
        return {FittedLine::Shown::whole, line.size()};
    }
    if (is_number_text(line)) {
        constexpr int most_number_signs = 3;
        const int fitting = space.width / std::max(1, space.number_sign);
        return {FittedLine::Shown::number_signs, static_cast<std::size_t>(std::clamp(fitting, 1, most_number_signs))};
    }
    const auto end = std::upper_bound(ends.begin(), ends.end(), space.width - space.ellipsis);
    auto length = static_cast<std::size_t>(end - ends.begin());
    if (length > 0 && is_low_surrogate(line[length])) {
        --length;
    }
    while (length > 0 && line[length - 1] == L' ') {
        --length;
    }
    return {FittedLine::Shown::beginning, length};
}

int largest_fitting(int least, int most, const std::function<bool(int)>& fits) {
    while (least < most) {
        const int middle = least + (most - least + 1) / 2;
        if (fits(middle)) {
            least = middle;
        } else {
            most = middle - 1;
        }
    }
    return least;
}

}  // namespace corvanes
