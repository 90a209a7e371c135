// What the look of entities depends on besides their own groups: header variables, and records named by handle.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/host/dxf/drawing.h"
#include "platform/host/view/geometry.h"
#include "platform/host/view/shape_file.h"

namespace host {

/// How points look: $PDMODE, and $PDSIZE in drawing units, which is not positive where nobody knows it.
struct PointMarks {
    int mode = 0;
    double size = 0;
};

/// Answers for one state of a drawing. What takes a search is looked for when it is first asked for.
class DrawingSettings {
  public:
    explicit DrawingSettings(const dxf::Drawing& drawing)
        : drawing_(drawing), has_clips_(drawing.type_names().find(L"SPATIAL_FILTER") != dxf::no_name) {}

    /// A header variable's number; `absent` without one.
    double header_real(const std::string& name, int code, double absent);
    const PointMarks& point_marks();
    /// Whether wipeouts show their frames.
    bool wipeout_frames();
    /// The table entry or object with this handle that is not erased, or no_record.
    dxf::RecordId by_handle(uint64_t handle);
    /// The boundary that clips a block reference (its SPATIAL_FILTER), in the block's coordinates. Empty for none.
    const std::vector<Vec3>& clip_of(const dxf::RecordView& reference);
    /// The strokes of a shape, of the first style of shapes whose file lies beside the drawing and has it; none else.
    const std::vector<ShapeStroke>& shape(const std::string& name);
    /// The block whose BLOCK_RECORD has this handle; empty for none.
    const std::wstring& block_name(uint64_t handle);

  private:
    void read_shape_files();
    void index_handles();
    dxf::RecordId entry_of(dxf::RecordId dictionary, std::string_view name);
    dxf::RecordId find_entry(dxf::RecordId dictionary, std::string_view name);

    const dxf::Drawing& drawing_;
    const bool has_clips_;
    std::map<std::pair<dxf::RecordId, std::string_view>, dxf::RecordId> entries_;  ///< of dictionaries
    std::unordered_map<dxf::RecordId, std::vector<Vec3>> clips_;                   ///< by their SPATIAL_FILTER
    std::unordered_map<uint64_t, std::wstring> block_names_;
    std::unordered_map<std::string, dxf::RecordId> variables_;
    std::unordered_map<uint64_t, dxf::RecordId> by_handle_;
    bool handles_indexed_ = false;
    std::optional<bool> wipeout_frames_;
    std::optional<PointMarks> point_marks_;
    std::optional<std::vector<ShapeFile>> shape_files_;
    std::map<std::string, std::vector<ShapeStroke>> shapes_;
};

}  // namespace host
