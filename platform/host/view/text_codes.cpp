#include "platform/host/view/text_codes.h"

#include <algorithm>
#include <cmath>
#include <cwchar>
#include <cwctype>

#include "base/case_folding.h"

namespace host {

namespace {

constexpr wchar_t degree = 0xB0;
constexpr wchar_t plus_minus = 0xB1;
constexpr wchar_t diameter = 0xD8;
constexpr wchar_t hard_blank = 0xA0;
constexpr double degrees = dxf::pi / 180;

/// What the two per cent signs and `code` stand for; 0 for nothing.
wchar_t special_character(wchar_t code) {
    switch (code) {
        case L'd':
            return degree;
        case L'p':
            return plus_minus;
        case L'c':
            return diameter;
        case L'%':
            return L'%';
        default:
            return 0;
    }
}

/// The rule that a code turns on or off; 0 for another code.
uint8_t rule_of(wchar_t code) {
    return code == L'u' || code == L'l' ? TextRun::under
           : code == L'o'               ? TextRun::over
           : code == L'k'               ? TextRun::through
                                        : 0;
}

wchar_t lower(wchar_t character) {
    return static_cast<wchar_t>(std::towlower(static_cast<wint_t>(character)));
}

bool is_digit(wchar_t character) {
    return character >= L'0' && character <= L'9';
}

/// Adds characters to the last run of a line, or to a new one where they look otherwise.
void add(std::vector<TextRun>& runs, const TextRun& look, wchar_t character) {
    if (runs.empty() || !runs.back().looks_like(look)) {
        runs.push_back(look);
        runs.back().text.clear();
    }
    runs.back().text.push_back(character);
}

/// Takes a %% code at the beginning of `rest`; how many characters it has, 0 when there is none.
size_t take_percent_code(std::wstring_view rest, TextRun& look, std::vector<TextRun>& runs) {
    if (!rest.starts_with(L"%%") || rest.size() < 3) {
        return 0;
    }
    const wchar_t code = lower(rest[2]);
    if (const wchar_t special = special_character(code)) {
        add(runs, look, special);
        return 3;
    }
    if (code != L'l' && rule_of(code) != 0) {
        look.rules ^= rule_of(code);
        return 3;
    }
    size_t end = 2;
    unsigned number = 0;
    for (; end < rest.size() && end < 5 && is_digit(rest[end]); ++end) {
        number = number * 10 + static_cast<unsigned>(rest[end] - L'0');
    }
    if (number != 0) {
        add(runs, look, static_cast<wchar_t>(number));
    }
    return end == 2 ? 0 : end;
}

std::optional<TextItem::Anchor> alignment_of(wchar_t letter) {
    switch (letter) {
        case L'l':
        case L'j':
        case L'd':
            return TextItem::Anchor::left;
        case L'c':
            return TextItem::Anchor::centre;
        case L'r':
            return TextItem::Anchor::right;
        default:
            return std::nullopt;
    }
}

/// Walks a paragraph text code by code.
class ParagraphParser {
  public:
    ParagraphParser(std::wstring_view value, const TextRun& first) : value_(value), look_(first), first_(first) {
        begin_line();
    }

    std::vector<TextLine> parse() {
        while (at_ < value_.size()) {
            if (const size_t taken = take_percent_code(value_.substr(at_), look_, lines_.back().runs)) {
                at_ += taken;
                continue;
            }
            const wchar_t character = value_[at_++];
            if (character == L'\\' && at_ < value_.size()) {
                take_code(value_[at_++]);
            } else if (character == L'\n' || character == L'\r') {
                take_line_end(character);
            } else if (character == L'{') {
                enter_group();
            } else if (character == L'}') {
                leave_group();
            } else if (character == L'^' && at_ < value_.size() && caret_code(value_[at_])) {
                ++at_;
            } else {
                add(character == L'\t' ? L' ' : character);
            }
        }
        return std::move(lines_);
    }

  private:
    static constexpr double stacked_size = 0.6;  // of the height beside it

    void add(wchar_t character) { host::add(lines_.back().runs, look_, character); }

    void begin_line() { lines_.push_back({{}, alignment_, look_.height}); }

    void take_line_end(wchar_t character) {
        if (character == L'\n') {
            begin_line();
        }
    }

    /// Groups within too many others look like the one around them.
    void enter_group() {
        constexpr size_t deepest = 100;
        if (outer_.size() < deepest) {
            outer_.push_back(look_);
        } else {
            ++too_deep_;
        }
    }

    void leave_group() {
        if (too_deep_ > 0) {
            --too_deep_;
        } else if (!outer_.empty()) {
            look_ = outer_.back();
            outer_.pop_back();
        }
    }

    /// ^I, ^J, ^M and "^ ", which are control characters.
    bool caret_code(wchar_t code) {
        if (code == L'J') {
            begin_line();
        } else if (code == L'I' || code == L' ') {
            add(code == L'I' ? L' ' : L'^');
        }
        return code == L'I' || code == L'J' || code == L'M' || code == L' ';
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
                begin_line();
                break;
            case L'~':
                add(hard_blank);
                break;
            case L'L':
            case L'O':
            case L'K':
                look_.rules |= rule_of(lower(code));
                break;
            case L'l':
            case L'o':
            case L'k':
                look_.rules &= static_cast<uint8_t>(~rule_of(code));
                break;
            case L'S':
                add_stacked(argument());
                break;
            case L'p':
                take_alignment(argument());
                break;
            case L'A':
            case L'C':
            case L'c':
            case L'f':
            case L'F':
            case L'H':
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
        const double number = std::wcstod(text.c_str(), nullptr);
        const bool relative = text.ends_with(L'x') || text.ends_with(L'X');
        if (code == L'H' && number > 0 && std::isfinite(number)) {
            look_.height = relative ? look_.height * number : number;
        } else if (code == L'W' && number > 0 && std::isfinite(number)) {
            look_.width_factor = relative ? look_.width_factor * number : number;
        } else if (code == L'Q') {
            look_.slant = std::clamp(number, -85.0, 85.0) * degrees;
        } else if (code == L'C') {
            const auto index = static_cast<int>(std::wcstol(text.c_str(), nullptr, 10));
            look_.ink = index == 0                 ? std::optional(Ink::by_block())
                        : index > 0 && index < 256 ? std::optional(indexed_ink(index))
                                                   : first_.ink;
        } else if (code == L'c') {
            const auto mixed = static_cast<uint32_t>(std::wcstoul(text.c_str(), nullptr, 10));  // 0x00BBGGRR
            look_.ink = Ink::rgb((mixed & 0xFF) << 16 | (mixed & 0xFF00) | (mixed >> 16 & 0xFF));
        } else if ((code == L'f' || code == L'F') && base::lower(text).find(L".shx") == std::wstring::npos) {
            look_.face = FontFace{text.substr(0, text.find(L'|')), text.find(L"|b1") != std::wstring::npos,
                                  text.find(L"|i1") != std::wstring::npos};
        }
    }

    /// "xqc" and its kin: q with a letter; other settings of paragraphs are left out.
    void take_alignment(const std::wstring& settings) {
        const size_t q = settings.find(L'q');
        if (q != std::wstring::npos && q + 1 < settings.size()) {
            alignment_ = settings[q + 1] == L'*' ? std::nullopt : alignment_of(settings[q + 1]);
            lines_.back().alignment = alignment_;
        }
    }

    /// A fraction or a tolerance: what is above the bar or the upper limit, and under it what is behind the sign.
    void add_stacked(const std::wstring& text) {
        const size_t sign = text.find_first_of(L"/#^");
        const std::wstring upper = text.substr(0, sign);
        const std::wstring below = sign == std::wstring::npos ? L"" : text.substr(sign + 1);
        TextRun part = look_;
        part.height *= stacked_size;
        part.raise += look_.height * 0.5;
        part.rules = sign != std::wstring::npos && text[sign] != L'^' ? part.rules | TextRun::under : part.rules;
        part.text = upper;
        lines_.back().runs.push_back(part);
        part.raise -= look_.height * (stacked_size + 0.15);
        part.rules = look_.rules;
        part.stacked = true;
        part.text = below;
        lines_.back().runs.push_back(part);
    }

    std::wstring_view value_;
    size_t at_ = 0;
    TextRun look_;
    const TextRun first_;
    std::vector<TextRun> outer_;  ///< how the groups around this one look
    size_t too_deep_ = 0;         ///< groups around this one that are not among them
    std::optional<TextItem::Anchor> alignment_;
    std::vector<TextLine> lines_;
};

}  // namespace

TextRun TextRun::without_text() const {
    return {{}, height, width_factor, slant, raise, stacked, rules, ink, face};
}

bool TextRun::looks_like(const TextRun& other) const {
    return height == other.height && width_factor == other.width_factor && slant == other.slant &&
           raise == other.raise && stacked == other.stacked && rules == other.rules && ink == other.ink &&
           face == other.face;
}

std::vector<TextRun> line_runs(std::wstring_view value, const TextRun& first) {
    std::vector<TextRun> runs;
    TextRun look = first;
    for (size_t at = 0; at < value.size();) {
        const size_t taken = take_percent_code(value.substr(at), look, runs);
        if (taken == 0) {
            add(runs, look, value[at]);
        }
        at += std::max<size_t>(taken, 1);
    }
    return runs;
}

std::wstring plain_text(std::wstring_view value) {
    std::wstring text;
    for (const TextRun& run : line_runs(value)) {
        text += run.text;
    }
    return text;
}

std::vector<TextLine> paragraph_lines(std::wstring_view value, const TextRun& first) {
    return ParagraphParser(value, first).parse();
}

}  // namespace host
