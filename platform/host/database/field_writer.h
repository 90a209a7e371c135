// The fields of an object on their way to its record, and a record's values on their way to an object.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "gepnt3d.h"
#include "platform/host/dxf/record_view.h"
#include "platform/host/dxf/record_writer.h"

namespace host {

class DatabaseStore;

/// A group by its meaning.
struct Field {
    enum class Presence {
        always,     ///< new records have it
        if_needed,  ///< new records have it unless it has its default value
    };
    int code = 0;
    dxf::Value value;
    bool as_if_absent = false;  ///< a record without the group means the same
    Presence presence = Presence::always;
};

/// Who an added record is and whose.
struct RecordIdentity {
    uint64_t handle = 0;  ///< 0: the drawing has no handles
    uint64_t owner = 0;
};

/// Collects fields in the order in which they stand in a record.
class FieldWriter {
  public:
    FieldWriter(const DatabaseStore& store, RecordIdentity identity);

    const DatabaseStore& store() const { return store_; }

    /// The type with the handle and, where the drawing's version has them, owner and first subclass marker.
    FieldWriter& begin(std::wstring_view type, std::wstring_view subclass);
    /// A subclass marker; nothing in versions without them.
    FieldWriter& subclass(std::wstring_view name);
    // With a default, what a missing group means; left out of new records where it has that value. Without one, 0 or an
    // empty text is meant by a missing group, and new records have the group.
    FieldWriter& text(int code, std::wstring_view value);
    FieldWriter& text(int code, std::wstring_view value, std::wstring_view default_value,
                      Field::Presence presence = Field::Presence::if_needed);
    FieldWriter& integer(int code, int64_t value);
    FieldWriter& integer(int code, int64_t value, int64_t default_value);
    FieldWriter& real(int code, double value);
    FieldWriter& real(int code, double value, double default_value);
    /// Radians, written as degrees.
    FieldWriter& angle(int code, double radians);
    FieldWriter& angle(int code, double radians, double default_radians);
    FieldWriter& point(int code, const AcGePoint3d& point);
    /// A point that new records have only where it is `needed`.
    FieldWriter& point_if(bool needed, int code, const AcGePoint3d& point);
    FieldWriter& handle(int code, uint64_t value);
    /// Whole records that follow this one's own groups.
    FieldWriter& following(std::string_view records);

    const std::vector<Field>& fields() const { return fields_; }
    /// The bytes of a new record.
    std::string encode() const;

  private:
    FieldWriter& add(int code, const dxf::Value& value, bool as_if_absent,
                     Field::Presence presence = Field::Presence::always);

    const DatabaseStore& store_;
    RecordIdentity identity_;
    std::vector<Field> fields_;
    std::string following_;
};

/// Reads the record's own groups once: an object asks for dozens of them.
class FieldReader {
  public:
    FieldReader(const dxf::RecordView& record, const DatabaseStore& store)
        : record_(record), store_(store), groups_(record.own_groups()) {}

    const DatabaseStore& store() const { return store_; }
    bool has(int code) const { return find(code) != nullptr; }
    std::wstring text(int code, std::wstring_view fallback = {}) const;
    int integer(int code, int fallback = 0) const;
    double real(int code, double fallback = 0.0) const;
    /// Degrees as radians.
    double angle(int code) const;
    AcGePoint3d point(int code) const;

  private:
    /// The first group with the code, or null.
    const dxf::Group* find(int code) const;

    const dxf::RecordView& record_;
    const DatabaseStore& store_;
    const std::vector<dxf::Group> groups_;
};

}  // namespace host
