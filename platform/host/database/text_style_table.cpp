#include "dbsymtb.h"

#include "platform/host/database/database_store.h"
#include "platform/host/dxf/entities.h"

ACRX_CONS_DEFINE_MEMBERS(AcDbTextStyleTable, AcDbSymbolTable, 0)
ACRX_DXF_DEFINE_MEMBERS(AcDbTextStyleTableRecord, AcDbSymbolTableRecord, 0, 0, 0, STYLE, 0)

AcDbTextStyleTable::AcDbTextStyleTable() : AcDbTypedSymbolTable(host::TableKind::text_styles) {}

AcDbTextStyleTableRecord::AcDbTextStyleTableRecord() : fields_(std::make_shared<dxf::TextStyle>()) {}

Acad::ErrorStatus AcDbTextStyleTableRecord::setFileName(const ACHAR* file) {
    return file == nullptr ? Acad::eInvalidInput : change(fields_->font_file, file);
}

void AcDbTextStyleTableRecord::read_fields(const dxf::RecordFields& from) {
    AcDbSymbolTableRecord::read_fields(from);
    dxf::read(from, *fields_);
}

void AcDbTextStyleTableRecord::write_fields(dxf::FieldWriter& to) const {
    fields_->name = name_;
    fields_->flags = flags_;
    to.begin(L"STYLE", L"AcDbSymbolTableRecord").subclass(L"AcDbTextStyleTableRecord");
    dxf::write(*fields_, to);
}
