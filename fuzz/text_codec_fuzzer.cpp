// Takes any bytes as a drawing's text in every code page: what was read must be writable, read back the same, and never
// end its line.
#include <iterator>

#include "base/code_page.h"
#include "fuzz/fuzz_input.h"
#include "platform/host/dxf/text_codec.h"

namespace {

void check_codec(const dxf::TextCodec& codec, std::string_view raw) {
    const std::wstring text = codec.decode(raw);
    const std::string written = codec.encode(text);
    fuzz::require(written.find_first_of(std::string_view("\r\n\0", 3)) == std::string::npos,
                  "a written text stays in its line");
    fuzz::require(codec.decode(written) == text, "a written text reads as it was");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view raw = fuzz::bytes_of(data, size);
    constexpr unsigned code_pages[] = {1250, 1251, 1252, 1253, 1254, 1255, 1256, 1257,
                                       1258, 874,  932,  936,  949,  950,  1361, base::code_page_utf8};
    const unsigned code_page = code_pages[(size == 0 ? 0U : data[size - 1]) % std::size(code_pages)];
    if (base::code_page_known(code_page)) {
        check_codec(dxf::TextCodec(code_page), raw);
        check_codec(dxf::TextCodec(base::code_page_utf8, code_page), raw);
    }
    const std::wstring wide = base::wide_from_utf8(raw);
    fuzz::require(base::wide_from_utf8(base::utf8_from_wide(wide)) == wide, "UTF-8 comes back");
    fuzz::require(!base::valid_utf8(raw) || base::utf8_from_wide(wide) == raw, "valid UTF-8 comes back byte for byte");
    return 0;
}
