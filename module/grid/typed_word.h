// TypedWord, the letters that a person types in quick succession to get to an item that begins with them. Pure.
#pragma once

#include <string>

namespace corvanes {

class TypedWord {
  public:
    void clear() { letters_.clear(); }
    // Adds a letter that was typed at a time, in milliseconds; after a pause the word begins anew.
    void add(wchar_t letter, unsigned long long time);
    // The word in lower case.
    const std::wstring& letters() const { return letters_; }
    // Whether one letter was typed repeatedly, which may ask for the next item that begins with it.
    bool is_one_letter() const { return letters_.find_first_not_of(letters_.front()) == std::wstring::npos; }

  private:
    std::wstring letters_;
    unsigned long long last_ = 0;
};

}  // namespace corvanes
