// The layer table.
#pragma once

#include "dbsymtbl.h"

class AcDbLayerTableRecord : public AcDbSymbolTableRecord {
  public:
    ACRX_DECLARE_MEMBERS(AcDbLayerTableRecord);
    AcDbLayerTableRecord() = default;

    bool isFrozen() const;
    Acad::ErrorStatus setIsFrozen(bool frozen);
    bool isOff() const;
    void setIsOff(bool off);
    bool isLocked() const;
    void setIsLocked(bool locked);
    /// 1 to 255.
    Adesk::UInt16 colorIndex() const;
    Acad::ErrorStatus setColorIndex(Adesk::UInt16 color);

  protected:
    void read_fields(const host::FieldReader& from) override;
    void write_fields(host::FieldWriter& to) const override;

  private:
    bool flag(int bit) const;
    Acad::ErrorStatus set_flag(int bit, bool set);

    int color_ = 7;  ///< negative: the layer is off
    std::wstring line_type_ = L"CONTINUOUS";
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
