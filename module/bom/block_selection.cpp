#include "bom/block_selection.h"

#include <afxwin.h>
#include <aced.h>
#include <dbents.h>
#include <dbsymtb.h>

#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>

#include "base/case_folding.h"
#include "bom/block_count.h"
#include "bom/drawing_survey.h"
#include "bom/report_dialog.h"
#include "common/drawing_objects.h"
#include "pricelist/price_list_file.h"

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

/// Counts references on the rows of their blocks; each block's record is asked for its name once.
class ReferenceCounter {
  public:
    /// `survey`, which may be null, is told of every reference.
    ReferenceCounter(CalcPriceDialog& dialog, DrawingSurvey* survey) : dialog_(dialog), survey_(survey) {}

    /// False after an alert when the reference or its block cannot be opened.
    bool count(const ads_name name) {
        AcDbObjectId id;
        AcDbBlockReference* reference = nullptr;
        if (acdbGetObjectId(id, name) != Acad::eOk || acdbOpenObject(reference, id, AcDb::kForRead) != Acad::eOk) {
            acedAlert(L"\nCannot open the object INSERT");
            return false;
        }
        const AcDbObjectId record = reference->blockTableRecord();
        if (survey_ != nullptr) {
            survey_->add(*reference);
        }
        reference->close();
        const auto known = rows_of_records_.find(record.asOldId());
        int row = 0;
        if (known != rows_of_records_.end()) {
            row = known->second;
        } else if (!find_row(record, id, row)) {
            acedAlert(L"\nCannot open the object BlockTableRecord");
            return false;
        }
        dialog_.rows()[row].quantity += 1;
        return true;
    }

  private:
    bool find_row(AcDbObjectId id, AcDbObjectId reference, int& row) {
        AcDbBlockTableRecord* record = nullptr;
        if (acdbOpenObject(record, id, AcDb::kForRead) != Acad::eOk) {
            return false;
        }
        const LowerName lower_name(*record);
        record->close();
        const auto true_name =
            dialog_.wishes().dynamic_names ? dynamic_block_name(id, reference) : std::optional<std::wstring>();
        row = row_of_block(dialog_.rows(), dialog_.index(),
                           true_name ? base::lower(*true_name).c_str() : lower_name.text());
        rows_of_records_.emplace(id.asOldId(), row);
        return true;
    }

    CalcPriceDialog& dialog_;
    DrawingSurvey* survey_;
    std::unordered_map<decltype(AcDbObjectId().asOldId()), int> rows_of_records_;
};

}  // namespace

bool LoadPriceRows(CalcPriceDialog& dialog, const wchar_t* path) {
    auto text = read_price_list(path);
    if (!text) {
        return false;
    }
    dialog.grid().DeleteAllRows();
    dialog.rows().RemoveAll();
    dialog.price_list() = std::move(*text);
    return true;
}

bool CountSelectedBlocks(CalcPriceDialog& dialog) {
    const std::wstring price_list = std::exchange(dialog.price_list(), {});
    begin_count(dialog.rows(), dialog.index());
    ads_name selection_set;
    if (!SelectBlockReferences(dialog, selection_set)) {
        return false;
    }
    long length = 0;
    acedSSLength(selection_set, &length);
    std::optional<DrawingSurvey> survey;
    if (dialog.wishes().any_notes()) {
        survey.emplace();
    }
    ReferenceCounter counter(dialog, survey ? &*survey : nullptr);
    for (long i = 0; i < length; ++i) {
        ads_name name;
        acedSSName(selection_set, i, name);
        if (!counter.count(name)) {
            return false;
        }
    }
    const bool attached = dialog.grid().price_list_attached();
    join_prices(dialog.rows(), dialog.index(), price_list, attached);
    if (survey) {
        BillSurvey found = survey->finish(dialog.wishes().dynamic_names);
        dialog.notes() = bill_notes(found, price_list, attached);
        dialog.counted() = std::move(found.counted);
    }
    return true;
}

}  // namespace corvanes
