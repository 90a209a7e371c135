// The groups of one record that are its own, read once and then asked by code.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/host/dxf/record_view.h"

namespace dxf {

/// A record's own groups. Valid as long as the bytes of the record that was read.
class RecordFields : public FieldValues<RecordFields> {
  public:
    RecordFields() = default;
    explicit RecordFields(const RecordView& record) { read(record); }
    /// Reads another record and reuses the memory of the one before.
    void read(const RecordView& record);

    /// In file order, the record's type first. Their offsets count in the record's bytes.
    const std::vector<Group>& groups() const& { return groups_; }
    std::vector<Group> groups() && { return std::move(groups_); }
    /// The first with the code, or null.
    const Group* group(int code) const;
    /// All points whose x has this code, in order.
    std::vector<Vec3> points(int code) const;
    std::vector<double> reals(int code) const;

    std::wstring decode(std::string_view raw) const { return codec_.decode(raw); }

  private:
    static constexpr int most_codes = 256;  ///< those that entities have values under; others are searched for

    std::vector<Group> groups_;
    std::array<uint16_t, most_codes> places_{};  ///< by code: the number of its first group, counted from 1; 0: none
    TextCodec codec_{1252};
};

}  // namespace dxf
