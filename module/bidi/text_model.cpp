#include "bidi/text_model.h"

#include <algorithm>
#include <new>

#include "bidi/system_character_types.h"

namespace corvanes {
namespace {

bool is_high_half(wchar_t character) {
    return character >= 0xD800 && character <= 0xDBFF;
}

bool is_low_half(wchar_t character) {
    return character >= 0xDC00 && character <= 0xDFFF;
}

TextRange line_range(const std::wstring& text, int line) {
    size_t start = 0;
    for (; line > 0; --line) {
        const size_t feed = text.find(L'\n', start);
        if (feed == std::wstring::npos) {
            return {text.size(), text.size()};
        }
        start = feed + 1;
    }
    return {start, std::min(text.find(L'\n', start), text.size())};
}

int count_lines_before(const std::wstring& text, size_t index) {
    const auto end = text.begin() + static_cast<std::ptrdiff_t>(std::min(index, text.size()));
    return static_cast<int>(std::count(text.begin(), end, L'\n'));
}

/// For each character of the source, whether it runs in the direction in which the result is counted.
std::vector<bool> find_forward(const std::vector<LevelRun>& runs, size_t length, bool right_to_left) {
    std::vector<bool> forward(length);
    for (const LevelRun& run : runs) {
        const auto start = forward.begin() + run.start;
        std::fill(start, start + run.length, run.right_to_left() == right_to_left);
    }
    return forward;
}

}  // namespace

TextModel::TextModel() : map_{0} {}

bool TextModel::set_logical(std::wstring text) {
    logical_ = std::move(text);
    return SyncText(*this, 1) != 0;
}

bool TextModel::set_visual(std::wstring text) {
    visual_ = std::move(text);
    return SyncText(*this, 0) != 0;
}

bool TextModel::set_right_to_left(bool right_to_left) {
    right_to_left_ = right_to_left;
    return SyncText(*this, 1) != 0;
}

size_t TextModel::visual_index(size_t logical_index) const {
    return logical_index < inverse_.size() ? inverse_[logical_index] : visual_.size();
}

bool TextModel::runs_forward(size_t logical_index) const {
    return logical_index >= forward_.size() || forward_[logical_index];
}

int TextModel::line_of_row(int row) const {
    return right_to_left_ ? line_count_ - 1 - row : row;
}

TextRange TextModel::visual_line(int line) const {
    return line_range(visual_, line);
}

int TextModel::visual_line_at(size_t visual_index) const {
    return count_lines_before(visual_, visual_index);
}

TextRange TextModel::logical_line(int line) const {
    return line_range(logical_, line);
}

int TextModel::logical_line_at(size_t logical_index) const {
    return count_lines_before(logical_, logical_index);
}

int SyncText(TextModel& model, int from_logical) {
    const CharacterTypes* types = system_character_types();
    if (types == nullptr) {
        return 0;
    }
    const std::wstring& source = from_logical != 0 ? model.logical_ : model.visual_;
    const size_t length = source.size();
    try {
        Reordering reordering(*types);
        std::wstring result(length, L'\0');
        std::vector<std::uint32_t> map(length + 1);
        reordering.reorder_lines(source, result.data(), map.data(), !model.right_to_left_);
        std::vector<std::uint32_t> inverse(length);
        for (std::uint32_t v = 0; v < length; ++v) {
            inverse[map[v]] = v;
        }
        model.forward_ = find_forward(reordering.level_runs(), length, model.right_to_left_);
        model.map_ = std::move(map);
        model.inverse_ = std::move(inverse);
        (from_logical != 0 ? model.visual_ : model.logical_) = std::move(result);
    } catch (const std::bad_alloc&) {
        return 0;
    }
    model.line_count_ = length == 0 ? 0 : count_lines_before(source, length) + 1;
    return 1;
}

bool TextModel::splits_painted_pair(size_t gap) const {
    if (gap == 0 || gap >= visual_.size()) {
        return false;
    }
    const auto [first, last] = std::minmax({map_[gap - 1], map_[gap]});
    return last - first == 1 && splits_pair(logical_, last);
}

bool splits_pair(std::wstring_view text, size_t position) {
    return position > 0 && position < text.size() && is_high_half(text[position - 1]) && is_low_half(text[position]);
}

}  // namespace corvanes
