// What stands in the drawing around a count of block references: asked of the host while and after counting.
#pragma once

#include <adsdef.h>
#include <dbid.h>

#include <cstdint>
#include <unordered_map>
#include <vector>

#include "bom/bill_notes.h"

namespace corvanes {

class DrawingSurvey {
  public:
    /// A reference that was counted, and its block.
    void add(AcDbObjectId reference, AcDbObjectId block);

    /// All that the notes are made of. `selection` is the set that was counted. With `true_names` dynamic blocks are
    /// counted under their true names, and go by them.
    BillSurvey finish(const ads_name selection, bool true_names);

  private:
    struct Block {
        AcDbObjectId record;
        std::vector<AcDbObjectId> references;
    };

    void find_arrays(const ads_name selection);
    void find_frozen();
    void find_stacked(const Block& block, const std::wstring& name);
    void find_nested();
    std::wstring name_of(const Block& block) const;

    std::vector<Block> blocks_;
    std::unordered_map<Adesk::IntDbId, std::size_t> places_;  ///< in blocks_, by record
    bool true_names_ = false;
    BillSurvey survey_;
};

}  // namespace corvanes
