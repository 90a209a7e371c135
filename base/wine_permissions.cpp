#include "base/wine_permissions.h"

#include <atomic>
#include <string>

#include "base/unix_program.h"

namespace base {
namespace {

constexpr int exit_broken_link = 2;
constexpr int exit_right_mode = 3;

/// $1 is the target, $2 the new file. The owner is changed before the mode, since a change of owner may clear bits of
/// the mode.
constexpr const char* script =
    "exec 2>/dev/null\n"
    "if [ -e \"$1\" ]; then\n"
    "    cp --attributes-only --preserve=mode,ownership \"$1\" \"$2\"\n"
    "    [ \"$(stat -c %u:%g:%a \"$1\")\" = \"$(stat -c %u:%g:%a \"$2\")\" ] || exit 1\n"
    "elif [ -L \"$1\" ]; then\n"
    "    exit 2\n"
    "else\n"
    "    mode=$(stat -c %a \"$2\")\n"
    "    chmod =rw \"$2\"\n"
    "    [ \"$mode\" != \"$(stat -c %a \"$2\")\" ] || exit 3\n"
    "fi\n"
    "exit 0\n";

std::atomic<bool> right_mode_seen = false;

}  // namespace

bool new_files_have_the_right_mode() {
    return right_mode_seen;
}

std::optional<Takeover> take_over_under_wine(const std::filesystem::path& target, const std::filesystem::path& file) {
    const std::optional<std::string> from = unix_name(target);
    const std::optional<std::string> to = unix_name(file);
    if (!from || !to) {
        return std::nullopt;
    }
    if (from->empty() || to->empty()) {
        return Takeover::incomplete;
    }
    const std::optional<int> status = run_unix_program({"/bin/sh", "-c", script, "/bin/sh", *from, *to});
    if (status == exit_right_mode) {
        right_mode_seen = true;
    }
    if (status == 0 || status == exit_right_mode) {
        return Takeover::whole;
    }
    return status == exit_broken_link ? Takeover::target_is_broken_link : Takeover::incomplete;
}

}  // namespace base
