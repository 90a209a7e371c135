#include <aced.h>
#include <dbapserv.h>
#include <dbsymtb.h>

#include <memory>

#include "pricelist/block_names.h"

namespace {

void add_named(BlockNamesCont& names, AcDbBlockTableRecord& record) {
    wchar_t* text = nullptr;
    if (record.getName(text) != Acad::eOk) {
        return;
    }
    const std::unique_ptr<wchar_t, decltype(&acad_free)> name(text, acad_free);
    if (name && name.get()[0] != L'*') {
        names.Add(name.get());
    }
}

}  // namespace

int BlockNamesCont::Fill() {
    Clear();
    AcDbDatabase* const drawing = acdbHostApplicationServices()->workingDatabase();
    AcDbBlockTable* table = nullptr;
    if (drawing == nullptr || drawing->getSymbolTable(table, AcDb::kForRead) != Acad::eOk) {
        return 1;
    }
    AcDbBlockTableIterator* walk = nullptr;
    if (table->newIterator(walk, true, true) == Acad::eOk) {
        const std::unique_ptr<AcDbBlockTableIterator> iterator(walk);
        for (; !iterator->done(); iterator->step(true, true)) {
            AcDbBlockTableRecord* record = nullptr;
            if (iterator->getRecord(record, AcDb::kForRead) == Acad::eOk) {
                add_named(*this, *record);
                record->close();
            }
        }
    }
    table->close();
    return 1;
}
