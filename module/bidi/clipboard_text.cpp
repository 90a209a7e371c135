#include "bidi/clipboard_text.h"

#include <algorithm>
#include <memory>

namespace corvanes {
namespace {

class OpenClipboardSession {
  public:
    explicit OpenClipboardSession(HWND owner) : open_(::OpenClipboard(owner) != 0) {}
    ~OpenClipboardSession() {
        if (open_) {
            ::CloseClipboard();
        }
    }
    OpenClipboardSession(const OpenClipboardSession&) = delete;
    OpenClipboardSession& operator=(const OpenClipboardSession&) = delete;
    explicit operator bool() const { return open_; }

  private:
    bool open_;
};

struct FreeGlobal {
    void operator()(void* memory) const { ::GlobalFree(memory); }
};
struct UnlockGlobal {
    void operator()(void* memory) const { ::GlobalUnlock(memory); }
};
using GlobalMemory = std::unique_ptr<void, FreeGlobal>;

std::wstring with_carriage_returns(std::wstring_view text) {
    std::wstring result;
    for (const wchar_t character : text) {
        if (character == L'\n') {
            result.push_back(L'\r');
        }
        result.push_back(character);
    }
    return result;
}

}  // namespace

bool put_clipboard_text(HWND owner, std::wstring_view text) {
    const std::wstring copied = with_carriage_returns(text);
    GlobalMemory memory(::GlobalAlloc(GMEM_MOVEABLE, (copied.size() + 1) * sizeof(wchar_t)));
    if (!memory) {
        return false;
    }
    auto* target = static_cast<wchar_t*>(::GlobalLock(memory.get()));
    if (target == nullptr) {
        return false;
    }
    std::copy_n(copied.c_str(), copied.size() + 1, target);
    ::GlobalUnlock(memory.get());
    const OpenClipboardSession session(owner);
    if (!session || !::EmptyClipboard() || ::SetClipboardData(CF_UNICODETEXT, memory.get()) == nullptr) {
        return false;
    }
    static_cast<void>(memory.release());  // the clipboard's from now on
    return true;
}

std::optional<std::wstring> clipboard_text(HWND owner) {
    const OpenClipboardSession session(owner);
    const HANDLE data = session ? ::GetClipboardData(CF_UNICODETEXT) : nullptr;
    if (data == nullptr) {
        return std::nullopt;
    }
    const auto* source = static_cast<const wchar_t*>(::GlobalLock(data));
    if (source == nullptr) {
        return std::nullopt;
    }
    const std::unique_ptr<void, UnlockGlobal> lock(data);
    // Other programs put it there, terminated or not.
    const size_t capacity = ::GlobalSize(data) / sizeof(wchar_t);
    return std::wstring(source, std::find(source, source + capacity, L'\0'));
}

bool clipboard_has_text() {
    return ::IsClipboardFormatAvailable(CF_UNICODETEXT) != 0;
}

}  // namespace corvanes
