// KeptView, which remembers how the drawing looked.
#pragma once

#include <acdocman.h>

#include <optional>
#include <string>
#include <utility>

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
    /// Takes a text that nobody needs any more: the next one is written into its memory.
    void take_memory(std::string text) { memory_ = std::move(text); }

    void documentToBeDestroyed(AcApDocument*) override { svg_.reset(); }

  private:
    std::optional<std::string> svg_;
    std::string memory_;
};

}  // namespace corvanes
