#include "grid/typed_word.h"

#include "base/case_folding.h"

namespace corvanes {

void TypedWord::add(wchar_t letter, unsigned long long time) {
    constexpr unsigned long long pause = 1000;
    if (time - last_ > pause) {
        letters_.clear();
    }
    last_ = time;
    letters_ += base::to_lower(letter);
}

}  // namespace corvanes
