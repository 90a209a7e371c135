// A fixture for the tests of the database: open drawings made from text.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "acdbads.h"
#include "acutads.h"
#include "base/code_page.h"
#include "dbapserv.h"
#include "dbents.h"
#include "dbobjptr.h"
#include "dbsymtb.h"
#include "platform/host/database/database_store.h"
#include "tests/support/drawing_groups.h"
#include "tests/support/temporary_folder.h"

/// The groups with no blanks before their codes.
inline std::string plain(const std::string& bytes) {
    std::string text;
    bool code = true;
    for (size_t at = 0; at < bytes.size(); code = !code) {
        const size_t end = bytes.find('\n', at) + 1;
        const size_t begin = code ? std::min(bytes.find_first_not_of(' ', at), end) : at;
        text += bytes.substr(begin, end - begin);
        at = end;
    }
    return text;
}

/// An open drawing that is the working one.
class OpenDrawing {
  public:
    explicit OpenDrawing(std::string bytes) {
        host::OpenDatabase opened = host::open_database_from_bytes(std::move(bytes), "test.dxf");
        if (!opened) {
            throw std::runtime_error(opened.reason().message());
        }
        database_ = *std::move(opened);
        acdbHostApplicationServices()->setWorkingDatabase(database_.get());
    }
    ~OpenDrawing() { acdbHostApplicationServices()->setWorkingDatabase(nullptr); }
    OpenDrawing(const OpenDrawing&) = delete;
    OpenDrawing& operator=(const OpenDrawing&) = delete;

    AcDbDatabase* operator->() const { return database_.get(); }
    AcDbDatabase& operator*() const { return *database_; }
    host::DatabaseStore& store() const { return database_->store(); }
    dxf::Drawing& drawing() const { return database_->store().drawing(); }

    /// The id of the nth record of the ENTITIES section.
    AcDbObjectId entity(size_t index) const { return store().id_of_record(drawing().entities()[index]); }
    AcDbObjectId block(std::wstring_view name) const {
        return store().table_entry_named(host::TableKind::blocks, name);
    }
    /// The drawing as it would be saved.
    std::string saved() const {
        const test_support::TemporaryFolder folder("database_test");
        EXPECT_TRUE(drawing().save(folder / "saved.dxf"));
        return folder.read("saved.dxf");
    }

  private:
    std::unique_ptr<AcDbDatabase> database_;
};

/// Copies the text and releases it.
inline std::wstring take(ACHAR* text) {
    const std::unique_ptr<ACHAR, decltype(&acad_free)> owner(text, acad_free);
    return text == nullptr ? std::wstring(L"(null)") : std::wstring(text);
}

inline std::wstring name_of(const AcDbSymbolTableRecord& record) {
    ACHAR* name = nullptr;
    return record.getName(name) == Acad::eOk ? take(name) : std::wstring();
}

/// The name of a block table record by id, or the status of opening it.
inline std::wstring block_name(AcDbObjectId id) {
    const AcDbObjectPointer<AcDbBlockTableRecord> record(id, AcDb::kForRead);
    return record.openStatus() == Acad::eOk ? name_of(*record) : L"(" + std::to_wstring(record.openStatus()) + L")";
}

/// The names of a table's records as its iterator gives them.
template <class Table, class Record, class Iterator>
std::vector<std::wstring> walk(const OpenDrawing& drawing, bool forward, bool skip_erased) {
    Table* table = nullptr;
    EXPECT_EQ(drawing->getSymbolTable(table, AcDb::kForRead), Acad::eOk);
    Iterator* made = nullptr;
    EXPECT_EQ(table->newIterator(made, forward, skip_erased), Acad::eOk);
    const std::unique_ptr<Iterator> iterator(made);
    std::vector<std::wstring> names;
    for (; !iterator->done(); iterator->step(forward, skip_erased)) {
        Record* record = nullptr;
        EXPECT_EQ(iterator->getRecord(record, AcDb::kForRead, true), Acad::eOk);
        names.push_back(name_of(*record));
        EXPECT_EQ(record->ownerId(), table->objectId());
        record->close();
    }
    AcDbObjectId id;
    EXPECT_EQ(iterator->getRecordId(id), Acad::eInvalidIndex);
    table->close();
    return names;
}

constexpr auto layers = walk<AcDbLayerTable, AcDbLayerTableRecord, AcDbLayerTableIterator>;
constexpr auto styles = walk<AcDbTextStyleTable, AcDbTextStyleTableRecord, AcDbTextStyleTableIterator>;
constexpr auto blocks = walk<AcDbBlockTable, AcDbBlockTableRecord, AcDbBlockTableIterator>;

/// A result buffer list that is released with its owner.
using List = std::unique_ptr<resbuf, decltype(&acutRelRb)>;

inline void put(ads_u_val& value, int number) {
    value.rint = static_cast<short>(number);
}
inline void put(ads_u_val& value, double number) {
    value.rreal = number;
}
inline void put(ads_u_val& value, const ACHAR* text) {
    value.rstring = acad__strdup(text);
}
inline void put(ads_u_val& value, const ads_real* point) {
    std::copy(point, point + 3, value.rpoint);
}

/// A list of group codes, each with its value.
inline List list() {
    return {nullptr, acutRelRb};
}
template <class Value, class... More>
List list(int code, Value value, More... more) {
    List first(acutNewRb(code), acutRelRb);
    put(first->resval, value);
    first->rbnext = list(more...).release();
    return first;
}
