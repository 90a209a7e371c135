// What stands in the drawing around a count of block references: asked of the host while and after counting.
#pragma once

#include <dbents.h>

#include <cstdint>
#include <deque>
#include <memory_resource>
#include <unordered_map>
#include <vector>

#include "bom/bill_notes.h"

namespace corvanes {

class DrawingSurvey {
  public:
    /// A reference that was counted, which is open.
    void add(const AcDbBlockReference& reference);

    /// All that the notes are made of. With `true_names` dynamic blocks are counted under their true names, and go by
    /// them.
    BillSurvey finish(bool true_names);

  private:
    struct Reference {
        std::uint64_t place;  ///< the same for two that stand at one place, with one scale and rotation
        std::uint64_t handle;
    };
    struct Block {
        AcDbObjectId record;
        AcDbObjectId first;  ///< of the references
        std::pmr::deque<Reference> references;
    };

    void find_frozen();
    /// Finds the references that stand in the place of another.
    void find_stacked(std::vector<Reference> references, const std::wstring& name);
    void find_nested();
    std::wstring name_of(const Block& block) const;

    // Large pieces, which go back to the system at the end: a heap keeps what a million small ones took.
    std::pmr::monotonic_buffer_resource memory_{std::size_t{1} << 20};
    std::vector<Block> blocks_;
    std::unordered_map<Adesk::IntDbId, std::size_t> places_;  ///< in blocks_, by record
    bool true_names_ = false;
    BillSurvey survey_;
};

}  // namespace corvanes
