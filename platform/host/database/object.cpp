// AcDbObject, and what every class of the host begins with: AcRxObject and AcRxClass.
#include <array>
#include <memory>
#include <new>

#include "dbmain.h"
#include "platform/host/database/database_store.h"
#include "platform/host/database/object_gate.h"

namespace {

/// What an object of another kind than the known ones opens as.
class PlainObject final : public AcDbObject {};

#if !defined(__SANITIZE_ADDRESS__)
// Memory of closed objects by size, kept for the next ones. Objects live on the host's main thread only.
constexpr size_t pool_step = 16;
constexpr size_t largest_pooled = 1024;

struct FreeBlock {
    FreeBlock* next;
};
std::array<FreeBlock*, largest_pooled / pool_step + 1> free_blocks;

constexpr size_t pool_of(size_t size) {
    return (size + pool_step - 1) / pool_step;
}
#endif

}  // namespace

AcRxClass::AcRxClass(const ACHAR* className, AcRxClass* parent, const ACHAR* dxfName, Constructor constructor)
    : name_(className),
      parent_(parent),
      dxf_name_(dxfName == nullptr && parent != nullptr ? parent->dxf_name_ : dxfName),
      constructor_(constructor) {}

AcRxClass* AcRxObject::desc() {
    static AcRxClass descriptor(ACRX_T("AcRxObject"), nullptr, nullptr, nullptr);
    return &descriptor;
}

AcRxClass* AcRxObject::isA() const {
    return AcRxObject::desc();
}

ACRX_NO_CONS_DEFINE_MEMBERS(AcRxClass, AcRxObject)

ACRX_DEFINE_MEMBERS_WITH(AcDbObject, AcRxObject, nullptr, []() -> AcRxObject* { return new PlainObject; })

#if defined(__SANITIZE_ADDRESS__)
// Under the address sanitizer memory is not pooled, so that a use after close() shows.
void* AcDbObject::operator new(size_t size) {
    return ::operator new(size);
}

void AcDbObject::operator delete(void* memory, size_t) {
    ::operator delete(memory);
}
#else
void* AcDbObject::operator new(size_t size) {
    if (size > largest_pooled) {
        return ::operator new(size);
    }
    FreeBlock*& first = free_blocks[pool_of(size)];
    if (first == nullptr) {
        return ::operator new(pool_of(size) * pool_step);
    }
    FreeBlock* const taken = first;
    first = taken->next;
    return taken;
}

void AcDbObject::operator delete(void* memory, size_t size) {
    if (size > largest_pooled) {
        ::operator delete(memory);
        return;
    }
    FreeBlock*& first = free_blocks[pool_of(size)];
    first = new (memory) FreeBlock{first};
}
#endif

AcDbObject::~AcDbObject() = default;

AcDbObjectId AcDbObject::ownerId() const {
    const host::DatabaseStore* const owner = store();
    return owner == nullptr ? AcDbObjectId() : owner->owner(host::address_of(id_));
}

host::DatabaseStore* AcDbObject::store() const {
    return host::store_of(id_);
}

Acad::ErrorStatus AcDbObject::close() {
    if (mode_ == Mode::detached) {
        return Acad::eNotInDatabase;
    }
    if (mode_ == Mode::read && --readers_ > 0) {
        return Acad::eOk;
    }
    const std::unique_ptr<AcDbObject> closing(this);
    if (mode_ == Mode::write) {
        flush();
    }
    if (!id_.isNull()) {
        store()->forget(host::address_of(id_));
    }
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::erase(Adesk::Boolean erasing) {
    if (mode_ != Mode::write || id_.isNull()) {
        return Acad::eNotOpenForWrite;
    }
    if (!erasing) {
        return Acad::eNotApplicable;
    }
    return isErased() ? Acad::eWasErased : store()->erase(host::address_of(id_));
}

Acad::ErrorStatus AcDbObject::begin_change() {
    if (!isWriteEnabled()) {
        return Acad::eNotOpenForWrite;
    }
    need_fields();
    modified_ = true;
    return Acad::eOk;
}

void AcDbObject::load_fields() const {
    auto& self = const_cast<AcDbObject&>(*this);
    self.loaded_ = true;
    store()->load(self);
}

void AcDbObject::read_fields(const dxf::RecordFields&) {}

void AcDbObject::write_fields(dxf::FieldWriter&) const {}

void AcDbObject::flush() {
    if (modified_) {
        store()->write_back(*this);
    }
}

Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& object, AcDbObjectId id, const AcRxClass* objectClass,
                                     AcDb::OpenMode mode, bool openErasedObject) {
    object = nullptr;
    if (id.isNull()) {
        return Acad::eNullObjectId;
    }
    host::DatabaseStore* const store = host::store_of(id);
    return store == nullptr ? Acad::eUnknownHandle : store->open(object, id, objectClass, mode, openErasedObject);
}

Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode, bool openErasedObject) {
    return acdbOpenAcDbObject(object, id, AcDbObject::desc(), mode, openErasedObject);
}
