// Times the reordering of lines, beside FriBidi and ICU in the same run where they are built in.
#ifdef BIDI_REFERENCES
#include <fribidi/fribidi.h>
#include <unicode/ubidi.h>
#endif

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <random>
#include <string>
#include <vector>

#include "bidi/reordering.h"

namespace {

constexpr size_t line_length = 1000;

/// Words of both scripts, numbers, separators and brackets, as bills of materials hold them.
std::wstring mixed_line(std::mt19937& random) {
    std::wstring line;
    while (line.size() < line_length) {
        const size_t word_length = 2 + random() % 8;
        const unsigned kind = random() % 8;
        for (size_t i = 0; i < word_length; ++i) {
            const wchar_t first = kind < 4 ? L'\x5D0' : kind < 7 ? L'a' : L'0';
            line.push_back(static_cast<wchar_t>(first + random() % (kind < 4 ? 27 : kind < 7 ? 26 : 10)));
        }
        line += random() % 10 == 0 ? L" (" : random() % 10 == 1 ? L") " : random() % 10 == 2 ? L", " : L" ";
    }
    line.resize(line_length);
    return line;
}

/// Nanoseconds for each character in the fastest of many rounds over all lines.
template <class Reorder>
double measure(size_t lines, Reorder reorder) {
    double best = 1e9;
    for (int round = 0; round < 40; ++round) {
        const auto start = std::chrono::steady_clock::now();
        for (size_t line = 0; line < lines; ++line) {
            reorder(line);
        }
        const std::chrono::duration<double, std::nano> taken = std::chrono::steady_clock::now() - start;
        best = std::min(best, taken.count() / static_cast<double>(lines * line_length));
    }
    return best;
}

double measure_ours(const std::vector<std::wstring>& lines) {
    std::wstring visual(line_length + 1, L'\0');
    std::vector<std::uint32_t> map(line_length + 1);
    return measure(lines.size(), [&](size_t i) {
        corvanes::LogicalToVisual(lines[i].data(), line_length, visual.data(), map.data(), static_cast<int>(i % 2));
    });
}

#ifdef BIDI_REFERENCES
double measure_fribidi(const std::vector<std::wstring>& lines) {
    std::vector<std::vector<FriBidiChar>> texts;
    for (const std::wstring& line : lines) {
        texts.emplace_back(line.begin(), line.end());
    }
    std::vector<FriBidiChar> visual(line_length + 1);
    std::vector<FriBidiStrIndex> map(line_length + 1);
    return measure(lines.size(), [&](size_t i) {
        FriBidiParType base = i % 2 != 0 ? FRIBIDI_PAR_LTR : FRIBIDI_PAR_RTL;
        fribidi_log2vis(texts[i].data(), line_length, &base, visual.data(), nullptr, map.data(), nullptr);
    });
}

double measure_icu(const std::vector<std::wstring>& lines) {
    std::vector<std::u16string> texts;
    for (const std::wstring& line : lines) {
        texts.emplace_back(line.begin(), line.end());
    }
    UBiDi* bidi = ubidi_open();
    std::vector<UChar> visual(line_length + 1);
    std::vector<int32_t> map(line_length + 1);
    const double taken = measure(lines.size(), [&](size_t i) {
        UErrorCode status = U_ZERO_ERROR;
        ubidi_setPara(bidi, texts[i].data(), line_length, i % 2 != 0 ? 0 : 1, nullptr, &status);
        ubidi_writeReordered(bidi, visual.data(), line_length + 1, UBIDI_DO_MIRRORING, &status);
        ubidi_getVisualMap(bidi, map.data(), &status);
    });
    ubidi_close(bidi);
    return taken;
}
#endif

}  // namespace

int main() {
    std::mt19937 random(1);
    std::vector<std::wstring> lines;
    for (int i = 0; i < 100; ++i) {
        lines.push_back(mixed_line(random));
    }
    const double ours = measure_ours(lines);
    std::printf("reordering of %zu-character mixed lines: %.2f ns a character\n", line_length, ours);
#ifdef BIDI_REFERENCES
    const double fribidi = measure_fribidi(lines);
    const double icu = measure_icu(lines);
    std::printf("FriBidi: %.2f (%.1f times), ICU: %.2f (%.1f times)\n", fribidi, fribidi / ours, icu, icu / ours);
#endif
}
