#include "bom/block_selection.h"

#include <afxwin.h>
#include <aced.h>
#include <dbents.h>
#include <dbsymtb.h>

#include <memory>
#include <string>

#include "base/case_folding.h"
#include "bom/block_count.h"
#include "bom/report_dialog.h"
#include "pricelist/price_list_file.h"
#include "pricelist/price_text.h"

namespace corvanes {
namespace {

/// The name of a block table record, lowered in the memory that the host gave for it.
class LowerName {
  public:
    explicit LowerName(AcDbBlockTableRecord& record) {
        wchar_t* name = nullptr;
        if (record.getName(name) == Acad::eOk && name != nullptr) {
            name_.reset(name);
            base::lower_in_place(name, wcslen(name));
        }
    }
    const wchar_t* text() const { return name_ ? name_.get() : L""; }

  private:
    std::unique_ptr<wchar_t, decltype(&acad_free)> name_{nullptr, acad_free};
};

bool SelectBlockReferences(CalcPriceDialog&, ads_name selection_set) {
    wchar_t block_reference[] = L"INSERT";
    resbuf filter{};
    filter.restype = 0;
    filter.resval.rstring = block_reference;
    return acedSSGet(nullptr, nullptr, nullptr, &filter, selection_set) == RTNORM;
}

bool count_object(CalcPriceDialog& dialog, const ads_name name) {
    AcDbObjectId id;
    AcDbBlockReference* reference = nullptr;
    if (acdbGetObjectId(id, name) != Acad::eOk || acdbOpenObject(reference, id, AcDb::kForRead) != Acad::eOk) {
        acedAlert(L"\nCannot open the object INSERT");
        return false;
    }
    const AcDbObjectId record_id = reference->blockTableRecord();
    reference->close();
    AcDbBlockTableRecord* record = nullptr;
    if (acdbOpenObject(record, record_id, AcDb::kForRead) != Acad::eOk) {
        acedAlert(L"\nCannot open the object BlockTableRecord");
        return false;
    }
    const LowerName lower_name(*record);
    record->close();
    count_reference(dialog.rows(), dialog.index(), lower_name.text(), dialog.grid().price_list_attached());
    return true;
}

CString to_string(std::wstring_view text) {
    return CString(text.data(), static_cast<int>(text.size()));
}

}  // namespace

bool LoadPriceRows(CalcPriceDialog& dialog, const wchar_t* path) {
    constexpr int growth = 100;
    RowList& rows = dialog.rows();
    const auto empty_the_report = [&] {
        dialog.grid().DeleteAllRows();
        rows.SetSize(0, growth);
    };
    const auto add_row = [&rows](const PriceListEntry& entry) {
        const INT_PTR place = rows.GetSize();
        rows.SetSize(place + 1);
        rows[place].Set(to_string(entry.name), number_from_text(entry.price), to_string(entry.description));
    };
    if (LoadPriceList(path, L"r", empty_the_report, add_row) == 0) {
        return false;
    }
    rows.FreeExtra();
    return true;
}

bool CountSelectedBlocks(CalcPriceDialog& dialog) {
    index_rows(dialog.rows(), dialog.index());
    ads_name selection_set;
    if (!SelectBlockReferences(dialog, selection_set)) {
        return false;
    }
    long length = 0;
    acedSSLength(selection_set, &length);
    for (long i = 0; i < length; ++i) {
        ads_name name;
        acedSSName(selection_set, i, name);
        if (!count_object(dialog, name)) {
            return false;
        }
    }
    return true;
}

}  // namespace corvanes
