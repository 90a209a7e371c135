#include "layers/layer_grid.h"

#include <aced.h>
#include <dbobjptr.h>

#include <cstdlib>
#include <cwchar>
#include <string>

#include "common/drawing_objects.h"

using namespace corvanes;

namespace {

enum Column { name_column, on_column, frozen_column, locked_column, colour_column, objects_column };

const std::vector<GridColumn>& grid_columns() {
    static const std::vector<GridColumn> columns = {{L"Layer", false}, {L"On", true},     {L"Frozen", true},
                                                    {L"Locked", true}, {L"Color", false}, {L"Objects", true}};
    return columns;
}

bool is_switch(int column) {
    return column == on_column || column == frozen_column || column == locked_column;
}

std::wstring colour_text(const ObjectGroups& layer) {
    static const wchar_t* const names[] = {L"", L"red", L"yellow", L"green", L"cyan", L"blue", L"magenta", L"white"};
    constexpr int true_colour = 420;
    if (const int value = layer.integer(true_colour, -1); value >= 0) {
        return std::to_wstring(value >> 16 & 0xFF) + L"," + std::to_wstring(value >> 8 & 0xFF) + L"," +
               std::to_wstring(value & 0xFF);
    }
    const int index = std::abs(layer.integer(62, 7));
    return index > 0 && index < 8 ? names[index] : std::to_wstring(index);
}

/// How many entities stand on a layer, in all spaces and layouts.
long objects_on(const std::wstring& layer) {
    std::wstring pattern = literal_pattern(layer);
    resbuf filter{};
    filter.restype = 8;
    filter.resval.rstring = pattern.data();
    ads_name set;
    long count = 0;
    if (acedSSGet(L"X", nullptr, nullptr, &filter, set) == RTNORM) {
        acedSSLength(set, &count);
        acedSSFree(set);
    }
    return count;
}

bool is_current(const std::wstring& layer) {
    resbuf current{};
    if (acedGetVar(L"CLAYER", &current) != RTNORM) {
        return false;
    }
    const bool same = ::lstrcmpiW(current.resval.rstring, layer.c_str()) == 0;
    acutDelString(current.resval.rstring);
    return same;
}

bool switch_layer(const std::wstring& name, int column, bool set) {
    const AcDbObjectPointer<AcDbLayerTable> table(working_database()->layerTableId(), AcDb::kForRead);
    AcDbObjectId id;
    if (table.openStatus() != Acad::eOk || table->getAt(name.c_str(), id) != Acad::eOk) {
        return false;
    }
    const AcDbObjectPointer<AcDbLayerTableRecord> layer(id, AcDb::kForWrite);
    if (layer.openStatus() != Acad::eOk) {
        return false;
    }
    switch (column) {
        case on_column:
            layer->setIsOff(!set);
            return true;
        case frozen_column:
            return layer->setIsFrozen(set) == Acad::eOk;
        default:
            layer->setIsLocked(set);
            return true;
    }
}

}  // namespace

LayerGrid::LayerGrid(GridOwner* dialog) : SortingGrid(grid_columns(), dialog) {}

void LayerGrid::OnGridSetup() {
    SetUpRows();
    KeepVerticalBar();
    CRect client;
    GetClientRect(&client);
    const int part = client.Width() / 24;
    SetUpColumns({client.Width() - 16 * part, 2 * part, 3 * part, 3 * part, 4 * part, 4 * part});
}

void LayerGrid::FillLayers() {
    SetRowCount(0);
    const AcDbObjectPointer<AcDbLayerTable> table(working_database()->layerTableId(), AcDb::kForRead);
    AcDbLayerTableIterator* made = nullptr;
    if (table.openStatus() != Acad::eOk || table->newIterator(made) != Acad::eOk) {
        return;
    }
    const std::unique_ptr<AcDbLayerTableIterator> iterator(made);
    for (; !iterator->done(); iterator->step()) {
        AcDbObjectId id;
        if (iterator->getRecordId(id) == Acad::eOk) {
            AppendLayer(id);
        }
    }
    RedrawAll();
}

void LayerGrid::AppendLayer(AcDbObjectId id) {
    const AcDbObjectPointer<AcDbLayerTableRecord> layer(id, AcDb::kForRead);
    if (layer.openStatus() != Acad::eOk) {
        return;
    }
    const std::wstring name = name_of(*layer.object());
    AppendRow();
    const int row = GetRowCount() - 1;
    SetCellText(name_column, row, name.c_str());
    SetCellText(on_column, row, layer->isOff() ? L"0" : L"1");
    SetCellText(frozen_column, row, layer->isFrozen() ? L"1" : L"0");
    SetCellText(locked_column, row, layer->isLocked() ? L"1" : L"0");
    SetCellText(colour_column, row, colour_text(ObjectGroups(id)).c_str());
    SetCellText(objects_column, row, std::to_wstring(objects_on(name)).c_str());
    for (const int column : {on_column, frozen_column, locked_column}) {
        SetCellTypeIndex(column, row, type_check_box);
    }
}

void LayerGrid::OnGridHeadingClick(int column, long, int updn, RECT*, POINT*, int) {
    if (updn != 0) {
        SortByHeading(column);
        RedrawAll();
    }
}

int LayerGrid::OnGridEditVerify(int column, long row, CWnd*, LPCWSTR text) {
    const bool on = std::wcscmp(text, L"1") == 0;
    if (!is_switch(column) || (!on && std::wcscmp(text, L"0") != 0)) {
        return 0;
    }
    if (column == frozen_column && on && is_current(GetCellText(name_column, static_cast<int>(row)))) {
        acedAlert(L"The current layer cannot be frozen.");
        return 0;
    }
    return 1;
}

int LayerGrid::OnGridEditFinish(int column, long row, CWnd*, LPCWSTR text, BOOL cancelled) {
    if (cancelled != FALSE) {
        return 1;
    }
    const std::wstring name = GetCellText(name_column, static_cast<int>(row));
    if (!switch_layer(name, column, std::wcscmp(text, L"1") == 0)) {
        acedAlert((L"The layer \"" + name + L"\" cannot be changed.").c_str());
        return 0;
    }
    acedUpdateDisplay();
    return 1;
}
