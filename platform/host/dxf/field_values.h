// A record's values by group code: the look-ups that RecordView and RecordFields have in common.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/host/dxf/vectors.h"

namespace dxf {

/// The questions that `Record` gets by deriving from this. It answers group(code) with what points to the first of its
/// own groups that has the code, or to nothing, and decodes texts.
template <class Record>
class FieldValues {
  public:
    bool has(int code) const { return static_cast<bool>(self().group(code)); }
    std::wstring text(int code, std::wstring_view absent = {}) const {
        const auto found = self().group(code);
        return found ? self().decode(found->value) : std::wstring(absent);
    }
    int64_t integer(int code, int64_t absent = 0) const {
        const auto found = self().group(code);
        return found ? found->integer() : absent;
    }
    double real(int code, double absent = 0) const {
        const auto found = self().group(code);
        return found ? found->real() : absent;
    }
    /// Degrees as radians.
    double angle(int code, double absent = 0) const {
        const auto found = self().group(code);
        return found ? found->real() * pi / 180 : absent;
    }
    /// Groups `code`, `code` + 10 and `code` + 20; what is missing comes from `absent`.
    Vec3 point(int code, const Vec3& absent = {}) const {
        return {real(code, absent.x), real(code + 10, absent.y), real(code + 20, absent.z)};
    }
    /// A handle (hexadecimal); 0 when absent.
    uint64_t handle(int code) const {
        const auto found = self().group(code);
        return found ? found->handle() : 0;
    }

  private:
    const Record& self() const { return static_cast<const Record&>(*this); }
};

}  // namespace dxf
