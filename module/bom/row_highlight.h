// The references of a report's row, lit in the drawing behind the report.
#pragma once

#include <string>

namespace corvanes {

/// Looks among what was selected last, for what was counted. Where nobody sees the drawing, nothing happens.
class RowHighlight {
  public:
    RowHighlight() = default;
    ~RowHighlight() { clear(); }
    RowHighlight(const RowHighlight&) = delete;
    RowHighlight& operator=(const RowHighlight&) = delete;

    /// Lights the references to one block, and no others.
    void show(const std::wstring& block);
    void clear();
    /// Has the drawing show what is lit as large as it can.
    void zoom() const;

  private:
    bool lit_ = false;
};

}  // namespace corvanes
