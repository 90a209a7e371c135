#include "pricelist/block_names.h"

#include <memory>
#include <string>

#include "base/case_folding.h"

namespace {

std::wstring_view text_of(const CString& text) {
    return {static_cast<const wchar_t*>(text), static_cast<size_t>(text.GetLength())};
}

}  // namespace

int BlockNamesContSort::Compare(blname* const* first, blname* const* second) {
    return base::compare_ignoring_case(text_of((*first)->name), text_of((*second)->name));
}

BlockNamesCont::~BlockNamesCont() {
    DeleteElements();
}

void BlockNamesCont::DeleteElements() noexcept {
    blname* const* const elements = names_.GetData();
    for (INT_PTR i = 0; i < names_.GetSize(); ++i) {
        const std::unique_ptr<blname> owner(elements[i]);
    }
}

void BlockNamesCont::Clear() {
    constexpr INT_PTR growth = 100;
    DeleteElements();
    names_.SetSize(0, growth);
}

void BlockNamesCont::Add(const wchar_t* name) {
    auto element = std::make_unique<blname>();
    element->name = name;
    names_.Add(element.get());
    static_cast<void>(element.release());
}

void BlockNamesCont::Sort() {
    BlockNamesContSort().Sort(names_);
}

void BlockNamesCont::ResetUsed() {
    for (INT_PTR i = 0; i < names_.GetSize(); ++i) {
        names_[i]->used = 0;
    }
}

void BlockNamesCont::MarkUsed(const wchar_t* name, int flag) {
    blname key;
    key.name = name;
    const INT_PTR place = BlockNamesContSort().Find(names_, &key);
    if (place >= 0) {
        names_[place]->used = flag;
    }
}

void BlockNamesCont::GetList(CString& out) const {
    std::wstring list;
    for (INT_PTR i = 0; i < names_.GetSize(); ++i) {
        if (names_[i]->used == 0) {
            list.append(text_of(names_[i]->name)).push_back(L'\n');
        }
    }
    out = CString(list.data(), static_cast<int>(list.size()));
}
