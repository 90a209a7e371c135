// The drawing database behind AcDbDatabase: gives the drawing store's records their identities and their instances.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "dbents.h"
#include "dbsymtb.h"
#include "platform/host/database/block_catalogue.h"
#include "platform/host/database/object_id.h"
#include "platform/host/database/open_objects.h"
#include "platform/host/database/placements.h"
#include "platform/host/database/selection_set.h"
#include "platform/host/dxf/drawing.h"
#include "platform/host/dxf/entities.h"
#include "platform/host/dxf/field_writer.h"

namespace host {

enum class TableKind : unsigned char { blocks, layers, text_styles };

class DatabaseStore {
  public:
    explicit DatabaseStore(std::unique_ptr<dxf::Drawing> drawing);
    ~DatabaseStore();
    DatabaseStore(const DatabaseStore&) = delete;
    DatabaseStore& operator=(const DatabaseStore&) = delete;

    dxf::Drawing& drawing() { return *drawing_; }
    const dxf::Drawing& drawing() const { return *drawing_; }
    /// The drawing's file. Valid until it is saved under another name.
    const std::wstring& file_name() const { return file_name_; }
    void set_file_name(std::wstring name) { file_name_ = std::move(name); }
    const BlockCatalogue& blocks() const { return blocks_; }
    const OpenObjects& open_objects() const { return open_; }
    SelectionSets& selections() { return selections_; }
    const SelectionSets& selections() const { return selections_; }
    /// Null until an AcDbDatabase has taken the store over.
    AcDbDatabase* database() const { return database_; }
    void set_database(AcDbDatabase* database) { database_ = database; }
    /// Whether records have owners and subclass markers (R13 and later).
    bool has_subclasses() const { return has_subclasses_; }

    // Identities.
    AcDbObjectId id(ObjectSpace space, uint32_t number) const { return make_object_id(serial_, {space, number}); }
    AcDbObjectId id_of_record(dxf::RecordId record) const { return id(ObjectSpace::record, record); }
    /// Null for no_block_number.
    AcDbObjectId id_of_block(BlockNumber block) const;
    AcDbObjectId id_of_table(TableKind kind) const { return id(ObjectSpace::table, static_cast<uint32_t>(kind)); }
    bool exists(ObjectAddress at) const;
    bool erased(ObjectAddress at) const;
    /// 0 without one.
    uint64_t handle(ObjectAddress at) const;
    AcDbObjectId with_handle(uint64_t handle) const;
    /// The record that holds an object's data; that of a block is its entry in the table of blocks. dxf::no_record
    /// without one.
    dxf::RecordId record_of(ObjectAddress at) const;
    AcDbObjectId owner(ObjectAddress at) const;
    AcRxClass* class_of(ObjectAddress at) const;

    // Symbol tables.
    size_t table_size(TableKind kind) const;
    /// Erased records are among them.
    AcDbObjectId table_entry(TableKind kind, size_t index) const;
    /// Null without one.
    AcDbObjectId table_entry_named(TableKind kind, std::wstring_view name) const;
    /// The name of a layer or text style; empty for another id.
    std::wstring entry_name(TableKind kind, AcDbObjectId id) const;

    // What is current.
    BlockNumber current_space() const;
    bool tilemode() const;
    std::wstring current_layer() const;
    /// What added entities take: 0 by block, 256 by layer, else the colour's number.
    int current_colour() const;
    /// Sets a colour that added entities take in place of the header's, without saving it in the drawing; none goes
    /// back to the header's.
    void set_added_colour(std::optional<int> colour) { added_colour_ = colour; }

    // Opening and closing.
    Acad::ErrorStatus open(AcDbObject*& object, AcDbObjectId id, const AcRxClass* wanted, AcDb::OpenMode mode,
                           bool open_erased);
    /// Forgets the instance of an object that nobody has open any more.
    void forget(ObjectAddress at) { open_.remove(at); }
    /// Fills an instance with the values of its record.
    void load(AcDbObject& object);
    /// The fields of this record's INSERT. The reference is valid until the next call.
    const dxf::Insert& placement_in(dxf::RecordId record) const { return placements_.of(record); }

    // Changes.
    Acad::ErrorStatus add_entity(BlockNumber block, AcDbEntity& entity);
    Acad::ErrorStatus add_block(AcDbBlockTableRecord& record);
    Acad::ErrorStatus add_entry(TableKind kind, AcDbSymbolTableRecord& record);
    /// A sub-record of an added block reference.
    std::string encode_attribute(const AcDbAttribute& attribute, AcDbObjectId reference);
    std::string encode_sequence_end(const AcDbEntity& reference);
    /// Brings a changed object's record up to date; one that was added since it was made is written anew.
    void write_back(const AcDbObject& object);
    void write_block_head(BlockNumber block, int flags, const dxf::Vec3& base);
    Acad::ErrorStatus erase(ObjectAddress at);

  private:
    bool implied(ImpliedObject object) const { return implied_[object]; }
    dxf::RecordIdentity identity(ObjectAddress at) const;
    /// An empty writer for the fields of a record of this drawing.
    dxf::FieldWriter new_fields(dxf::RecordIdentity identity) const { return {has_subclasses_, identity}; }
    std::string encoded(const dxf::FieldWriter& fields) const { return fields.encode(drawing_->manner()); }
    /// A record's bytes with the fields put in.
    std::string merged(dxf::RecordId record, const dxf::FieldWriter& fields) const;
    void replace(dxf::RecordId record, std::string bytes);
    uint64_t block_handle(BlockNumber block) const;
    dxf::RecordId block_record(BlockNumber block) const;
    std::unique_ptr<AcDbObject> make_instance(ObjectAddress at, AcRxClass* type) const;
    AcRxClass* class_of_record(dxf::RecordId record) const;
    const dxf::Table* table(TableKind kind) const;
    void read_block_handles() const;
    void index_handles() const;
    /// Keeps the index of handles, once there is one, in step with an addition.
    void index_handle(AcDbObjectId added);
    void erase_block(BlockNumber block);

    std::unique_ptr<dxf::Drawing> drawing_;
    std::wstring file_name_;
    AcDbDatabase* database_ = nullptr;
    bool has_subclasses_;
    bool implied_[2] = {};
    std::optional<int> added_colour_;
    BlockCatalogue blocks_;
    OpenObjects open_;
    SelectionSets selections_;
    uint32_t serial_;
    mutable std::vector<AcRxClass*> class_of_type_;  ///< by dxf type; null: not asked for yet
    mutable std::vector<uint64_t> block_handles_;    ///< by BlockNumber; empty: not read yet
    mutable std::unordered_map<uint64_t, AcDbObjectId> by_handle_;
    mutable bool handles_indexed_ = false;
    mutable dxf::RecordFields fields_;  ///< of the record that was read last; no object opens another while it is read
    mutable Placements placements_;
    std::unordered_map<dxf::RecordId, BlockNumber> added_to_;  ///< for the entities added since the drawing was opened
};

/// A drawing opened as a database, or why it cannot be read.
using OpenDatabase = base::Result<std::unique_ptr<AcDbDatabase>, dxf::Error>;
OpenDatabase open_database(const std::filesystem::path& path);
/// The same for a drawing that was read before.
OpenDatabase open_database(dxf::OpenResult drawing);
/// The same for a drawing in memory; `name` stands for the file in errors.
OpenDatabase open_database_from_bytes(std::string bytes, const std::filesystem::path& name);

}  // namespace host
