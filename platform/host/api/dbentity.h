// AcDbEntity: what every graphical object has. Other types than those of dbents.h open as this class.
#pragma once

#include <optional>
#include <string>

#include "dbobject.h"

class AcDbEntity : public AcDbObject {
  public:
    ACRX_DECLARE_MEMBERS(AcDbEntity);

    AcDbObjectId blockId() const { return ownerId(); }

    /// The layer's name in host memory, to be released with acutDelString.
    ACHAR* layer() const;

  protected:
    AcDbEntity() = default;
    void read_fields(const dxf::RecordFields& from) override;
    void write_fields(dxf::FieldWriter& to) const override;

    /// Layer, colour and visibility.
    void copy_properties(const AcDbEntity& other);

    /// The entity's type as a file has it.
    virtual const ACHAR* record_type() const;

  private:
    friend class host::ObjectGate;

    std::wstring layer_;                  ///< empty: the current layer when the entity is added
    std::optional<Adesk::UInt16> color_;  ///< 0 by block, 256 by layer, else its number; empty: the current one then
    bool invisible_ = false;
    bool paper_space_ = false;
};
