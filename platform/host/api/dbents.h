// The entities that open as classes of their own.
#pragma once

#include "dbblkref.h"
#include "dbmain.h"
#include "gemat3d.h"
#include "gepnt3d.h"
#include "gescl3d.h"

class AcDbLine : public AcDbEntity {
  public:
    ACRX_DECLARE_MEMBERS(AcDbLine);
    AcDbLine() = default;
    AcDbLine(const AcGePoint3d& start, const AcGePoint3d& end) : start_(start), end_(end) {}

    AcGePoint3d startPoint() const;
    AcGePoint3d endPoint() const;
    Acad::ErrorStatus setStartPoint(const AcGePoint3d& point);
    Acad::ErrorStatus setEndPoint(const AcGePoint3d& point);

  protected:
    void read_fields(const host::FieldReader& from) override;
    void write_fields(host::FieldWriter& to) const override;

  private:
    AcGePoint3d start_;
    AcGePoint3d end_;
};

class AcDbText : public AcDbEntity {
  public:
    ACRX_DECLARE_MEMBERS(AcDbText);
    AcDbText() = default;
    AcDbText(const AcGePoint3d& position, const ACHAR* text, AcDbObjectId style = AcDbObjectId(), double height = 0,
             double rotation = 0);

    AcGePoint3d position() const;
    Acad::ErrorStatus setPosition(const AcGePoint3d& point);
    /// The point that a justified text keeps to; without justification it has no meaning and cannot be set
    /// (eNotApplicable).
    AcGePoint3d alignmentPoint() const;
    Acad::ErrorStatus setAlignmentPoint(const AcGePoint3d& point);
    bool isDefaultAlignment() const;

    double height() const;
    Acad::ErrorStatus setHeight(double height);
    double widthFactor() const;
    Acad::ErrorStatus setWidthFactor(double factor);
    /// Radians.
    double rotation() const;
    Acad::ErrorStatus setRotation(double angle);

    AcDb::TextHorzMode horizontalMode() const;
    Acad::ErrorStatus setHorizontalMode(AcDb::TextHorzMode mode);
    AcDb::TextVertMode verticalMode() const;
    Acad::ErrorStatus setVerticalMode(AcDb::TextVertMode mode);

    /// In host memory, to be released with acutDelString.
    ACHAR* textString() const;
    Acad::ErrorStatus setTextString(const ACHAR* text);

    /// Null for a style that the drawing does not define.
    AcDbObjectId textStyle() const;
    Acad::ErrorStatus setTextStyle(AcDbObjectId style);

  protected:
    void read_fields(const host::FieldReader& from) override;
    void write_fields(host::FieldWriter& to) const override;
    /// All of a text but its vertical mode, whose group code the kinds of text do not share.
    void write_text_fields(host::FieldWriter& to) const;
    void read_vertical_mode(const host::FieldReader& from, int code);
    void copy_text(const AcDbText& other);
    /// Moves, turns, stretches and mirrors the text in its plane.
    void transform_text(const AcGeMatrix3d& transform);

  private:
    friend class AcDbAttribute;

    AcGePoint3d position_;
    AcGePoint3d alignment_;
    double height_ = 0.2;
    double width_factor_ = 1.0;
    double rotation_ = 0.0;
    double oblique_ = 0.0;
    std::wstring text_;
    std::wstring style_ = L"Standard";
    int mirroring_ = 0;      ///< as group 71 has it: 2 backward, 4 upside down
    AcDbObjectId style_id_;  ///< while the text is in no drawing
    AcDb::TextHorzMode horizontal_ = AcDb::kTextLeft;
    AcDb::TextVertMode vertical_ = AcDb::kTextBase;
};

class AcDbAttributeDefinition : public AcDbText {
  public:
    ACRX_DECLARE_MEMBERS(AcDbAttributeDefinition);
    AcDbAttributeDefinition() = default;
    AcDbAttributeDefinition(const AcGePoint3d& position, const ACHAR* text, const ACHAR* tag, const ACHAR* prompt,
                            AcDbObjectId style = AcDbObjectId());

    ACHAR* prompt() const;
    Acad::ErrorStatus setPrompt(const ACHAR* prompt);
    ACHAR* tag() const;
    Acad::ErrorStatus setTag(const ACHAR* tag);

    Adesk::Boolean isInvisible() const;
    Acad::ErrorStatus setInvisible(Adesk::Boolean set);
    Adesk::Boolean isConstant() const;
    Acad::ErrorStatus setConstant(Adesk::Boolean set);
    Adesk::Boolean isVerifiable() const;
    Acad::ErrorStatus setVerifiable(Adesk::Boolean set);
    Adesk::Boolean isPreset() const;
    Acad::ErrorStatus setPreset(Adesk::Boolean set);

  protected:
    void read_fields(const host::FieldReader& from) override;
    void write_fields(host::FieldWriter& to) const override;

  private:
    friend class AcDbAttribute;
    bool flag(int bit) const;
    Acad::ErrorStatus set_flag(int bit, bool set);

    std::wstring prompt_;
    std::wstring tag_;
    int flags_ = 0;
};

class AcDbAttribute : public AcDbText {
  public:
    ACRX_DECLARE_MEMBERS(AcDbAttribute);
    AcDbAttribute() = default;
    ~AcDbAttribute() override;
    AcDbAttribute(const AcGePoint3d& position, const ACHAR* text, const ACHAR* tag,
                  AcDbObjectId style = AcDbObjectId());

    ACHAR* tag() const;
    Acad::ErrorStatus setTag(const ACHAR* tag);
    Adesk::Boolean isInvisible() const;
    Acad::ErrorStatus setInvisible(Adesk::Boolean set);
    /// Takes everything from a definition, with its geometry transformed (by the reference's blockTransform()). The
    /// text is the definition's default.
    Acad::ErrorStatus setAttributeFromBlock(const AcDbAttributeDefinition* definition,
                                            const AcGeMatrix3d& blockTransform);

  protected:
    void read_fields(const host::FieldReader& from) override;
    void write_fields(host::FieldWriter& to) const override;
    void flush() override;

  private:
    friend class AcDbBlockReference;

    AcDbBlockReference* reference_ = nullptr;  ///< while both are open
    std::wstring tag_;
    int flags_ = 0;
};
