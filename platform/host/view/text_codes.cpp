#include "platform/host/view/text_codes.h"

#include <cwchar>
#include <cwctype>

namespace host {

namespace {

constexpr wchar_t degree = 0xB0;
constexpr wchar_t plus_minus = 0xB1;
constexpr wchar_t diameter = 0xD8;
constexpr wchar_t hard_blank = 0xA0;

/// What the two per cent signs and `code` stand for; 0 for nothing.
wchar_t special_character(wchar_t code) {
    switch (code) {
        case L'd':
        case L'D':
            return degree;
        case L'p':
        case L'P':
            return plus_minus;
        case L'c':
        case L'C':
            return diameter;
        case L'%':
            return L'%';
        default:
            return 0;
    }
}

bool is_digit(wchar_t character) {
    return character >= L'0' && character <= L'9';
}

/// Walks a paragraph text code by code.
class ParagraphParser {
  public:
    explicit ParagraphParser(std::wstring_view value) : value_(value) { result_.lines.emplace_back(); }

    ParagraphText parse() {
        while (at_ < value_.size()) {
            const wchar_t character = value_[at_++];
            if (character == L'\\' && at_ < value_.size()) {
                take_code(value_[at_++]);
            } else if (character == L'\n') {
                result_.lines.emplace_back();
            } else if (character != L'{' && character != L'}' && character != L'\r') {
                add(character == L'\t' ? L' ' : character);
            }
        }
        for (std::wstring& line : result_.lines) {
            line = plain_text(line);
        }
        return std::move(result_);
    }

  private:
    void add(wchar_t character) {
        result_.lines.back().push_back(character);
        started_ = true;
    }

    /// A code's argument: up to the semicolon, which is taken too.
    std::wstring argument() {
        const size_t end = value_.find(L';', at_);
        std::wstring text(value_.substr(at_, end == std::wstring_view::npos ? end : end - at_));
        at_ = end == std::wstring_view::npos ? value_.size() : end + 1;
        return text;
    }

    void take_code(wchar_t code) {
        switch (code) {
            case L'P':
            case L'X':
            case L'N':
                result_.lines.emplace_back();
                break;
            case L'~':
                add(hard_blank);
                break;
            case L'L':
            case L'l':
            case L'O':
            case L'o':
            case L'K':
            case L'k':
                break;
            case L'S':
                add_stacked(argument());
                break;
            case L'A':
            case L'C':
            case L'c':
            case L'f':
            case L'F':
            case L'H':
            case L'p':
            case L'Q':
            case L'T':
            case L'W':
                take_format(code, argument());
                break;
            default:
                add(code);  // \\, \{, \} and unknown ones
        }
    }

    void take_format(wchar_t code, const std::wstring& text) {
        if (started_) {
            return;
        }
        if (code == L'H') {
            const double number = std::wcstod(text.c_str(), nullptr);
            const bool relative = !text.empty() && (text.back() == L'x' || text.back() == L'X');
            (relative ? result_.height_factor : result_.height) = number > 0 ? number : 1;
        } else if (code == L'W') {
            result_.width_factor = std::wcstod(text.c_str(), nullptr);
        } else if (code == L'C') {
            result_.colour_index = static_cast<int>(std::wcstol(text.c_str(), nullptr, 10));
        } else if (code == L'f' || code == L'F') {
            result_.font_family = text.substr(0, text.find(L'|'));
            result_.bold = text.find(L"|b1") != std::wstring::npos;
            result_.italic = text.find(L"|i1") != std::wstring::npos;
        }
    }

    void add_stacked(const std::wstring& text) {
        for (const wchar_t character : text) {
            add(character == L'#' || character == L'^' ? L'/' : character);
        }
    }

    std::wstring_view value_;
    size_t at_ = 0;
    bool started_ = false;
    ParagraphText result_;
};

}  // namespace

std::wstring plain_text(std::wstring_view value) {
    std::wstring result;
    for (size_t at = 0; at < value.size(); ++at) {
        if (value.substr(at, 2) != L"%%" || at + 2 >= value.size()) {
            result.push_back(value[at]);
            continue;
        }
        const wchar_t code = value[at + 2];
        const auto lower = static_cast<wchar_t>(std::towlower(static_cast<wint_t>(code)));
        if (const wchar_t special = special_character(code)) {
            result.push_back(special);
            at += 2;
        } else if (lower == L'u' || lower == L'o' || lower == L'k') {
            at += 2;
        } else if (is_digit(code)) {
            unsigned number = 0;
            size_t end = at + 2;
            for (; end < value.size() && end < at + 5 && is_digit(value[end]); ++end) {
                number = number * 10 + static_cast<unsigned>(value[end] - L'0');
            }
            if (number != 0) {
                result.push_back(static_cast<wchar_t>(number));
            }
            at = end - 1;
        } else {
            result.push_back(value[at]);
        }
    }
    return result;
}

ParagraphText parse_paragraphs(std::wstring_view value) {
    return ParagraphParser(value).parse();
}

}  // namespace host
