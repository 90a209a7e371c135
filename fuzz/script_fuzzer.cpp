// Takes any bytes as a host script: it must be read whole, or refused with the number of one of its lines.
#include <algorithm>

#include "base/code_page.h"
#include "fuzz/fuzz_input.h"
#include "platform/host/editor/script.h"
#include "platform/host/editor/script_words.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view bytes = fuzz::bytes_of(data, size);
    const auto lines = static_cast<size_t>(std::count(bytes.begin(), bytes.end(), '\n')) + 1;
    const base::Result<host::Script, host::ScriptFault> script = host::read_script(bytes, L"fuzz.scr");
    if (!script) {
        const host::ScriptFault& fault = script.reason();
        fuzz::require(fault.line >= 1 && fault.line <= lines && !fault.reason.empty(),
                      "a refusal has place and reason");
    }
    size_t before = 0;
    for (const host::ScriptLine& line : script ? script->lines : std::vector<host::ScriptLine>()) {
        fuzz::require(line.number > before && line.number <= lines, "lines keep their numbers");
        fuzz::require(line.action.has_value() == (!line.text.empty() && line.text.front() == L'@'),
                      "a line that begins with @ is an action");
        before = line.number;
    }
    const std::wstring text = base::wide_from_utf8(bytes);
    host::plain_caption(text);
    if (const auto words = host::split_script_words(text, host::Escapes::none)) {
        for (const host::ScriptWord& word : *words) {
            fuzz::require(word.quoted || !word.text.empty(), "a bare word has characters");
        }
    }
    return 0;
}
