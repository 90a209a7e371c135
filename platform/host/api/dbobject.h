// AcDbObject: what every object of a drawing has.
#pragma once

#include "acdb.h"
#include "dbid.h"
#include "rxboiler.h"

namespace dxf {
class FieldWriter;
class RecordFields;
}  // namespace dxf
namespace host {
class DatabaseStore;
class ObjectGate;
}  // namespace host

/// An object is made with new (and then belongs to the caller until it is added to a drawing), or by opening it. One
/// that is in a drawing is never deleted by a module: close() ends the use of the pointer.
class AcDbObject : public AcRxObject {
  public:
    ACRX_DECLARE_MEMBERS(AcDbObject);
    ~AcDbObject() override;

    /// Objects come and go with every open: their memory is pooled.
    static void* operator new(size_t size);
    static void operator delete(void* memory, size_t size);

    AcDbObjectId objectId() const { return id_; }
    AcDbObjectId id() const { return id_; }
    AcDbObjectId ownerId() const;
    AcDbDatabase* database() const { return id_.database(); }

    /// Ends one open; eNotInDatabase for an object that is in no drawing. Changes are in the drawing afterwards.
    Acad::ErrorStatus close();

    /// Needs the object open for write. What a drawing cannot be without gives eCannotBeErasedByCaller. Erasing is
    /// final in this host: erase(false) gives eNotApplicable.
    Acad::ErrorStatus erase(Adesk::Boolean erasing = Adesk::kTrue);

    Adesk::Boolean isErased() const { return id_.isErased(); }
    Adesk::Boolean isWriteEnabled() const { return mode_ == Mode::detached || mode_ == Mode::write; }
    /// Whether the object was added to its drawing since it was made and has not been closed yet.
    Adesk::Boolean isNewObject() const { return added_now_; }
    Adesk::Boolean isModified() const { return modified_; }

  protected:
    AcDbObject() = default;

    /// Takes the fields from the drawing when one is first asked for.
    void need_fields() const {
        if (!loaded_) {
            load_fields();
        }
    }
    bool has_fields() const { return loaded_; }
    /// A field of this object, taken from the drawing first where that is due.
    template <class Field>
    const Field& loaded(const Field& field) const {
        need_fields();
        return field;
    }
    /// Begins a change: fields loaded, eOk; or eNotOpenForWrite.
    Acad::ErrorStatus begin_change();
    /// Gives a field of this object a value, with the results of begin_change().
    template <class Field, class Value>
    Acad::ErrorStatus change(Field& field, const Value& value) {
        const Acad::ErrorStatus status = begin_change();
        if (status == Acad::eOk) {
            field = value;
        }
        return status;
    }
    /// Sets or clears bits of a field.
    Acad::ErrorStatus change_bits(int& field, int bits, bool set) {
        need_fields();
        return change(field, set ? field | bits : field & ~bits);
    }
    host::DatabaseStore* store() const;

    /// Reads the fields from the object's record; of an object without one, keeps the defaults.
    virtual void read_fields(const dxf::RecordFields& from);
    /// Writes the record of an object of the drawing, from its type on. Also what follows it.
    virtual void write_fields(dxf::FieldWriter& to) const;
    /// Puts what was changed while the object was open into the drawing.
    virtual void flush();

  private:
    friend class host::ObjectGate;
    enum class Mode : unsigned char { detached, read, write };

    void load_fields() const;

    AcDbObjectId id_;
    Mode mode_ = Mode::detached;
    bool loaded_ = true;
    bool modified_ = false;
    bool added_now_ = false;
    unsigned readers_ = 0;
};
