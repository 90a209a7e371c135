#include "platform/host/view/system_typesetter.h"

#include <algorithm>
#include <array>

#include "platform/host/view/style_tables.h"
#include "platform/host/view/text_item.h"

namespace host {

namespace {

constexpr int em = 1024;                   // of every font, in its own units
constexpr size_t most_points = 4'000'000;  // of the lines that are kept
constexpr int chords = 4;                  // of a Bezier curve: letters have several a turn

/// Faces for letters that a font lacks, in the order in which they are tried.
constexpr const wchar_t* helpers[] = {L"DejaVu Sans", L"WenQuanYi Micro Hei", L"FreeSerif"};

/// Whether a character looks the same whatever stands beside it.
bool stands_alone(wchar_t character) {
    struct Range {
        wchar_t first;
        wchar_t last;
    };
    constexpr Range alone[] = {{0x20, 0x2FF},    {0x370, 0x482},   {0x48A, 0x58F},   {0x1E00, 0x1FFF},
                               {0x2010, 0x2027}, {0x2030, 0x205E}, {0x2070, 0x20CF}, {0x2100, 0x3029},
                               {0x3030, 0xD7FF}, {0xF900, 0xFAFF}, {0xFF01, 0xFFEF}};
    return std::any_of(std::begin(alone), std::end(alone),
                       [character](const Range& range) { return range.first <= character && character <= range.last; });
}

double natural_width(HDC context, const std::wstring& text) {
    SIZE size{};
    GetTextExtentPoint32W(context, text.c_str(), static_cast<int>(text.size()), &size);
    return size.cx;
}

/// The path that a context has recorded, y up, curves as chords.
Outline recorded_path(HDC context) {
    const int count = GetPath(context, nullptr, nullptr, 0);
    if (count <= 0) {
        return {};
    }
    std::vector<POINT> points(static_cast<size_t>(count));
    std::vector<BYTE> kinds(points.size());
    GetPath(context, points.data(), kinds.data(), count);
    const auto at = [&points](size_t i) {
        return Vec2{static_cast<double>(points[i].x), -static_cast<double>(points[i].y)};
    };
    Outline outline;
    const auto end_contour = [&outline] {
        const auto size = static_cast<uint32_t>(outline.points.size());
        if (size > (outline.ends.empty() ? 0 : outline.ends.back())) {
            outline.ends.push_back(size);
        }
    };
    for (size_t i = 0; i < points.size(); ++i) {
        const int kind = kinds[i] & ~PT_CLOSEFIGURE;
        if (kind == PT_MOVETO) {
            end_contour();
        }
        if (kind == PT_BEZIERTO && i + 2 < points.size() && i > 0) {
            const std::array<Vec2, 4> curve = {at(i - 1), at(i), at(i + 1), at(i + 2)};
            for (int chord = 1; chord <= chords; ++chord) {
                const double t = static_cast<double>(chord) / chords;
                const double s = 1 - t;
                outline.points.push_back(curve[0] * (s * s * s) + curve[1] * (3 * s * s * t) +
                                         curve[2] * (3 * s * t * t) + curve[3] * (t * t * t));
            }
            i += 2;
        } else {
            outline.points.push_back(at(i));
        }
    }
    end_contour();
    return outline;
}

}  // namespace

SystemTypesetter::SystemTypesetter() : context_(CreateCompatibleDC(nullptr)) {
    SetBkMode(context_.get(), TRANSPARENT);
    SetTextAlign(context_.get(), TA_BASELINE | TA_LEFT);
}

SystemTypesetter::Face& SystemTypesetter::face(const FontFace& wanted) {
    const auto [place, added] = faces_.try_emplace(Key{wanted.family, wanted.bold, wanted.italic});
    Face& face = place->second;
    if (added) {
        face.font.reset(CreateFontW(-em, 0, 0, 0, wanted.bold ? FW_BOLD : FW_NORMAL, wanted.italic, FALSE, FALSE,
                                    DEFAULT_CHARSET, OUT_TT_PRECIS, CLIP_DEFAULT_PRECIS, ANTIALIASED_QUALITY,
                                    DEFAULT_PITCH | FF_SWISS, wanted.family.c_str()));
        const TextShape capital = outlined(face, L"H", false);
        for (const Vec2 point : capital.outline.points) {
            face.capitals = std::max(face.capitals, point.y);
        }
        const std::wstring sample = L"The quick brown fox jumps over the lazy dog 0123456789";
        if (wanted.family == TextStyles::usual_family) {
            const double wide = outlined(face, sample, false).width;
            face.narrowing = wide > 0 ? std::min(1.0, estimated_width(sample) / wide) : 1;
        }
    }
    return face;
}

bool SystemTypesetter::has_letters(const Face& face, const std::wstring& text) {
    SelectObject(context_.get(), face.font.get());
    std::vector<WORD> glyphs(text.size());
    const DWORD found = GetGlyphIndicesW(context_.get(), text.c_str(), static_cast<int>(text.size()), glyphs.data(),
                                         GGI_MARK_NONEXISTING_GLYPHS);
    return found != GDI_ERROR && std::find(glyphs.begin(), glyphs.end(), WORD{0xFFFF}) == glyphs.end();
}

/// The shape of a text that one face draws, in heights of its capitals, before any narrowing.
TextShape SystemTypesetter::outlined(const Face& face, const std::wstring& text, bool from_right) {
    HDC const context = context_.get();
    SelectObject(context, face.font.get());
    BeginPath(context);
    ExtTextOutW(context, 0, 0, from_right ? ETO_RTLREADING : 0, nullptr, text.c_str(), static_cast<UINT>(text.size()),
                nullptr);
    EndPath(context);
    TextShape shape;
    shape.outline = recorded_path(context);
    AbortPath(context);
    // The system does not measure letters as they look beside each other: there the ink says how wide they are.
    double width = std::all_of(text.begin(), text.end(), stands_alone) ? natural_width(context, text) : 0;
    for (Vec2& point : shape.outline.points) {
        width = std::max(width, point.x);
        point = point * (1 / face.capitals);
    }
    shape.width = width / face.capitals;
    return shape;
}

/// The face itself, or one that has the letters that it lacks.
const SystemTypesetter::Face& SystemTypesetter::able_face(const Face& own, const FontFace& wanted,
                                                          const std::wstring& text) {
    if (has_letters(own, text)) {
        return own;
    }
    for (const wchar_t* const family : helpers) {
        const Face& helper = face({family, wanted.bold, wanted.italic});
        if (has_letters(helper, text)) {
            return helper;
        }
    }
    return own;
}

/// A text of which one face alone has not all letters: each part in a face that has them, side by side.
TextShape SystemTypesetter::patched(const Face& own, const FontFace& wanted, const std::wstring& text,
                                    bool from_right) {
    TextShape whole;
    for (size_t begin = 0; begin < text.size();) {
        const size_t at = from_right ? text.size() - 1 - begin : begin;
        const Face& able = able_face(own, wanted, text.substr(at, 1));
        size_t length = 1;
        const auto next = [&] { return from_right ? at - length : at + length; };
        while (begin + length < text.size() && has_letters(able, text.substr(next(), 1))) {
            ++length;
        }
        const std::wstring part = text.substr(from_right ? at + 1 - length : at, length);
        const TextShape shape = outlined(able, part, from_right);
        whole.outline.append(shape.outline, whole.width);
        whole.width += shape.width;
        begin += length;
    }
    return whole;
}

/// The shape of a text in heights of its capitals, narrowed, from whichever faces have its letters.
TextShape SystemTypesetter::made(const Face& own, const FontFace& wanted, const std::wstring& text, bool from_right) {
    const Face& able = able_face(own, wanted, text);
    TextShape shape = text.size() == 1 || has_letters(able, text) ? outlined(able, text, from_right)
                                                                  : patched(own, wanted, text, from_right);
    for (Vec2& point : shape.outline.points) {
        point.x *= own.narrowing;
    }
    shape.width *= own.narrowing;
    return shape;
}

const TextShape& SystemTypesetter::line_shape(Face& own, const FontFace& wanted, const TextItem& item) {
    const std::wstring name = (item.from_right ? L"<" : L">") + item.text;
    const auto found = own.lines.find(name);
    if (found != own.lines.end()) {
        return found->second;
    }
    TextShape shape = made(own, wanted, item.text, item.from_right);
    own.points_of_lines += shape.outline.points.size();
    if (own.points_of_lines > most_points) {
        own.lines.clear();
        own.points_of_lines = shape.outline.points.size();
    }
    return own.lines.emplace(name, std::move(shape)).first->second;
}

/// Shapes of letters are kept for good: there are no more than 65536.
const TextShape& SystemTypesetter::letter_shape(Face& own, const FontFace& wanted, wchar_t letter) {
    const auto found = own.letters.find(letter);
    if (found != own.letters.end()) {
        return found->second;
    }
    return own.letters.emplace(letter, made(own, wanted, std::wstring(1, letter), false)).first->second;
}

const TextShape& SystemTypesetter::shape(const TextItem& item, const FontFace& wanted) {
    Face& own = face(wanted);
    if (!std::all_of(item.text.begin(), item.text.end(), stands_alone)) {
        return line_shape(own, wanted, item);
    }
    line_.outline.clear();
    line_.width = 0;
    for (const wchar_t letter : item.text) {
        const TextShape& next = letter_shape(own, wanted, letter);
        line_.outline.append(next.outline, line_.width);
        line_.width += next.width;
    }
    return line_;
}

}  // namespace host
