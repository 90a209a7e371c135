#include "base/wine_permissions.h"

#include <windows.h>

#include <string>

namespace base {
namespace {

/// Starts a program of the system below, waits for its end, and returns its exit status. Wine's own tools use it.
using Spawn = LONG WINAPI(char* const* arguments, int wait);
using UnixName = char* CDECL(const wchar_t* path);

constexpr int exit_broken_link = 2;

/// $1 is the target, $2 the new file. Ownership comes before the mode, which a change of owner may narrow.
constexpr const char* script =
    "exec 2>/dev/null\n"
    "if [ -e \"$1\" ]; then\n"
    "    cp --attributes-only --preserve=mode,ownership \"$1\" \"$2\"\n"
    "    [ \"$(stat -c %u:%g:%a \"$1\")\" = \"$(stat -c %u:%g:%a \"$2\")\" ] || exit 1\n"
    "elif [ -L \"$1\" ]; then\n"
    "    exit 2\n"
    "else\n"
    "    chmod =rw \"$2\"\n"
    "fi\n"
    "exit 0\n";

template <class Function>
Function* function_of(const wchar_t* library, const char* name) {
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(library), name)));
}

UnixName* unix_name_function() {
    static UnixName* const translate = function_of<UnixName>(L"kernel32", "wine_get_unix_file_name");
    return translate;
}

std::string unix_name(UnixName* translate, const std::filesystem::path& path) {
    char* const name = translate(path.c_str());
    std::string result = name == nullptr ? "" : name;
    HeapFree(GetProcessHeap(), 0, name);
    return result;
}

}  // namespace

bool under_wine() {
    return unix_name_function() != nullptr;
}

std::optional<Takeover> take_over_under_wine(const std::filesystem::path& target, const std::filesystem::path& file) {
    static Spawn* const spawn = function_of<Spawn>(L"ntdll", "__wine_unix_spawnvp");
    UnixName* const translate = unix_name_function();
    if (translate == nullptr) {
        return std::nullopt;
    }
    std::string from = unix_name(translate, target);
    std::string to = unix_name(translate, file);
    if (spawn == nullptr || from.empty() || to.empty()) {
        return Takeover::incomplete;
    }
    std::string shell = "/bin/sh";
    std::string option = "-c";
    std::string text = script;
    char* const arguments[] = {shell.data(), option.data(), text.data(), shell.data(), from.data(), to.data(), nullptr};
    switch (spawn(arguments, 1)) {
        case 0:
            return Takeover::whole;
        case exit_broken_link:
            return Takeover::target_is_broken_link;
        default:
            return Takeover::incomplete;
    }
}

}  // namespace base
