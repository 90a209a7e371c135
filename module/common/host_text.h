// HostText, the owner of a text that the host has allocated.
#pragma once

#include <acutmem.h>

namespace corvanes {

class HostText {
  public:
    explicit HostText(wchar_t* text = nullptr) : text_(text) {}
    ~HostText() {
        if (text_ != nullptr) {
            acad_free(text_);
        }
    }
    HostText(const HostText&) = delete;
    HostText& operator=(const HostText&) = delete;

    /// The pointer that a call of the host sets to a text that it gives away; to be used once.
    wchar_t*& place() { return text_; }
    /// The text; empty when the host gave none.
    const wchar_t* get() const { return text_ != nullptr ? text_ : L""; }

  private:
    wchar_t* text_;
};

}  // namespace corvanes
