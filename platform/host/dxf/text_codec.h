// The drawing's text encoding: its code page or UTF-8, with the \U+XXXX and \M+nXXXX escapes.
#pragma once

#include <string>
#include <string_view>

namespace dxf {

/// Converts between raw text values and wide text.
class TextCodec {
  public:
    explicit TextCodec(unsigned code_page) : TextCodec(code_page, code_page) {}
    /// When the code page is UTF-8, values that are not valid UTF-8 are read by the code page `instead`.
    TextCodec(unsigned code_page, unsigned instead) : code_page_(code_page), instead_(instead) {}

    /// The codec of a version ("AC1015") and a $DWGCODEPAGE name ("ANSI_1255"): UTF-8 from AC1021 on, with the named
    /// code page instead for values that are none (some converters write so); else the named code page. 1252 when the
    /// name is unknown or missing.
    static TextCodec for_drawing(std::string_view version, std::string_view code_page_name);

    unsigned code_page() const { return code_page_; }

    /// \U+XXXX and \M+nXXXX (n from 1 to 5: 932, 950, 949, 1361, 936) become characters; ^J and its kin become control
    /// characters, "^ " a caret. Bytes that the code page does not define become what base::wide_from_bytes makes of
    /// them.
    std::wstring decode(std::string_view raw) const;

    /// The inverse: decode() gives the text back. Characters that the code page does not hold become \U+XXXX (a pair of
    /// them beyond U+FFFF), and so do half pairs and a backslash that would begin an escape. The result never holds a
    /// line end or a zero.
    std::string encode(std::wstring_view text) const;

  private:
    unsigned code_page_;
    unsigned instead_;
};

}  // namespace dxf
