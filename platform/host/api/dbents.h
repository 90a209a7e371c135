// The entities that open as classes of their own.
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
struct Text;
enum class TextKind : unsigned char;
}  // namespace dxf

class AcDbAttribute;
class AcDbBlockReference;

class AcDbLine : public AcDbEntity {
  public:
    ACRX_DECLARE_MEMBERS(AcDbLine);
    AcDbLine() = default;
    AcDbLine(const AcGePoint3d& start, const AcGePoint3d& end) : start_(start), end_(end) {}

  protected:
    void read_fields(const dxf::RecordFields& from) override;
    void write_fields(dxf::FieldWriter& to) const override;

  private:
    AcGePoint3d start_;
    AcGePoint3d end_;
};

class AcDbText : public AcDbEntity {
  public:
    ACRX_DECLARE_MEMBERS(AcDbText);
    AcDbText();
    AcDbText(const AcGePoint3d& position, const ACHAR* text, AcDbObjectId style = AcDbObjectId(), double height = 0,
             double rotation = 0);

    AcGePoint3d position() const;
    Acad::ErrorStatus setPosition(const AcGePoint3d& point);
    /// The point that a justified text keeps to; without justification it has no meaning and cannot be set
    /// (eNotApplicable).
    Acad::ErrorStatus setAlignmentPoint(const AcGePoint3d& point);

    double height() const;
    Acad::ErrorStatus setHeight(double height);
    Acad::ErrorStatus setWidthFactor(double factor);
    /// Radians.
    double rotation() const;
    Acad::ErrorStatus setRotation(double angle);

    Acad::ErrorStatus setHorizontalMode(AcDb::TextHorzMode mode);

    /// In host memory, to be released with acutDelString.
    ACHAR* textString() const;
    Acad::ErrorStatus setTextString(const ACHAR* text);

    Acad::ErrorStatus setTextStyle(AcDbObjectId style);

  protected:
    AcDbText(dxf::TextKind kind, const AcGePoint3d& position, const ACHAR* text, AcDbObjectId style);
    void read_fields(const dxf::RecordFields& from) override;
    void write_fields(dxf::FieldWriter& to) const override;
    /// Moves, turns, stretches and mirrors the text in its plane.
    void transform_text(const AcGeMatrix3d& transform);

    std::shared_ptr<dxf::Text> fields_;  ///< never null, this object's alone

  private:
    friend class AcDbAttribute;
};

class AcDbAttributeDefinition : public AcDbText {
  public:
    ACRX_DECLARE_MEMBERS(AcDbAttributeDefinition);
    AcDbAttributeDefinition();
    AcDbAttributeDefinition(const AcGePoint3d& position, const ACHAR* text, const ACHAR* tag, const ACHAR* prompt,
                            AcDbObjectId style = AcDbObjectId());

    /// Both in host memory, to be released with acutDelString.
    ACHAR* prompt() const;
    ACHAR* tag() const;

    Acad::ErrorStatus setInvisible(Adesk::Boolean set);
    Adesk::Boolean isConstant() const;
    Acad::ErrorStatus setVerifiable(Adesk::Boolean set);
    Adesk::Boolean isPreset() const;
    Acad::ErrorStatus setPreset(Adesk::Boolean set);
};

class AcDbAttribute : public AcDbText {
  public:
    ACRX_DECLARE_MEMBERS(AcDbAttribute);
    AcDbAttribute();
    ~AcDbAttribute() override;
    AcDbAttribute(const AcGePoint3d& position, const ACHAR* text, const ACHAR* tag,
                  AcDbObjectId style = AcDbObjectId());

    /// In host memory, to be released with acutDelString.
    ACHAR* tag() const;
    /// Takes everything from a definition, with its geometry transformed (by the reference's blockTransform()). The
    /// text is the definition's default.
    Acad::ErrorStatus setAttributeFromBlock(const AcDbAttributeDefinition* definition,
                                            const AcGeMatrix3d& blockTransform);

  protected:
    void flush() override;

  private:
    friend class AcDbBlockReference;

    AcDbBlockReference* reference_ = nullptr;  ///< while both are open
};

/// An INSERT.
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
