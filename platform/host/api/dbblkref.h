// AcDbBlockReference: an INSERT.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "adesk.h"
#include "dbmain.h"
#include "gemat3d.h"
#include "gepnt3d.h"
#include "gescl3d.h"
#include "gevec3d.h"

namespace dxf {
struct Insert;
}

class AcDbAttribute;

class AcDbBlockReference : public AcDbEntity {
  public:
    ACRX_DECLARE_MEMBERS(AcDbBlockReference);
    AcDbBlockReference() = default;
    ~AcDbBlockReference() override;
    AcDbBlockReference(const AcGePoint3d& position, AcDbObjectId blockTableRecord);

    /// Null where the drawing has no such block.
    AcDbObjectId blockTableRecord() const;

    /// In world coordinates.
    AcGePoint3d position() const;
    AcGeScale3d scaleFactors() const;
    /// No factor may be 0 (eInvalidInput).
    Acad::ErrorStatus setScaleFactors(const AcGeScale3d& scale);
    /// Radians.
    double rotation() const;
    Acad::ErrorStatus setRotation(double angle);

    /// The direction of the z axis that the reference lies across.
    AcGeVector3d normal() const;

    /// From the block's space to the reference's, the block's origin taken off.
    AcGeMatrix3d blockTransform() const;

    /// Gives an attribute to a reference that was added to the drawing and has not been closed since (else
    /// eNotApplicable). The attribute must be closed, and before its reference.
    Acad::ErrorStatus appendAttribute(AcDbAttribute* attribute);

  protected:
    void read_fields(const dxf::RecordFields& from) override;
    void write_fields(dxf::FieldWriter& to) const override;
    void flush() override;
    dxf::Insert& placement() const;
    /// The same without loading the other fields, for reading at once: until another one is asked.
    const dxf::Insert& placed() const;

  private:
    friend class AcDbAttribute;
    struct OwnedAttribute {
        AcDbAttribute* open;  ///< null once it was closed
        std::string record;
    };
    std::vector<OwnedAttribute>::iterator owned(const AcDbAttribute& attribute);

    mutable std::shared_ptr<dxf::Insert> placement_;  ///< null until it is asked for: most are opened for their block
    AcDbObjectId block_;
    std::wstring block_name_;  ///< as the record spells it; empty for one that no record has told
    std::vector<OwnedAttribute> attributes_;
    std::string sequence_end_;
};

/// An INSERT that stands in several columns or rows.
class AcDbMInsertBlock : public AcDbBlockReference {
  public:
    ACRX_DECLARE_MEMBERS(AcDbMInsertBlock);

    /// At least 1.
    Adesk::UInt16 columns() const;
    Adesk::UInt16 rows() const;
};
