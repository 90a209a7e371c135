#include <cstdarg>
#include <memory>

#include "acutads.h"
#include "platform/host/database/result_buffer.h"

namespace {

// The analyser does not follow argument lists through references.
// NOLINTBEGIN(clang-analyzer-valist.Uninitialized)

using List = std::unique_ptr<struct resbuf, decltype(&acutRelRb)>;

/// Takes one value of the kind from the arguments. False for a kind without one.
bool take_value(struct resbuf& buffer, host::ResultKind kind, va_list& arguments) {
    switch (kind) {
        case host::ResultKind::none:
            return true;
        case host::ResultKind::text:
            buffer.resval.rstring = acad__strdup(va_arg(arguments, const ACHAR*));
            return true;
        case host::ResultKind::real:
            buffer.resval.rreal = va_arg(arguments, double);
            return true;
        case host::ResultKind::point: {
            const ads_real* const point = va_arg(arguments, const ads_real*);
            ads_point_set(point, buffer.resval.rpoint);
            if (buffer.restype == RTPOINT) {
                buffer.resval.rpoint[Z] = 0.0;
            }
            return true;
        }
        case host::ResultKind::short_integer:
            buffer.resval.rint = static_cast<short>(va_arg(arguments, int));
            return true;
        case host::ResultKind::long_integer:
            buffer.resval.rlong = va_arg(arguments, Adesk::Int32);
            return true;
        case host::ResultKind::name: {
            const Adesk::LongPtr* const name = va_arg(arguments, const Adesk::LongPtr*);
            ads_name_set(name, buffer.resval.rlname);
            return true;
        }
        case host::ResultKind::binary:
        case host::ResultKind::unknown:
            break;
    }
    return false;
}

List build_list(int type, va_list& arguments) {
    List list(nullptr, acutRelRb);
    struct resbuf* last = nullptr;
    for (; type != RTNONE && type != 0; type = va_arg(arguments, int)) {
        struct resbuf* const buffer = acutNewRb(type == RTDXF0 ? 0 : type);
        if (buffer == nullptr) {
            return List(nullptr, acutRelRb);
        }
        if (last == nullptr) {
            list.reset(buffer);
        } else {
            last->rbnext = buffer;
        }
        last = buffer;
        if (!take_value(*buffer, host::kind_of_result(type), arguments)) {
            buffer->restype = RTNIL;  // has no value to release
            return List(nullptr, acutRelRb);
        }
    }
    return list;
}

// NOLINTEND(clang-analyzer-valist.Uninitialized)

}  // namespace

struct resbuf* acutBuildList(int rtype, ...) {
    va_list arguments;
    va_start(arguments, rtype);
    List list = build_list(rtype, arguments);
    va_end(arguments);
    return list.release();
}
