// The interface between a grid and the store that keeps its cells.
#pragma once

#include <functional>

#include "grid/cell.h"
#include "grid/keyed_order.h"

// Columns count from 0 with -1 for the side heading; rows count from 0 with -1 for the top heading. Operations return
// 0, or 1 for a refused argument, and then change nothing.
class CUGDataSource {
  public:
    // Orders two cells of the sorted column: below 0, 0 or above 0. An absent cell is null. The records are valid only
    // during the call and must not be changed.
    using Comparison = std::function<int(CUGCell* first, CUGCell* second)>;

    CUGDataSource() = default;
    CUGDataSource(const CUGDataSource&) = delete;
    CUGDataSource& operator=(const CUGDataSource&) = delete;
    virtual ~CUGDataSource() = default;

    // Cells beyond the counts are dropped.
    virtual int SetRowCount(int rows) = 0;
    virtual int SetColumnCount(int columns) = 0;

    // Copies the stored cell, its texts included, into `cell`.
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
    // Sorts in the same way by keys, which give the order that a comparison of the whole cells would give.
    virtual int SortByKeys(int column, const corvanes::KeyedOrder& order, int* followed = nullptr);
};
