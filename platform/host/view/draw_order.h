// The order in which entities are drawn, where SORTENTSTABLE objects say another than that of the file.
#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "platform/host/view/drawing_settings.h"

namespace host {

class DrawOrder {
  public:
    DrawOrder(const dxf::Drawing& drawing, DrawingSettings& settings);

    /// Whether a space ("*Model_Space") or a block has an order of its own; names without regard to case.
    bool governs(const std::wstring& owner) const { return keys_of(owner) != nullptr; }
    /// The entities of such a space or block, those to be drawn first before the others.
    std::vector<dxf::RecordId> sorted(const std::wstring& owner, const dxf::RecordRun& entities) const;

  private:
    /// An entity's handle, and the handle by which it is sorted instead; in order.
    using SortKeys = std::vector<std::pair<uint64_t, uint64_t>>;
    const SortKeys* keys_of(const std::wstring& owner) const;
    void read(const dxf::RecordView& table, DrawingSettings& settings);

    const dxf::Drawing& drawing_;
    std::map<std::wstring, SortKeys> keys_;  ///< by the owner's name in lower case
};

}  // namespace host
