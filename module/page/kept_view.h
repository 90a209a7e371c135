// KeptView, which remembers how the drawing looked.
#pragma once

#include <acdocman.h>

#include <optional>
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
    /// Its SVG, once; nothing where none was kept since the drawing was opened.
    std::optional<std::string> take();

    void documentToBeDestroyed(AcApDocument*) override { svg_.reset(); }

  private:
    std::optional<std::string> svg_;
};

}  // namespace corvanes
