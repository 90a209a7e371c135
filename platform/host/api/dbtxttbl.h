// The text style table.
#pragma once

#include <memory>

#include "dbsymtbl.h"

namespace dxf {
struct TextStyle;
}

class AcDbTextStyleTableRecord : public AcDbSymbolTableRecord {
  public:
    ACRX_DECLARE_MEMBERS(AcDbTextStyleTableRecord);
    AcDbTextStyleTableRecord();

    Acad::ErrorStatus setFileName(const ACHAR* file);

  protected:
    void read_fields(const dxf::RecordFields& from) override;
    void write_fields(dxf::FieldWriter& to) const override;

  private:
    std::shared_ptr<dxf::TextStyle> fields_;  ///< never null, this object's alone; name and flags count in the base
};

class AcDbTextStyleTableIterator : public AcDbTypedSymbolTableIterator<AcDbTextStyleTableRecord> {
  public:
    using AcDbTypedSymbolTableIterator::AcDbTypedSymbolTableIterator;
};

class AcDbTextStyleTable : public AcDbTypedSymbolTable<AcDbTextStyleTableRecord, AcDbTextStyleTableIterator> {
  public:
    ACRX_DECLARE_MEMBERS(AcDbTextStyleTable);
    AcDbTextStyleTable();
};
