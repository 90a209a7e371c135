// Drawings in memory, and their index as text, so that tests compare it whole.
#pragma once

#include <memory>
#include <string>

#include "base/code_page.h"
#include "platform/host/dxf/drawing.h"
#include "tests/support/drawing_groups.h"
#include "tests/support/temporary_folder.h"

namespace dxf_test {

using test_support::contents;
using test_support::TemporaryFolder;

inline std::unique_ptr<dxf::Drawing> read(const std::string& bytes) {
    auto opened = dxf::Drawing::from_bytes(bytes, "memory.dxf");
    return opened ? *std::move(opened) : nullptr;
}

inline std::string type_of(const dxf::Drawing& drawing, dxf::RecordId id) {
    return base::utf8_from_wide(drawing.type_names().name(drawing.record(id).type));
}

/// "LINE", "INSERT(door)@layer", with "/paper", "+parts" and "-erased" where they hold.
inline std::string record_text(const dxf::Drawing& drawing, dxf::RecordId id) {
    const dxf::Record& record = drawing.record(id);
    std::string text = type_of(drawing, id);
    if (record.block_name != dxf::no_name) {
        text += "(" + base::utf8_from_wide(drawing.block_names().name(record.block_name)) + ")";
    }
    text += record.layer == dxf::no_name ? "" : "@" + base::utf8_from_wide(drawing.layer_names().name(record.layer));
    text += record.is(dxf::Record::paper_space) ? "/paper" : "";
    text += record.is(dxf::Record::has_parts) ? "+parts" : "";
    return text + (record.is(dxf::Record::erased) ? "-erased" : "");
}

inline std::string run_text(const dxf::Drawing& drawing, const dxf::RecordRun& run) {
    std::string text;
    for (const dxf::RecordId id : run) {
        text += " " + record_text(drawing, id);
    }
    return text;
}

/// Version, tables, blocks, entities and objects, each in a line.
inline std::string drawing_text(const dxf::Drawing& drawing) {
    std::string text = drawing.version() + "\n";
    for (const dxf::Table& table : drawing.tables()) {
        text += table.name + ":";
        for (const dxf::RecordId id : table.entries) {
            text += " " + base::utf8_from_wide(drawing.view(id).text(2));
        }
        text += "\n";
    }
    for (const dxf::Block& block : drawing.blocks()) {
        text += "block " + base::utf8_from_wide(drawing.block_names().name(block.name)) + ":" +
                run_text(drawing, block.entities) + "\n";
    }
    return text + "entities:" + run_text(drawing, drawing.entities()) +
           "\nobjects:" + run_text(drawing, drawing.objects()) + "\n";
}

}  // namespace dxf_test
