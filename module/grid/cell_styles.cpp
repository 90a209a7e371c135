#include "grid/cell_styles.h"

#include <functional>
#include <tuple>
#include <utility>

#include "grid/cell.h"

namespace corvanes {

std::size_t CellStyles::Hash::operator()(const CellStyle& style) const {
    std::size_t hash = std::hash<std::wstring>()(style.label);
    for (const std::uint32_t part :
         {style.properties, style.options, static_cast<std::uint32_t>(style.data_type) << 16 | style.type_index}) {
        hash = hash * 0x9E3779B97F4A7C15u + part;
    }
    return hash;
}

CellStyles::CellStyles() {
    clear();
}

void CellStyles::clear() {
    CellStyle text;
    text.properties = cell_text | cell_data_type;
    text.data_type = data_text;
    entries_.assign(2, Entry());
    entries_[plain_text].style = text;
    vacant_.clear();
    index_of_ = {{CellStyle(), empty}, {text, plain_text}};
}

CellStyles::Index CellStyles::acquire(const CellStyle& style) {
    if (const auto known = index_of_.find(style); known != index_of_.end()) {
        ++entries_[known->second].users;
        return known->second;
    }
    Index index;
    if (vacant_.empty()) {
        index = static_cast<Index>(entries_.size());
        entries_.emplace_back();
        // This room is reserved here so that releasing a style never allocates.
        vacant_.reserve(entries_.capacity());
    } else {
        index = vacant_.back();
        vacant_.pop_back();
    }
    entries_[index].style = style;
    entries_[index].users = 1;
    index_of_.emplace(style, index);
    return index;
}

void CellStyles::release(Index index) noexcept {
    if (index <= plain_text || --entries_[index].users > 0) {
        return;
    }
    index_of_.erase(entries_[index].style);
    entries_[index].style = CellStyle();
    vacant_.push_back(index);
}

}  // namespace corvanes
