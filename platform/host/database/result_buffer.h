// Result buffers: which member of one holds its value.
#pragma once

namespace host {

enum class ResultKind { none, text, real, point, short_integer, long_integer, name, binary, unknown };

/// The kind of value for an RT code or a DXF group code.
ResultKind kind_of_result(int type);

}  // namespace host
