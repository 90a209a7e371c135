// What the status line says, as texts.
#pragma once

#include <string>

#include "platform/host/dxf/drawing.h"

namespace host {

/// "3 selected"; empty for none.
std::wstring selected_text(size_t count);

/// What an entity is: its type, its layer, of a block reference its block and how many references to it there are
/// beside it in the same space; empty for no_record.
std::wstring entity_text(const dxf::Drawing& drawing, dxf::RecordId entity);

}  // namespace host
