// Copies in rows and columns.
#pragma once

#include <cstdint>

#include "platform/host/view/geometry.h"

namespace host {

/// Something stands `columns` times `rows` times, the first one at its own place.
struct Repeats {
    Vec2 column_step;
    Vec2 row_step;
    uint32_t columns = 1;
    uint32_t rows = 1;

    Vec2 offset(uint32_t column, uint32_t row) const {
        return column_step * static_cast<double>(column) + row_step * static_cast<double>(row);
    }
    /// Around all copies, where `one` is around the first.
    Box2 around(const Box2& one) const;

    /// Calls visit(offset) row by row for the copies whose boxes touch `area`, and for some of their neighbours, until
    /// it gives false. Of copies nearer to each other than `detail` one stands for the others; 0 visits all.
    template <typename Visit>
    void visit(const Box2& one, const Box2& area, double detail, Visit visit) const {
        const uint32_t column_stride = stride(column_step, columns, detail);
        const uint32_t row_stride = stride(row_step, rows, detail);
        const Range seen_rows = seen(Repeats{column_step, {}, columns, 1}.around(one), row_step, rows, area);
        for (uint32_t row = seen_rows.first(row_stride); row < seen_rows.end; row += row_stride) {
            const Vec2 moved = offset(0, row);
            const Range seen_columns = seen({one.low + moved, one.high + moved}, column_step, columns, area);
            for (uint32_t column = seen_columns.first(column_stride); column < seen_columns.end;
                 column += column_stride) {
                if (!visit(offset(column, row))) {
                    return;
                }
            }
        }
    }

  private:
    struct Range {
        uint32_t begin = 0;
        uint32_t end = 0;
        /// The first number that is a multiple of the stride, so that the same copies stand for the others wherever the
        /// area is; the one before the range, if need be.
        uint32_t first(uint32_t stride) const { return begin / stride * stride; }
    };
    static uint32_t stride(Vec2 step, uint32_t count, double detail);
    /// Which of the boxes that follow each other by `step` touch the area, and perhaps one more at each end.
    static Range seen(const Box2& first, Vec2 step, uint32_t count, const Box2& area);
};

}  // namespace host
