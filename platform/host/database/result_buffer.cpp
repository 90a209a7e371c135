#include "acutads.h"

#include "platform/host/database/result_buffer.h"

struct resbuf* acutNewRb(int type) {
    auto* const buffer = static_cast<struct resbuf*>(acad_calloc(1, sizeof(struct resbuf)));
    if (buffer != nullptr) {
        buffer->restype = static_cast<short>(type);
    }
    return buffer;
}

int acutRelRb(struct resbuf* list) {
    while (list != nullptr) {
        struct resbuf* const next = list->rbnext;
        switch (host::kind_of_result(list->restype)) {
            case host::ResultKind::text:
                acad_free(list->resval.rstring);
                break;
            case host::ResultKind::binary:
                acad_free(list->resval.rbinary.buf);
                break;
            default:
                break;
        }
        acad_free(list);
        list = next;
    }
    return RTNORM;
}

namespace host {
namespace {

struct CodeRange {
    short first;
    short last;
    ResultKind kind;
};

/// DXF group codes of result buffers, in ascending order.
constexpr CodeRange code_ranges[] = {
    {-5, -5, ResultKind::name},
    {-4, -4, ResultKind::text},
    {-3, -3, ResultKind::none},
    {-2, -1, ResultKind::name},
    {0, 9, ResultKind::text},
    {10, 17, ResultKind::point},
    {18, 59, ResultKind::real},
    {60, 79, ResultKind::short_integer},
    {90, 99, ResultKind::long_integer},
    {100, 109, ResultKind::text},
    {110, 119, ResultKind::point},
    {140, 149, ResultKind::real},
    {170, 179, ResultKind::short_integer},
    {210, 219, ResultKind::point},
    {270, 289, ResultKind::short_integer},
    {290, 299, ResultKind::short_integer},
    {300, 309, ResultKind::text},
    {310, 319, ResultKind::binary},
    {320, 329, ResultKind::text},
    {330, 369, ResultKind::name},
    {370, 389, ResultKind::short_integer},
    {390, 399, ResultKind::name},
    {400, 409, ResultKind::short_integer},
    {410, 419, ResultKind::text},
    {420, 429, ResultKind::long_integer},
    {430, 439, ResultKind::text},
    {1000, 1003, ResultKind::text},
    {1004, 1004, ResultKind::binary},
    {1005, 1009, ResultKind::text},
    {1010, 1013, ResultKind::point},
    {1040, 1042, ResultKind::real},
    {1070, 1070, ResultKind::short_integer},
    {1071, 1071, ResultKind::long_integer},
};

ResultKind kind_of_type(int type) {
    switch (type) {
        case RTREAL:
        case RTANG:
        case RTORINT:
            return ResultKind::real;
        case RTPOINT:
        case RT3DPOINT:
            return ResultKind::point;
        case RTSHORT:
            return ResultKind::short_integer;
        case RTLONG:
            return ResultKind::long_integer;
        case RTSTR:
        case RTDXF0:
            return ResultKind::text;
        case RTENAME:
        case RTPICKS:
            return ResultKind::name;
        case RTVOID:
        case RTLB:
        case RTLE:
        case RTDOTE:
        case RTNIL:
        case RTT:
            return ResultKind::none;
        default:
            return ResultKind::unknown;
    }
}

}  // namespace

ResultKind kind_of_result(int type) {
    if (type >= RTNONE) {
        return kind_of_type(type);
    }
    for (const CodeRange& range : code_ranges) {
        if (type >= range.first && type <= range.last) {
            return range.kind;
        }
    }
    return ResultKind::unknown;
}

}  // namespace host
