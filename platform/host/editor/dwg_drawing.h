// DWG drawings: a program beside the host converts them to DXF.
#pragma once

#include <filesystem>
#include <string>

#include "base/result.h"
#include "base/temporary_folder.h"

namespace host {

/// Whether the file begins as a DWG drawing does, whatever its name.
bool is_dwg(const std::filesystem::path& path);

bool has_dwg_name(const std::filesystem::path& path);

/// A DWG drawing as DXF, in a file that is deleted with this object.
class ConvertedDrawing {
  public:
    /// Runs the program that the environment value DRAWINGHOST_DWG_CONVERTER names (a path of Windows, or under Wine of
    /// the system below, which begins with "/"). It is given the drawing, the DXF file to make, and a file for what it
    /// has to say in UTF-8: notes, or why its status is not 0. The reason names the drawing.
    static base::Result<ConvertedDrawing> convert(const std::filesystem::path& dwg);

    const std::filesystem::path& dxf() const { return dxf_; }
    /// The converter's notes on what was lost, in lines; empty when it has none.
    std::wstring notes() const;

  private:
    explicit ConvertedDrawing(const std::filesystem::path& name);

    base::TemporaryFolder folder_;
    std::filesystem::path dxf_;
};

}  // namespace host
