#include "bom/block_selection.h"

#include <aced.h>
#include <dbents.h>
#include <dbobjptr.h>
#include <dbsymtb.h>

#include <cstddef>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>

#include "base/case_folding.h"
#include "bom/block_count.h"
#include "bom/drawing_survey.h"
#include "common/drawing_objects.h"

namespace corvanes {
namespace {

/// Counts references on the rows of their blocks, and reads the name of each block only once.
class ReferenceCounter {
  public:
    /// `survey`, which may be null, is told of every reference.
    ReferenceCounter(BlockCount& count, bool dynamic_names, DrawingSurvey* survey)
        : count_(count), dynamic_names_(dynamic_names), survey_(survey) {}

    /// Counts a reference; false, after an alert, when it or its block cannot be opened.
    bool add(const ads_name name) {
        AcDbObjectId id;
        acdbGetObjectId(id, name);
        const AcDbObjectPointer<AcDbBlockReference> reference(id, AcDb::kForRead);
        if (reference.openStatus() != Acad::eOk) {
            acedAlert(L"\nCannot open the object INSERT");
            return false;
        }
        const AcDbObjectId record = reference->blockTableRecord();
        const auto [found, is_new] = blocks_.try_emplace(record.asOldId(), Block{blocks_.size()});
        Block& block = found->second;
        if (is_new && !find_row(record, id, block.row)) {
            acedAlert(L"\nCannot open the object BlockTableRecord");
            return false;
        }
        if (survey_ != nullptr) {
            survey_->add(*reference, record, block.number);
        }
        count_.rows[block.row].quantity += 1;
        return true;
    }

  private:
    struct Block {
        std::size_t number;  ///< in the order in which blocks are first met
        int row = 0;
    };

    bool find_row(AcDbObjectId id, AcDbObjectId reference, int& row) {
        const AcDbObjectPointer<AcDbBlockTableRecord> record(id, AcDb::kForRead);
        if (record.openStatus() != Acad::eOk) {
            return false;
        }
        const auto true_name = dynamic_names_ ? dynamic_block_name(id, reference) : std::nullopt;
        const std::wstring name = base::lower(true_name ? *true_name : name_of(*record));
        row = row_of_block(count_.rows, count_.index, name.c_str());
        return true;
    }

    BlockCount& count_;
    bool dynamic_names_;
    DrawingSurvey* survey_;
    std::unordered_map<Adesk::IntDbId, Block> blocks_;  ///< by record
};

}  // namespace

bool SelectBlockReferences(ads_name selection_set) {
    wchar_t block_reference[] = L"INSERT";
    resbuf filter{};
    filter.restype = 0;
    filter.resval.rstring = block_reference;
    return acedSSGet(nullptr, nullptr, nullptr, &filter, selection_set) == RTNORM;
}

bool CountSelectedBlocks(BlockCount& count, const CountOrder& order) {
    begin_count(count.rows, count.index);
    ads_name selection_set;
    if (!SelectBlockReferences(selection_set)) {
        return false;
    }
    long length = 0;
    acedSSLength(selection_set, &length);
    std::optional<DrawingSurvey> survey;
    if (order.with_notes) {
        survey.emplace();
    }
    ReferenceCounter counter(count, order.dynamic_names, survey ? &*survey : nullptr);
    for (long i = 0; i < length; ++i) {
        ads_name name;
        acedSSName(selection_set, i, name);
        if (!counter.add(name)) {
            return false;
        }
    }
    join_prices(count.rows, count.index, order.price_list, order.price_list_attached);
    if (survey) {
        BillSurvey found = survey->finish(order.dynamic_names);
        count.notes = bill_notes(found, order.price_list, order.price_list_attached);
        count.counted = std::move(found.counted);
    }
    return true;
}

}  // namespace corvanes
