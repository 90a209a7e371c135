#include "common/module_path.h"

#include <utility>

namespace corvanes {
namespace {

std::wstring& path_of_this_module() {
    static std::wstring path;
    return path;
}

}  // namespace

const std::wstring& module_path() {
    return path_of_this_module();
}

void set_module_path(std::wstring path) {
    path_of_this_module() = std::move(path);
}

}  // namespace corvanes
