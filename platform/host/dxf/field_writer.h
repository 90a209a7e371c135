// FieldWriter and FieldReader, which turn variables into the fields of a record and back, and the merging of fields
// into a record.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/host/dxf/record_fields.h"
#include "platform/host/dxf/record_writer.h"

namespace dxf {

/// A group of a record: its code and its decoded value.
struct Field {
    enum class Presence {
        always,     ///< new records have it
        if_needed,  ///< new records have it unless it has its default value
    };
    int code = 0;
    Value value;
    bool as_if_absent = false;  ///< a record without the group means the same
    Presence presence = Presence::always;
};

/// The handles that a record has of its own and of its owner.
struct RecordIdentity {
    uint64_t handle = 0;  ///< 0: the drawing has no handles
    uint64_t owner = 0;
};

/// Collects fields in the order in which they stand in a record. `absent` is what a missing group means. A field with
/// one is left out of new records where it has that value, unless it is always there; a field without one, for which 0
/// or an empty text is meant, never is.
class FieldWriter {
  public:
    using Presence = Field::Presence;

    /// `subclasses`: the drawing has owners and subclass markers (R13 and later).
    FieldWriter(bool subclasses, RecordIdentity identity) : subclasses_(subclasses), identity_(identity) {}

    /// The type with the handle and, where the drawing's version has them, owner and first subclass marker.
    FieldWriter& begin(std::wstring_view type, std::wstring_view subclass);
    /// A subclass marker; nothing in versions without them.
    FieldWriter& subclass(std::wstring_view name);
    FieldWriter& text(int code, std::wstring_view value) { return text(code, value, {}, Presence::always); }
    FieldWriter& text(int code, std::wstring_view value, std::wstring_view absent,
                      Presence presence = Presence::if_needed);
    FieldWriter& integer(int code, int64_t value) { return integer(code, value, 0, Presence::always); }
    FieldWriter& integer(int code, int64_t value, int64_t absent, Presence presence = Presence::if_needed);
    FieldWriter& real(int code, double value) { return real(code, value, 0, Presence::always); }
    FieldWriter& real(int code, double value, double absent, Presence presence = Presence::if_needed);
    /// Radians, written as degrees.
    FieldWriter& angle(int code, double radians) { return real(code, radians * 180 / pi); }
    FieldWriter& angle(int code, double radians, double absent) {
        return real(code, radians * 180 / pi, absent * 180 / pi);
    }
    FieldWriter& point(int code, const Vec3& point);
    /// A point that new records have only where it is `needed`; elsewhere `absent` is meant.
    FieldWriter& point_if(bool needed, int code, const Vec3& point, const Vec3& absent);
    FieldWriter& handle(int code, uint64_t value);
    /// Adds whole records that follow this record's own groups.
    FieldWriter& following(std::string_view records);

    const std::vector<Field>& fields() const { return fields_; }
    /// The bytes of a new record.
    std::string encode(const Manner& manner) const;

  private:
    FieldWriter& add(int code, Value value, bool as_if_absent, Presence presence = Presence::always);

    bool subclasses_;
    RecordIdentity identity_;
    std::vector<Field> fields_;
    std::string following_;
};

/// Reads a record's values into variables: what takes a FieldWriter to write takes this to read.
class FieldReader {
  public:
    using Presence = Field::Presence;

    explicit FieldReader(const RecordFields& from) : from_(from) {}

    FieldReader& subclass(std::wstring_view) { return *this; }
    FieldReader& text(int code, std::wstring& value, std::wstring_view absent = {}, Presence = {}) {
        value = from_.text(code, absent);
        return *this;
    }
    template <class Integer>
    FieldReader& integer(int code, Integer& value, int64_t absent = 0, Presence = {}) {
        value = static_cast<Integer>(from_.integer(code, absent));
        return *this;
    }
    FieldReader& real(int code, double& value, double absent = 0, Presence = {}) {
        value = from_.real(code, absent);
        return *this;
    }
    FieldReader& angle(int code, double& radians, double absent = 0) {
        radians = from_.angle(code, absent);
        return *this;
    }
    FieldReader& point(int code, Vec3& point) { return point_if(true, code, point, {}); }
    FieldReader& point_if(bool, int code, Vec3& point, const Vec3& absent) {
        point = from_.point(code, absent);
        return *this;
    }

  private:
    const RecordFields& from_;
};

/// The record's bytes with the fields' values. A group that has the field's value already (reals within 1e-12 of it)
/// keeps its bytes. A field without a group is put in behind the field before it, unless a missing group means the
/// same. Type, handle, owner and subclass markers never change, nor does anything but the record's own groups.
std::string merge_fields(const RecordView& record, const std::vector<Field>& fields, const Manner& manner);

}  // namespace dxf
