// Any bytes as a settings file: widths that can be read are read, the others stay, and what is written reads back.
#include <algorithm>
#include <array>

#include "base/code_page.h"
#include "common/settings_files.h"
#include "fuzz/fuzz_input.h"

namespace {

constexpr int untouched = -12345;
using Widths = std::array<int, 4>;

Widths read(const fuzz::ScratchFile& file) {
    Widths widths;
    widths.fill(untouched);
    corvanes::read_column_widths(file.path(), widths.data(), widths.size());
    return widths;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const fuzz::ScratchFile file("settings.set");
    const std::string_view bytes = fuzz::bytes_of(data, size);
    file.write(bytes);
    const Widths widths = read(file);
    corvanes::write_column_widths(file.path(), widths.data(), widths.size());
    fuzz::require(read(file) == widths, "written widths read back");

    file.write(bytes);
    if (const auto word = corvanes::read_last_file(file.path())) {
        fuzz::require(!word->empty(), "a word has characters");
        corvanes::write_last_file(file.path(), *word);
        fuzz::require(corvanes::read_last_file(file.path()) == word, "a written word reads back");
    }

    const std::wstring module = base::wide_from_utf8(bytes);
    const corvanes::SettingsPaths paths = corvanes::settings_paths(module, corvanes::template_settings_name);
    const bool has_folder = module.find_first_of(L"/\\") != std::wstring::npos;
    fuzz::require(has_folder || paths.settings == corvanes::template_settings_name, "a bare name stays bare");
    return 0;
}
