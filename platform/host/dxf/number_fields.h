// NumberFields, which reads the numbers of a struct of entities.h from a record in one pass.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "platform/host/dxf/field_writer.h"
#include "platform/host/dxf/own_groups.h"
#include "platform/host/dxf/record_view.h"

namespace dxf {

/// The members of a struct that has nothing but numbers, by their group codes. It gives what read() of entities.h
/// gives, in half of the time, since it neither keeps the record's other groups nor looks for each code: for those who
/// read many records of one type.
template <class Struct>
class NumberFields {
  public:
    NumberFields() {
        Names names{*this};
        Struct::exchange(absent_, names);
    }

    void read(const RecordView& record, Struct& said) const {
        said = absent_;
        uint32_t seen = 0;
        OwnGroupCursor cursor(record.groups());
        for (Group group; cursor.next(group);) {
            if (group.code < 0 || group.code >= most_codes || members_[group.code].kind == Kind::none) {
                continue;
            }
            const Member& member = members_[group.code];
            if ((seen >> member.number & 1U) == 0) {  // the first group with the code counts
                seen |= 1U << member.number;
                store(group, member, said);
            }
        }
    }

  private:
    static constexpr int most_codes = 256;

    enum class Kind : uint8_t { none, real, angle, integer };
    struct Member {
        Kind kind = Kind::none;
        uint8_t number = 0;   ///< among the members, in the order of the exchange
        uint16_t offset = 0;  ///< in bytes
    };

    /// Takes the place of a FieldReader: notes where each member is, and what a record without its group means.
    struct Names {
        NumberFields& fields;

        Names& real(int code, double& value, double absent = 0) { return note(code, value, absent, Kind::real); }
        Names& angle(int code, double& value, double absent = 0) { return note(code, value, absent, Kind::angle); }
        Names& integer(int code, int64_t& value, int64_t absent = 0) {
            return note(code, value, absent, Kind::integer);
        }
        Names& point(int code, Vec3& value) { return point_if(true, code, value, {}); }
        Names& point_if(bool, int code, Vec3& value, const Vec3& absent) {
            return real(code, value.x, absent.x).real(code + 10, value.y, absent.y).real(code + 20, value.z, absent.z);
        }

      private:
        template <class Number>
        Names& note(int code, Number& value, Number absent, Kind kind) {
            const auto* const begin = reinterpret_cast<const std::byte*>(&fields.absent_);
            const auto offset = reinterpret_cast<const std::byte*>(&value) - begin;
            fields.members_[code] = {kind, fields.count_++, static_cast<uint16_t>(offset)};
            value = absent;
            return *this;
        }
    };

    static void store(const Group& group, const Member& member, Struct& said) {
        std::byte* const at = reinterpret_cast<std::byte*>(&said) + member.offset;
        if (member.kind == Kind::integer) {
            *reinterpret_cast<int64_t*>(at) = group.integer();
        } else {
            const double value = group.real();
            *reinterpret_cast<double*>(at) = member.kind == Kind::angle ? value * pi / 180 : value;
        }
    }

    std::array<Member, most_codes> members_;
    uint8_t count_ = 0;
    Struct absent_;
};

}  // namespace dxf
