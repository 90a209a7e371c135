// The layer table.
#pragma once

#include <memory>

#include "dbsymtbl.h"

namespace dxf {
struct Layer;
}

class AcDbLayerTableRecord : public AcDbSymbolTableRecord {
  public:
    ACRX_DECLARE_MEMBERS(AcDbLayerTableRecord);
    AcDbLayerTableRecord();

    bool isFrozen() const;
    bool isOff() const;
    bool isLocked() const;
    /// The caller sees to it that the current layer is not frozen.
    Acad::ErrorStatus setIsFrozen(bool frozen);
    void setIsOff(bool off);
    void setIsLocked(bool locked);

  protected:
    void read_fields(const dxf::RecordFields& from) override;
    void write_fields(dxf::FieldWriter& to) const override;

  private:
    std::shared_ptr<dxf::Layer> fields_;  ///< never null, this object's alone; name and flags count in the base
};

class AcDbLayerTableIterator : public AcDbTypedSymbolTableIterator<AcDbLayerTableRecord> {
  public:
    using AcDbTypedSymbolTableIterator::AcDbTypedSymbolTableIterator;
};

class AcDbLayerTable : public AcDbTypedSymbolTable<AcDbLayerTableRecord, AcDbLayerTableIterator> {
  public:
    ACRX_DECLARE_MEMBERS(AcDbLayerTable);
    AcDbLayerTable();
};
