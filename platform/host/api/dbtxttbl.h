// The text style table.
#pragma once

#include "dbsymtbl.h"

class AcDbTextStyleTableRecord : public AcDbSymbolTableRecord {
  public:
    ACRX_DECLARE_MEMBERS(AcDbTextStyleTableRecord);
    AcDbTextStyleTableRecord() = default;

    /// In host memory, to be released with acutDelString.
    Acad::ErrorStatus fileName(ACHAR*& file) const;
    Acad::ErrorStatus setFileName(const ACHAR* file);
    Acad::ErrorStatus bigFontFileName(ACHAR*& file) const;
    Acad::ErrorStatus setBigFontFileName(const ACHAR* file);
    /// 0: each text has its own.
    double textSize() const;
    Acad::ErrorStatus setTextSize(double size);
    double xScale() const;
    Acad::ErrorStatus setXScale(double factor);
    bool isShapeFile() const;

  protected:
    void read_fields(const host::FieldReader& from) override;
    void write_fields(host::FieldWriter& to) const override;

  private:
    std::wstring file_;
    std::wstring big_font_;
    double size_ = 0.0;
    double prior_size_ = 0.2;
    double x_scale_ = 1.0;
    double oblique_ = 0.0;
    int generation_ = 0;
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
