// One entity's groups, read once and then asked by code.
#pragma once

#include <string>
#include <vector>

#include "platform/host/dxf/record_view.h"
#include "platform/host/view/transform3.h"

namespace host {

/// An entity's own groups. Meant to be used again and again: reading a record reuses the memory of the one before.
class RecordFields {
  public:
    void read(const dxf::RecordView& record);

    const std::vector<dxf::Group>& groups() const { return groups_; }
    const dxf::Group* find(int code) const;
    bool has(int code) const { return find(code) != nullptr; }
    double real(int code, double fallback = 0) const;
    int64_t integer(int code, int64_t fallback = 0) const;
    std::wstring text(int code) const;
    /// Group `code` in degrees, in radians.
    double angle(int code, double fallback = 0) const;
    /// Groups `code`, `code` + 10 and `code` + 20; what is missing comes from the fallback.
    Vec3 point(int code, const Vec3& fallback = {}) const;
    /// All points whose x has this code, in order.
    std::vector<Vec3> points(int code) const;
    std::vector<double> reals(int code) const;
    /// The map from the entity's object coordinates (group 210).
    Transform3 extrusion() const;

    std::wstring decode(std::string_view raw) const { return record_.decode(raw); }

  private:
    std::vector<dxf::Group> groups_;
    dxf::RecordView record_{{}, dxf::Encoding::ascii, dxf::TextCodec(1252)};
};

}  // namespace host
