// RowHighlight, which lights the references of a report's row in the drawing behind the report.
#pragma once

#include <string>

namespace corvanes {

/// Searches the last selection, which is what was counted. Does nothing where nobody sees the drawing.
class RowHighlight {
  public:
    RowHighlight() = default;
    ~RowHighlight() { clear(); }
    RowHighlight(const RowHighlight&) = delete;
    RowHighlight& operator=(const RowHighlight&) = delete;

    /// Lights the references to one block, and no others.
    void show(const std::wstring& block);
    void clear();
    /// Zooms the drawing to what is lit.
    void zoom() const;

  private:
    bool lit_ = false;
};

}  // namespace corvanes
