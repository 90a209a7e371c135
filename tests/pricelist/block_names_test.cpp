#include "pricelist/block_names.h"

#include <gtest/gtest.h>

namespace {

class BlockNames : public testing::Test {
  protected:
    void fill(std::initializer_list<const wchar_t*> list) {
        names_.Clear();
        for (const wchar_t* name : list) {
            names_.Add(name);
        }
        names_.Sort();
    }
    std::wstring list() const {
        CString text;
        names_.GetList(text);
        return static_cast<const wchar_t*>(text);
    }

    BlockNamesCont names_;
};

TEST_F(BlockNames, ListsUnusedNamesSortedWithoutRegardToCase) {
    fill({L"b", L"A", L"c", L"\u05d3\u05dc\u05ea", L"Door 80"});
    EXPECT_EQ(list(), L"A\nb\nc\nDoor 80\n\u05d3\u05dc\u05ea\n");
    names_.MarkUsed(L"a", 1);
    names_.MarkUsed(L"DOOR 80", 1);
    names_.MarkUsed(L"missing", 1);
    EXPECT_EQ(list(), L"b\nc\n\u05d3\u05dc\u05ea\n");
    names_.MarkUsed(L"a", 0);
    EXPECT_EQ(list(), L"A\nb\nc\n\u05d3\u05dc\u05ea\n");
    names_.ResetUsed();
    EXPECT_EQ(list(), L"A\nb\nc\nDoor 80\n\u05d3\u05dc\u05ea\n");
}

TEST_F(BlockNames, FindsEveryNameOfAListOfAnyLength) {
    for (int length = 0; length <= 9; ++length) {
        names_.Clear();
        for (int i = 0; i < length; ++i) {
            names_.Add(std::wstring(1, static_cast<wchar_t>(L'b' + 2 * i)).c_str());
        }
        names_.Sort();
        const std::wstring all = list();
        for (int i = 0; i <= 2 * length; ++i) {
            const std::wstring name(1, static_cast<wchar_t>(L'A' + i));
            names_.MarkUsed(name.c_str(), 1);
            EXPECT_EQ(list().size(), all.size() - (i % 2 == 1 ? 2 : 0)) << length << ' ' << i;
            names_.ResetUsed();
        }
    }
}

}  // namespace
