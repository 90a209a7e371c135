#include "grid/text_runs.h"

#include <algorithm>

#include "base/number_text.h"
#include "grid/label_fields.h"

namespace corvanes {

namespace {

constexpr double most_points = 200;

void add_word(RunStyle& style, std::wstring_view word) {
    constexpr struct {
        std::wstring_view name;
        bool RunStyle::*flag;
    } flags[] = {{L"bold", &RunStyle::bold},
                 {L"italic", &RunStyle::italic},
                 {L"underline", &RunStyle::underline},
                 {L"strikeout", &RunStyle::strike_out}};
    for (const auto& flag : flags) {
        style.*flag.flag = style.*flag.flag || same_word(word, flag.name);
    }
    if (const auto color = color_from_text(word)) {
        style.color = color;
    }
    if (const auto points = number_field(word, L"size")) {
        style.points = static_cast<int>(std::clamp(*points, 0.0, most_points));
    }
}

RunStyle style_from(std::wstring_view words) {
    constexpr std::wstring_view font_name = L"font";
    RunStyle style;
    while (true) {
        const std::wstring_view from_here = words;
        const std::wstring_view word = take_word_of(words);
        if (word.empty()) {
            return style;
        }
        if (same_word(word.substr(0, font_name.size() + 1), L"font=")) {
            style.font = label_field(from_here, font_name).value_or(std::wstring_view());
            return style;
        }
        add_word(style, word);
    }
}

}  // namespace

std::vector<TextRun> runs_from_label(std::wstring_view label, std::size_t length) {
    std::vector<TextRun> runs;
    std::size_t start = 0;
    while (!label.empty() && start < length) {
        std::wstring_view run = take_part(label, L";\n");
        const double characters = base::take_number(run);
        if (characters >= 1) {
            const auto rest = static_cast<double>(length - start);
            runs.push_back({start, static_cast<std::size_t>(std::min(characters, rest)), style_from(run)});
            start += runs.back().length;
        }
    }
    if (start < length) {
        runs.push_back({start, length - start, RunStyle()});
    }
    return runs;
}

}  // namespace corvanes
