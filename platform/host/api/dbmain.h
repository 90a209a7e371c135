// The database, its objects and entities, and how they are opened.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "acdb.h"
#include "adsdef.h"
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

class AcDbBlockTable;
class AcDbLayerTable;
class AcDbTextStyleTable;

/// One open drawing.
class AcDbDatabase {
  public:
    /// Takes over a store. The host opens drawings (host::open_database); modules only meet those that are open.
    explicit AcDbDatabase(std::unique_ptr<host::DatabaseStore> store);
    /// Ends the use of all ids and of all pointers to open objects of this drawing.
    ~AcDbDatabase();
    AcDbDatabase(const AcDbDatabase&) = delete;
    AcDbDatabase& operator=(const AcDbDatabase&) = delete;

    AcDbObjectId blockTableId() const;
    AcDbObjectId layerTableId() const;
    AcDbObjectId textStyleTableId() const;

    Acad::ErrorStatus getBlockTable(AcDbBlockTable*& table, AcDb::OpenMode mode) const;
    Acad::ErrorStatus getLayerTable(AcDbLayerTable*& table, AcDb::OpenMode mode) const;
    Acad::ErrorStatus getTextStyleTable(AcDbTextStyleTable*& table, AcDb::OpenMode mode) const;
    Acad::ErrorStatus getSymbolTable(AcDbBlockTable*& table, AcDb::OpenMode mode) const;
    Acad::ErrorStatus getSymbolTable(AcDbLayerTable*& table, AcDb::OpenMode mode) const;
    Acad::ErrorStatus getSymbolTable(AcDbTextStyleTable*& table, AcDb::OpenMode mode) const;

    /// The object with the handle; eUnknownHandle without one. Ids are never made for new handles: `createIfNotFound`
    /// must be false (eInvalidInput).
    Acad::ErrorStatus getAcDbObjectId(AcDbObjectId& id, bool createIfNotFound, const AcDbHandle& handle) const;

    /// The block of the space that commands work in: that of model space, or of paper space while TILEMODE is 0.
    AcDbObjectId currentSpaceId() const;
    bool tilemode() const;

    /// The drawing's file. Valid until the drawing is saved under another name.
    Acad::ErrorStatus getFilename(const ACHAR*& path) const;

    /// For the host's own parts.
    host::DatabaseStore& store() const { return *store_; }

  private:
    std::unique_ptr<host::DatabaseStore> store_;
};

/// What every object of a drawing has. An object is made with new (and then belongs to the caller until it is added to
/// a drawing), or by opening it. One that is in a drawing is never deleted by a module: close() ends the use of the
/// pointer.
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

/// What every graphical object has. Entities of a type without a class in dbents.h open as this one.
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

/// Opens the object for reading or writing and gives the one instance that stands for it while it is open. Each
/// successful open must be matched by a close(). On failure the pointer is null and the status one of
/// eNullObjectId, eUnknownHandle (no such object), eWasErased, eWasOpenForRead and eWasOpenForWrite (somebody else has
/// it open), eAtMaxReaders.
Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode,
                                     bool openErasedObject = false);
/// The same for an object of a class; eNotThatKindOfClass, and nothing opened, for another.
Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& object, AcDbObjectId id, const AcRxClass* objectClass,
                                     AcDb::OpenMode mode, bool openErasedObject = false);
template <class T>
inline Acad::ErrorStatus acdbOpenObject(T*& object, AcDbObjectId id, AcDb::OpenMode mode = AcDb::kForRead,
                                        bool openErased = false) {
    AcDbObject* opened = nullptr;
    const Acad::ErrorStatus status = acdbOpenAcDbObject(opened, id, T::desc(), mode, openErased);
    object = static_cast<T*>(opened);
    return status;
}

/// Between ids and entity names; eInvalidAdsName for a name of no object, eNullObjectId for a null id.
Acad::ErrorStatus acdbGetObjectId(AcDbObjectId& id, const ads_name name);
Acad::ErrorStatus acdbGetAdsName(ads_name& name, AcDbObjectId id);
