#include "bidi/line_classes.h"

#include <emmintrin.h>

#include <algorithm>

namespace corvanes {
namespace {

using Word = PositionSet::Word;

/// Bit `bit` of each of 64 bytes.
template <int bit>
Word collect_bit(const __m128i (&bytes)[4]) {
    constexpr int to_top = 7 - bit;
    Word collected = 0;
    for (int i = 0; i < 4; ++i) {
        // The bits that come from the byte's neighbour stay below the top one, and only the top one is collected.
        const auto part = static_cast<std::uint16_t>(_mm_movemask_epi8(_mm_slli_epi16(bytes[i], to_top)));
        collected |= Word{part} << 16 * i;
    }
    return collected;
}

}  // namespace

void LineClasses::resize(size_t new_length) {
    length = new_length;
    words = PositionSet::words_for(length);
    for (PositionSet* set :
         {&left_to_right, &right_to_left, &european_number, &european_separator, &european_terminator, &arabic_number,
          &common_separator, &neutral, &untyped, &bracket, &space, &separator}) {
        set->resize(words);
    }
    if (classes_.size() < words * PositionSet::word_size) {
        classes_.resize(words * PositionSet::word_size);
    }
}

void LineClasses::classify(std::wstring_view text, const CharacterTypes& types) {
    resize(text.size());
    std::uint8_t* classes = classes_.data();
    types.classify(text, classes);
    std::fill(classes + length, classes + words * PositionSet::word_size, std::uint8_t{0});
    for (size_t w = 0; w < words; ++w) {
        sort_word(w, classes + w * PositionSet::word_size);
    }
    if (length % PositionSet::word_size != 0) {
        untyped[words - 1] &= (Word{1} << length % PositionSet::word_size) - 1;
    }
}

void LineClasses::sort_word(size_t word, const std::uint8_t* classes) {
    static_assert(CharacterTypes::kind_shift == 4 && bidi_type_count <= 16);
    __m128i bytes[4];
    for (size_t i = 0; i < 4; ++i) {
        bytes[i] = _mm_loadu_si128(reinterpret_cast<const __m128i*>(classes + 16 * i));
    }
    const Word bit0 = collect_bit<0>(bytes);
    const Word bit1 = collect_bit<1>(bytes);
    const Word bit2 = collect_bit<2>(bytes);
    const Word is_neutral = collect_bit<3>(bytes);
    const Word kind0 = collect_bit<4>(bytes);
    const Word kind1 = collect_bit<5>(bytes);

    const Word below_four = ~bit2 & ~is_neutral;
    untyped[word] = below_four & ~bit1 & ~bit0;
    left_to_right[word] = below_four & ~bit1 & bit0;
    right_to_left[word] = below_four & bit1 & ~bit0;
    european_number[word] = below_four & bit1 & bit0;
    const Word four_to_seven = bit2 & ~is_neutral;
    european_separator[word] = four_to_seven & ~bit1 & ~bit0;
    european_terminator[word] = four_to_seven & ~bit1 & bit0;
    arabic_number[word] = four_to_seven & bit1 & ~bit0;
    common_separator[word] = four_to_seven & bit1 & bit0;
    neutral[word] = is_neutral;

    bracket[word] = kind0 & ~kind1;
    space[word] = kind1 & ~kind0;
    separator[word] = kind1 & kind0;
}

}  // namespace corvanes
