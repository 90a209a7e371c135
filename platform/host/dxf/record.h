// Records of a drawing as offsets: what stays in memory for each until someone opens it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <vector>

#include "platform/host/dxf/name_table.h"

namespace dxf {

/// The number of a record within its drawing. Ids stay the same until the drawing is closed, through edits and saves.
using RecordId = uint32_t;
constexpr RecordId no_record = 0xFFFFFFFF;

/// Where bytes begin: an offset in the file as it was opened, or the number of a piece that an edit added.
class Place {
  public:
    static Place original(uint64_t offset) { return Place(offset); }
    static Place piece(uint64_t number) { return Place(number | added_bit); }
    bool added() const { return (value_ & added_bit) != 0; }
    /// The offset, or the piece's number.
    uint64_t number() const { return value_ & ~added_bit; }
    bool operator==(const Place&) const = default;

    Place() = default;

  private:
    static constexpr uint64_t added_bit = uint64_t{1} << 63;
    explicit Place(uint64_t value) : value_(value) {}
    uint64_t value_ = 0;
};

/// Types that the store itself knows. Record::type holds these, and the ids of all other types after them.
enum KnownType : uint16_t {
    type_insert,
    type_attrib,
    type_vertex,
    type_seqend,
    type_polyline,
    type_block,
    type_endblk,
    type_table,
    type_endtab,
    type_section,
    type_endsec,
    type_eof,
    type_dimstyle,
    type_layer,
    known_type_count
};

/// A header variable, table, table entry, block head or end, entity or object with its sub-records (ATTRIB, VERTEX and
/// SEQEND that follow an INSERT or POLYLINE).
struct Record {
    enum Flag : uint16_t {
        paper_space = 1,  ///< group 67 is not 0
        has_parts = 2,    ///< sub-records follow within its bytes
        erased = 4,       ///< erased by an edit; its bytes will not be saved
        array = 8,        ///< an INSERT of several columns or rows (groups 70 and 71)
    };

    Place place;
    uint64_t handle = 0;          ///< group 5 (105 of a DIMSTYLE); 0 without one
    uint32_t length = 0;          ///< bytes, sub-records included
    NameId layer = no_name;       ///< group 8, of a LAYER its name, in Drawing::layer_names()
    NameId block_name = no_name;  ///< group 2 of an INSERT or BLOCK, in Drawing::block_names()
    uint16_t type = 0;            ///< group 0, in Drawing::type_names()
    uint16_t flags = 0;

    bool is(Flag flag) const { return (flags & flag) != 0; }
};
static_assert(sizeof(Record) <= 32, "an entity costs 32 bytes");

/// Records that belong together in file order: a run of ids, then those added by edits. Erased ones stay listed.
class RecordRun {
  public:
    class Iterator {
      public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = RecordId;
        using difference_type = std::ptrdiff_t;
        using pointer = const RecordId*;
        using reference = RecordId;
        Iterator(const RecordRun* run, size_t index) : run_(run), index_(index) {}
        RecordId operator*() const { return (*run_)[index_]; }
        Iterator& operator++() {
            ++index_;
            return *this;
        }
        bool operator==(const Iterator& other) const { return index_ == other.index_; }

      private:
        const RecordRun* run_;
        size_t index_;
    };

    size_t size() const { return count_ + added_.size(); }
    bool empty() const { return size() == 0; }
    RecordId operator[](size_t index) const {
        return index < count_ ? first_ + static_cast<RecordId>(index) : added_[index - count_];
    }
    Iterator begin() const { return {this, 0}; }
    Iterator end() const { return {this, size()}; }

    void append(RecordId id) {
        if (size() == 0) {
            first_ = id;
        }
        if (added_.empty() && id == first_ + count_) {
            ++count_;
        } else {
            added_.push_back(id);
        }
    }

  private:
    RecordId first_ = 0;
    RecordId count_ = 0;
    std::vector<RecordId> added_;
};

}  // namespace dxf
