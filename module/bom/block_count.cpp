#include "bom/block_count.h"

#include <algorithm>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "base/case_folding.h"
#include "common/price_text.h"
#include "pricelist/price_list_lines.h"

namespace corvanes {
namespace {

constexpr int growth = 100;

CString to_string(std::wstring_view text) {
    return CString(text.data(), static_cast<int>(text.size()));
}

ResultString& append_row(RowList& rows) {
    rows.SetSize(rows.GetSize() + 1);
    return rows[rows.GetSize() - 1];
}

void append_priced(RowList& rows, const PriceListEntry& entry, std::int32_t quantity) {
    ResultString& row = append_row(rows);
    row.Set(to_string(entry.name).MakeLower(), number_from_text(entry.price), to_string(entry.description));
    row.quantity = quantity;
    for (std::int32_t i = 0; i < quantity; ++i) {
        row.total += row.price;
    }
}

/// Joins the entries of a price list with what was counted. The list may be a thousand times longer than the report, so
/// it is read once and only the entries that matter become rows.
class Join {
  public:
    Join(RowList& rows, NameIndex& index, std::wstring_view price_list)
        : rows_(rows), index_(index), price_list_(price_list) {
        counted_.reserve(static_cast<size_t>(rows.GetSize()));
        for (INT_PTR i = 0; i < rows.GetSize(); ++i) {
            counted_.push_back({std::move(rows[i]), nothing, {}});
        }
        size_t line = 0;
        read_entries(price_list, [&](const PriceListEntry& entry) {
            if (Counted* const block = find(entry)) {
                block->line = line;
                block->entry = entry;
            }
            ++line;
        });
        rows.SetSize(0, growth);
    }

    void append_entries_counted() {
        std::sort(counted_.begin(), counted_.end(), [](const Counted& a, const Counted& b) { return a.line < b.line; });
        for (const Counted& block : counted_) {
            if (block.line != nothing) {
                append_priced(rows_, block.entry, block.row.quantity);
            }
        }
    }

    void append_all() {
        size_t line = 0;
        read_entries(price_list_, [&](const PriceListEntry& entry) {
            const Counted* const block = find(entry);
            append_priced(rows_, entry, block != nullptr && block->line == line ? block->row.quantity : 0);
            ++line;
        });
        for (Counted& block : counted_) {
            if (block.line == nothing) {
                append_row(rows_) = std::move(block.row);
            }
        }
    }

  private:
    static constexpr size_t nothing = std::numeric_limits<size_t>::max();

    /// A block that was counted, and the number of list entries before the last entry of its name.
    struct Counted {
        ResultString row;
        size_t line;
        PriceListEntry entry;
    };

    Counted* find(const PriceListEntry& entry) {
        lower_name_.assign(entry.name);
        base::lower_in_place(lower_name_.data(), lower_name_.size());
        int place = 0;
        return index_.Lookup(lower_name_.c_str(), place) ? &counted_[static_cast<size_t>(place)] : nullptr;
    }

    RowList& rows_;
    NameIndex& index_;
    std::wstring_view price_list_;
    std::vector<Counted> counted_;
    std::wstring lower_name_;
};

}  // namespace

void begin_count(RowList& rows, NameIndex& index) {
    constexpr unsigned buckets = 500;
    rows.SetSize(0, growth);
    index.RemoveAll();
    index.InitHashTable(buckets);
}

int row_of_block(RowList& rows, NameIndex& index, const wchar_t* lower_name) {
    int place = static_cast<int>(rows.GetSize());
    if (!index.Lookup(lower_name, place)) {
        append_row(rows).name = lower_name;
        index[lower_name] = place;
    }
    return place;
}

void join_prices(RowList& rows, NameIndex& index, std::wstring_view price_list, bool price_list_attached) {
    Join join(rows, index, price_list);
    if (price_list_attached) {
        join.append_entries_counted();
    } else {
        join.append_all();
    }
    index.RemoveAll();
    rows.FreeExtra();
}

}  // namespace corvanes
