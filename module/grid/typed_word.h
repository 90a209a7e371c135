// TypedWord, the letters that a person types one soon after another to get to what begins with them. Pure.
#pragma once

#include <string>

namespace corvanes {

class TypedWord {
  public:
    void clear() { letters_.clear(); }
    // A letter typed at a time in milliseconds; after a pause it begins anew.
    void add(wchar_t letter, unsigned long long time);
    // In lower case.
    const std::wstring& letters() const { return letters_; }
    // Whether one letter was typed again and again: it may stand for the next thing that begins with it.
    bool is_one_letter() const { return letters_.find_first_not_of(letters_.front()) == std::wstring::npos; }

  private:
    std::wstring letters_;
    unsigned long long last_ = 0;
};

}  // namespace corvanes
