#include "bidi/clipboard_text.h"

#include <algorithm>
#include <cstring>
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
        if (character == L'\n' && !result.ends_with(L'\r')) {
            result.push_back(L'\r');
        }
        result.push_back(character);
    }
    return result;
}

GlobalMemory copy_of(std::string_view bytes) {
    GlobalMemory memory(::GlobalAlloc(GMEM_MOVEABLE, bytes.size()));
    void* const target = memory ? ::GlobalLock(memory.get()) : nullptr;
    if (target == nullptr) {
        return nullptr;
    }
    std::memcpy(target, bytes.data(), bytes.size());
    ::GlobalUnlock(memory.get());
    return memory;
}

}  // namespace

bool put_clipboard(HWND owner, const std::vector<ClipboardForm>& forms) {
    std::vector<GlobalMemory> copies;
    for (const ClipboardForm& form : forms) {
        copies.push_back(copy_of(form.bytes));
        if (!copies.back()) {
            return false;
        }
    }
    const OpenClipboardSession session(owner);
    if (!session || ::EmptyClipboard() == 0) {
        return false;
    }
    for (size_t i = 0; i < forms.size(); ++i) {
        if (::SetClipboardData(forms[i].format, copies[i].get()) == nullptr) {
            return false;
        }
        static_cast<void>(copies[i].release());  // the clipboard owns it from now on
    }
    return true;
}

ClipboardForm clipboard_form(const std::wstring& text) {
    const size_t size = (text.size() + 1) * sizeof(wchar_t);
    return {CF_UNICODETEXT, {reinterpret_cast<const char*>(text.c_str()), size}};
}

bool put_clipboard_text(HWND owner, std::wstring_view text) {
    return put_clipboard(owner, {clipboard_form(with_carriage_returns(text))});
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
    // Another program may have left out the terminator, so the block's size limits the search for it.
    const size_t capacity = ::GlobalSize(data) / sizeof(wchar_t);
    return std::wstring(source, std::find(source, source + capacity, L'\0'));
}

bool clipboard_has_text() {
    return ::IsClipboardFormatAvailable(CF_UNICODETEXT) != 0;
}

}  // namespace corvanes
