#include "bom/block_count.h"

namespace corvanes {

void index_rows(RowList& rows, NameIndex& index) {
    constexpr unsigned buckets = 500;
    index.RemoveAll();
    index.InitHashTable(buckets);
    for (int i = 0; i < static_cast<int>(rows.GetSize()); ++i) {
        ResultString& row = rows[i];
        row.name.MakeLower();
        index[row.name] = i;
    }
}

void count_reference(RowList& rows, NameIndex& index, const wchar_t* lower_name, bool price_list_attached) {
    int place = 0;
    if (index.Lookup(lower_name, place)) {
        ResultString& row = rows[place];
        row.quantity += 1;
        row.total += row.price;
        return;
    }
    if (price_list_attached) {
        return;
    }
    ResultString row;
    row.Set(lower_name, 0, L"");
    row.quantity = 1;
    index[lower_name] = static_cast<int>(rows.Add(row));
}

}  // namespace corvanes
