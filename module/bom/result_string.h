// ResultString, one row of the bill of materials on its way from the price list to the report.
#pragma once

#include <afxstr.h>
#include <afxtempl.h>

#include <cstdint>
#include <utility>

struct ResultString {
    CString name;               ///< the block's; in lower case once counting has begun
    double price = 0;           ///< the price of one piece; 0 for a block without a price
    std::int32_t quantity = 0;  ///< how many references were counted
    CString description;        ///< from the price list
    double total = 0;           ///< the price added once for each reference

    /// The values of one price-list line; nothing is counted yet.
    void Set(CString block_name, double item_price, CString item_description) {
        name = std::move(block_name);
        price = item_price;
        description = std::move(item_description);
        quantity = 0;
        total = 0;
    }
};

using RowList = CArray<ResultString, ResultString&>;
/// Maps a lower-case block name to the index of its row.
using NameIndex = CMap<CString, const wchar_t*, int, int>;
