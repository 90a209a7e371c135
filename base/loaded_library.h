// A library that this process has loaded, for as long as the object lives.
#pragma once

#include <windows.h>

#include <memory>
#include <string>

namespace base {

class LoadedLibrary {
  public:
    LoadedLibrary() = default;
    /// Loads a system library by name, or a module by full path (then its own folder is searched for what it needs).
    /// GetLastError tells why when the result is empty.
    static LoadedLibrary load(const std::wstring& file);

    explicit operator bool() const { return library_ != nullptr; }
    HMODULE handle() const { return library_.get(); }

    /// The exported function, or null.
    template <typename Function>
    Function* function(const char* name) const {
        return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(library_.get(), name)));
    }

  private:
    struct Free {
        using pointer = HMODULE;
        void operator()(HMODULE library) const { FreeLibrary(library); }
    };
    std::unique_ptr<HMODULE, Free> library_;
};

/// The system's text for an error code, without its line end.
std::wstring system_message(DWORD error);

}  // namespace base
