// What the look of entities depends on besides their own groups: header variables, and records named by handle.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

#include "platform/host/dxf/drawing.h"

namespace host {

/// Of one state of a drawing. What takes a search is looked for when it is first asked for.
class DrawingSettings {
  public:
    explicit DrawingSettings(const dxf::Drawing& drawing) : drawing_(drawing) {}

    /// A header variable's number; `absent` without one.
    double header_real(const std::string& name, int code, double absent);
    /// Whether wipeouts show their frames.
    bool wipeout_frames();
    /// The table entry or object with this handle that is not erased, or no_record.
    dxf::RecordId by_handle(uint64_t handle);
    /// The block whose BLOCK_RECORD has this handle; empty for none.
    std::wstring block_name(uint64_t handle);

  private:
    void index_handles();

    const dxf::Drawing& drawing_;
    std::unordered_map<std::string, dxf::RecordId> variables_;
    std::unordered_map<uint64_t, dxf::RecordId> by_handle_;
    bool handles_indexed_ = false;
    std::optional<bool> wipeout_frames_;
};

}  // namespace host
