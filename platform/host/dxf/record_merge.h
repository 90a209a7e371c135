// Changing an existing record's values while every other byte of it stays.
#pragma once

#include <string>
#include <vector>

#include "platform/host/dxf/field_writer.h"

namespace dxf {

/// The record's bytes with the fields' values. A group whose value is the field's already (reals within 1e-12 of it)
/// keeps its bytes; a field without a group is put in behind the one before it unless that means the same. Type,
/// handle, owner and subclass markers never change, nor does anything but the record's own groups.
std::string merge_fields(const RecordView& record, const std::vector<Field>& fields, const Manner& manner);

}  // namespace dxf
