#include "bidi/type_search.h"

#include "bidi/system_character_types.h"

namespace corvanes {
namespace {

template <class TypeAt, class Group>
bool find_type(TypeAt type_at, Group group, int limit, int& position, BidiType& found, bool forward) {
    const int step = forward ? 1 : -1;
    for (int i = position; forward ? i <= limit : i >= 0; i += step) {
        const BidiType type = type_at(i);
        if (group(type)) {
            position = i;
            found = type;
            return true;
        }
    }
    return false;
}

auto types_of(const BidiType* types) {
    return [types](int i) { return types[i]; };
}

auto types_of(const char* text) {
    return [text](int i) { return GetCharBidiType(static_cast<unsigned char>(text[i]), system_default_locale); };
}

}  // namespace

bool FindStrongType(const BidiType* types, int limit, int& position, BidiType& found, bool forward) {
    return find_type(types_of(types), IsStrongType, limit, position, found, forward);
}

bool FindWeakType(const BidiType* types, int limit, int& position, BidiType& found, bool forward) {
    return find_type(types_of(types), IsWeakType, limit, position, found, forward);
}

bool FindNeutralType(const BidiType* types, int limit, int& position, BidiType& found, bool forward) {
    return find_type(types_of(types), IsNeutralType, limit, position, found, forward);
}

bool FindStrongType(const char* text, int limit, int& position, BidiType& found, bool forward) {
    return find_type(types_of(text), IsStrongType, limit, position, found, forward);
}

bool FindWeakType(const char* text, int limit, int& position, BidiType& found, bool forward) {
    return find_type(types_of(text), IsWeakType, limit, position, found, forward);
}

bool FindNeutralType(const char* text, int limit, int& position, BidiType& found, bool forward) {
    return find_type(types_of(text), IsNeutralType, limit, position, found, forward);
}

}  // namespace corvanes
