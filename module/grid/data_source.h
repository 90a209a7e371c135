// Where a grid's cells are kept: the interface between the grid and a store of cells.
#pragma once

#include <functional>

#include "grid/cell.h"
#include "grid/keyed_order.h"

// Columns count from 0 with -1 for the side heading; rows count from 0 with -1 for the top heading. Operations return
// 0, or 1 for a refused argument, and then change nothing.
class CUGDataSource {
  public:
    // Orders two cells of the sorted column: below 0, 0 or above 0. An absent cell is null. The records may be changed
    // by nobody and are valid during the call only.
    using Comparison = std::function<int(CUGCell* first, CUGCell* second)>;

    CUGDataSource() = default;
    CUGDataSource(const CUGDataSource&) = delete;
    CUGDataSource& operator=(const CUGDataSource&) = delete;
    virtual ~CUGDataSource() = default;

    // Cells beyond the counts are dropped.
    virtual int SetRowCount(int rows) = 0;
    virtual int SetColumnCount(int columns) = 0;

    // Replaces what `cell` held; the record has a copy of the texts.
    virtual int GetCell(int column, int row, CUGCell* cell) = 0;
    // The stored cell becomes a copy of `cell`.
    virtual int SetCell(int column, int row, const CUGCell* cell) = 0;
    // Sets the text and leaves the other properties as they are.
    virtual int SetCellText(int column, int row, const wchar_t* text);
    // Null when the cell has no text; otherwise valid until that cell is changed or removed.
    virtual const wchar_t* GetCellText(int column, int row) = 0;

    virtual int InsertRow(int row) = 0;
    virtual int AppendRow() = 0;
    virtual int DeleteRow(int row) = 0;
    // Reorders all data rows; rows that compare equal keep their order. `followed`, unless null, holds a row and
    // becomes where that row stands afterwards. Refused while a sort is going on.
    virtual int SortBy(int column, const Comparison& compare, int* followed = nullptr) = 0;
    // The same by keys, with the rows in the order that the comparison of whole cells would give.
    virtual int SortByKeys(int column, const corvanes::KeyedOrder& order, int* followed = nullptr);
};
