// RowHighlight, which lights the references of a report's row in the drawing behind the report.
#pragma once

#include <string>

namespace corvanes {

/// Lights references of the last selection, which are those that were counted. Does nothing where nobody sees the
/// drawing.
class RowHighlight {
  public:
    RowHighlight() = default;
    ~RowHighlight() { clear(); }
    RowHighlight(const RowHighlight&) = delete;
    RowHighlight& operator=(const RowHighlight&) = delete;

    /// Lights the references to one block, and no others.
    void show(const std::wstring& block);
    void clear();
    /// Zooms the drawing to the references that are lit.
    void zoom() const;

  private:
    bool lit_ = false;
};

}  // namespace corvanes
