// DrawingSurvey, which asks the host, during and after a count of block references, what the bill's notes tell.
#pragma once

#include <dbents.h>

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory_resource>
#include <vector>

#include "bom/bill_notes.h"

namespace corvanes {

class DrawingSurvey {
  public:
    /// Notes a reference that was counted; it is open during the call. `number` counts the blocks from 0 in the order
    /// of their first references.
    void add(const AcDbBlockReference& reference, AcDbObjectId block, std::size_t number);

    /// Ends the survey and gives all that the notes are made of. `true_names` tells that dynamic blocks were counted
    /// under their true names.
    BillSurvey finish(bool true_names);

  private:
    struct Reference {
        std::uint64_t place;  ///< a hash, equal for two references with the same place, scale and rotation
        std::uint64_t handle;
    };
    struct Block {
        AcDbObjectId record;
        AcDbObjectId first;  ///< the first reference
        std::pmr::deque<Reference> references;
    };

    void find_frozen();
    /// Finds the references of a block that stand where another one of it stands. At each place the one with the
    /// lowest handle is the first, and the others are found.
    void find_stacked(const Block& block, const std::wstring& name);
    void find_nested();
    std::wstring name_of(const Block& block) const;

    // The survey takes memory in large pieces and gives them back to the system at the end. A heap would keep the
    // memory of a million small pieces.
    std::pmr::monotonic_buffer_resource memory_{std::size_t{1} << 20};
    std::vector<Block> blocks_;
    bool true_names_ = false;
    BillSurvey survey_;
};

}  // namespace corvanes
