// KeptView, which remembers how the drawing looked.
#pragma once

#include <acdocman.h>

#include <string>

namespace corvanes {

/// A picture of the open drawing, kept for the next page of it.
class KeptView final : public AcApDocManagerReactor {
  public:
    KeptView();
    ~KeptView() override;
    KeptView(const KeptView&) = delete;
    KeptView& operator=(const KeptView&) = delete;

    /// PAGEVIEW: keeps the drawing as it looks now, unless it has too many parts for a browser.
    void keep();
    /// Its SVG; null where none is kept.
    const std::string* svg() const { return is_kept_ ? &text_ : nullptr; }
    void forget() { is_kept_ = false; }

    void documentToBeDestroyed(AcApDocument*) override { forget(); }

  private:
    std::string text_;  ///< stays when it is forgotten: the next one is written into its memory
    bool is_kept_ = false;
};

}  // namespace corvanes
