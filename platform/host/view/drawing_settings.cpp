#include "platform/host/view/drawing_settings.h"

namespace host {

double DrawingSettings::header_real(const std::string& name, int code, double absent) {
    const auto [found, added] = variables_.try_emplace(name, dxf::no_record);
    if (added) {
        found->second = drawing_.header_variable(name);
    }
    return found->second == dxf::no_record ? absent : drawing_.view(found->second).real(code, absent);
}

bool DrawingSettings::wipeout_frames() {
    if (!wipeout_frames_) {
        wipeout_frames_ = true;
        const dxf::NameId type = drawing_.type_names().find(L"WIPEOUTVARIABLES");
        for (const dxf::RecordId id : drawing_.objects()) {
            const dxf::Record& object = drawing_.record(id);
            if (object.type == type && !object.is(dxf::Record::erased)) {
                wipeout_frames_ = drawing_.view(id).integer(70, 1) != 0;
            }
        }
    }
    return *wipeout_frames_;
}

void DrawingSettings::index_handles() {
    const auto index = [this](const dxf::RecordRun& run) {
        for (const dxf::RecordId id : run) {
            const dxf::Record& record = drawing_.record(id);
            if (record.handle != 0 && !record.is(dxf::Record::erased)) {
                by_handle_.try_emplace(record.handle, id);
            }
        }
    };
    for (const dxf::Table& table : drawing_.tables()) {
        index(table.entries);
    }
    index(drawing_.objects());
    handles_indexed_ = true;
}

dxf::RecordId DrawingSettings::by_handle(uint64_t handle) {
    if (!handles_indexed_) {
        index_handles();
    }
    const auto found = by_handle_.find(handle);
    return found == by_handle_.end() ? dxf::no_record : found->second;
}

std::wstring DrawingSettings::block_name(uint64_t handle) {
    const dxf::RecordId id = handle == 0 ? dxf::no_record : by_handle(handle);
    if (id == dxf::no_record || drawing_.type_names().name(drawing_.record(id).type) != L"BLOCK_RECORD") {
        return {};
    }
    return drawing_.view(id).text(2);
}

}  // namespace host
