// Ids, handles and owners: what AcDbObjectId and AcDbHandle say, and what the database knows of its objects for it.
#include <vector>

#include "dbmain.h"
#include "platform/host/database/database_store.h"

const AcDbObjectId AcDbObjectId::kNull;

bool AcDbObjectId::isValid() const {
    const host::DatabaseStore* const store = host::store_of(*this);
    return store != nullptr && store->exists(host::address_of(*this));
}

bool AcDbObjectId::isErased() const {
    const host::DatabaseStore* const store = host::store_of(*this);
    return store != nullptr && store->erased(host::address_of(*this));
}

AcDbDatabase* AcDbObjectId::database() const {
    const host::DatabaseStore* const store = host::store_of(*this);
    return store == nullptr ? nullptr : store->database();
}

AcDbHandle AcDbObjectId::handle() const {
    return AcDbHandle(isValid() ? host::store_of(*this)->handle(host::address_of(*this)) : 0);
}

AcRxClass* AcDbObjectId::objectClass() const {
    return isValid() ? host::store_of(*this)->class_of(host::address_of(*this)) : nullptr;
}

Acad::ErrorStatus acdbGetObjectId(AcDbObjectId& id, const ads_name name) {
    AcDbObjectId named;
    named.setFromOldId(name[0]);
    if (!named.isValid()) {
        return Acad::eInvalidAdsName;
    }
    id = named;
    return Acad::eOk;
}

Acad::ErrorStatus acdbGetAdsName(ads_name& name, AcDbObjectId id) {
    if (id.isNull()) {
        return Acad::eNullObjectId;
    }
    name[0] = id.asOldId();
    name[1] = 0;
    return Acad::eOk;
}

AcDbHandle::AcDbHandle(const ACHAR* hexadecimal) {
    for (const ACHAR* at = hexadecimal; at != nullptr && *at != 0; ++at) {
        const ACHAR letter = *at >= L'a' ? static_cast<ACHAR>(*at - 32) : *at;
        const int digit = letter >= L'0' && letter <= L'9'   ? letter - L'0'
                          : letter >= L'A' && letter <= L'F' ? letter - L'A' + 10
                                                             : -1;
        if (digit < 0) {
            value_ = 0;
            return;
        }
        value_ = value_ << 4 | static_cast<Adesk::UInt64>(digit);
    }
}

bool AcDbHandle::getIntoAsciiBuffer(ACHAR* buffer) const {
    if (buffer == nullptr) {
        return false;
    }
    int digits = 1;
    while (digits < 16 && value_ >> (4 * digits) != 0) {
        ++digits;
    }
    for (int i = 0; i < digits; ++i) {
        buffer[i] = L"0123456789ABCDEF"[value_ >> (4 * (digits - 1 - i)) & 15];
    }
    buffer[digits] = 0;
    return true;
}

namespace host {
namespace {

std::vector<DatabaseStore*>& stores() {
    static std::vector<DatabaseStore*> by_serial(1, nullptr);
    return by_serial;
}

}  // namespace

DatabaseStore* store_of(AcDbObjectId id) {
    const uint64_t serial = static_cast<uint64_t>(id.asOldId()) >> 34;
    const std::vector<DatabaseStore*>& by_serial = stores();
    return serial < by_serial.size() ? by_serial[serial] : nullptr;
}

uint32_t register_store(DatabaseStore& store) {
    stores().push_back(&store);
    return static_cast<uint32_t>(stores().size() - 1);
}

void unregister_store(uint32_t serial) {
    stores()[serial] = nullptr;
}

dxf::RecordId DatabaseStore::block_record(BlockNumber block) const {
    return drawing_->table_entry("BLOCK_RECORD", blocks_.name(block));
}

void DatabaseStore::read_block_handles() const {
    block_handles_.assign(blocks_.size(), 0);
    const dxf::Table* const entries = has_subclasses_ ? table(TableKind::blocks) : nullptr;
    for (size_t i = 0; entries != nullptr && i < entries->entries.size(); ++i) {
        const dxf::RecordId entry = entries->entries[i];
        const BlockNumber block = blocks_.named(drawing_->view(entry).text(2));
        if (block != no_block_number) {
            block_handles_[block] = drawing_->record(entry).handle;
        }
    }
    for (BlockNumber block = 0; block < blocks_.size(); ++block) {
        if (block_handles_[block] == 0 && blocks_.block(block) != dxf::no_block) {
            block_handles_[block] = drawing_->record(drawing_->blocks()[blocks_.block(block)].head).handle;
        }
    }
}

uint64_t DatabaseStore::block_handle(BlockNumber block) const {
    if (block_handles_.size() != blocks_.size()) {
        read_block_handles();
    }
    return block_handles_[block];
}

uint64_t DatabaseStore::handle(ObjectAddress at) const {
    switch (at.space) {
        case ObjectSpace::record:
            return drawing_->record(at.number).handle;
        case ObjectSpace::block:
            return block_handle(at.number);
        case ObjectSpace::table: {
            const dxf::Table* const entries = table(static_cast<TableKind>(at.number));
            return entries == nullptr || entries->head == dxf::no_record ? 0 : drawing_->record(entries->head).handle;
        }
        case ObjectSpace::implied:
            break;
    }
    return 0;
}

void DatabaseStore::index_handles() const {
    const dxf::RecordId count = drawing_->record_count();
    by_handle_.reserve(count);
    for (dxf::RecordId record = 0; record < count; ++record) {
        if (drawing_->record(record).handle != 0) {
            by_handle_.emplace(drawing_->record(record).handle, id_of_record(record));
        }
    }
    for (BlockNumber block = 0; block < blocks_.size(); ++block) {
        if (const uint64_t own = block_handle(block); own != 0) {
            by_handle_[own] = id_of_block(block);
        }
    }
    for (const TableKind kind : {TableKind::blocks, TableKind::layers, TableKind::text_styles}) {
        const AcDbObjectId id = id_of_table(kind);
        if (const uint64_t own = handle(address_of(id)); own != 0) {
            by_handle_[own] = id;
        }
    }
    handles_indexed_ = true;
}

void DatabaseStore::index_handle(AcDbObjectId added) {
    const uint64_t own = handles_indexed_ ? handle(address_of(added)) : 0;
    if (own != 0) {
        by_handle_[own] = added;
    }
}

AcDbObjectId DatabaseStore::with_handle(uint64_t handle) const {
    if (!handles_indexed_) {
        index_handles();
    }
    const auto found = by_handle_.find(handle);
    return found == by_handle_.end() ? AcDbObjectId() : found->second;
}

dxf::RecordId DatabaseStore::record_of(ObjectAddress at) const {
    switch (at.space) {
        case ObjectSpace::record:
            return at.number;
        case ObjectSpace::block:
            return block_record(at.number);
        case ObjectSpace::table: {
            const dxf::Table* const entries = table(static_cast<TableKind>(at.number));
            return entries == nullptr ? dxf::no_record : entries->head;
        }
        case ObjectSpace::implied:
            break;
    }
    return dxf::no_record;
}

AcDbObjectId DatabaseStore::owner(ObjectAddress at) const {
    switch (at.space) {
        case ObjectSpace::record: {
            const auto added = added_to_.find(at.number);
            const BlockNumber block = added != added_to_.end() ? added->second : blocks_.owner_of(at.number);
            if (block != no_block_number) {
                return id_of_block(block);
            }
            const std::wstring& type = drawing_->type_names().name(drawing_->record(at.number).type);
            return type == L"LAYER"   ? id_of_table(TableKind::layers)
                   : type == L"STYLE" ? id_of_table(TableKind::text_styles)
                                      : AcDbObjectId();
        }
        case ObjectSpace::block:
            return id_of_table(TableKind::blocks);
        case ObjectSpace::table:
            break;
        case ObjectSpace::implied:
            return id_of_table(at.number == implied_layer_0 ? TableKind::layers : TableKind::text_styles);
    }
    return {};
}

dxf::RecordIdentity DatabaseStore::identity(ObjectAddress at) const {
    const AcDbObjectId owned_by = owner(at);
    return {handle(at), owned_by.isNull() ? 0 : handle(address_of(owned_by))};
}

}  // namespace host
