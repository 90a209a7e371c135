#include "base/unix_program.h"

#include <windows.h>

namespace base {
namespace {

/// Starts a Unix program; with `wait` it waits for its end and returns its exit status. Wine's own tools use it.
using Spawn = LONG WINAPI(char* const* arguments, int wait);
using UnixName = char* CDECL(const wchar_t* path);

template <class Function>
Function* function_of(const wchar_t* library, const char* name) {
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(library), name)));
}

}  // namespace

std::optional<std::string> unix_name(const std::filesystem::path& path) {
    static UnixName* const translate = function_of<UnixName>(L"kernel32", "wine_get_unix_file_name");
    if (translate == nullptr) {
        return std::nullopt;
    }
    char* const name = translate(path.c_str());
    std::string result = name == nullptr ? "" : name;
    HeapFree(GetProcessHeap(), 0, name);
    return result;
}

std::optional<int> run_unix_program(std::vector<std::string> arguments) {
    static Spawn* const spawn = function_of<Spawn>(L"ntdll", "__wine_unix_spawnvp");
    if (spawn == nullptr || arguments.empty()) {
        return std::nullopt;
    }
    std::vector<char*> list;
    for (std::string& argument : arguments) {
        list.push_back(argument.data());
    }
    list.push_back(nullptr);
    constexpr int wait = 1;
    const LONG status = spawn(list.data(), wait);
    return status < 0 ? std::nullopt : std::optional<int>(status);
}

}  // namespace base
