// Takes any bytes as a drawing: it must open or be refused in one line. Unedited it must be saved byte for byte; edited
// it must read back as it was seen; and an undone step must leave no trace in any record.
#include <vector>

#include "fuzz/fuzz_input.h"
#include "platform/host/dxf/drawing.h"
#include "platform/host/dxf/record_fields.h"

namespace {

using dxf::Drawing;
using dxf::RecordId;
using fuzz::require;

void append_run(const Drawing& drawing, const dxf::RecordRun& run, std::vector<std::string>& seen) {
    for (const RecordId id : run) {
        if (!drawing.record(id).is(dxf::Record::erased)) {
            seen.emplace_back(drawing.view(id).bytes());
        }
    }
}

/// The bytes of everything that the edits below touch, in order.
std::vector<std::string> records_of(const Drawing& drawing) {
    std::vector<std::string> seen;
    append_run(drawing, drawing.entities(), seen);
    append_run(drawing, drawing.objects(), seen);
    for (const dxf::Block& block : drawing.blocks()) {
        append_run(drawing, block.entities, seen);
    }
    for (const dxf::Table& table : drawing.tables()) {
        append_run(drawing, table.entries, seen);
    }
    return seen;
}

/// Reads all fields of a record and its sub-records.
void read_whole(const dxf::RecordView& view) {
    for (const dxf::Group& group : dxf::RecordFields(view).groups()) {
        view.decode(group.value);
    }
    view.text(1);
    view.integer(70);
    view.real(10);
    view.handle(5);
    for (const dxf::RecordView& part : view.parts()) {
        dxf::RecordFields(part).reals(40);
    }
}

std::string entity(Drawing& drawing, const wchar_t* type, const wchar_t* name) {
    dxf::RecordWriter writer(drawing.manner());
    writer.type(type);
    if (drawing.uses_handles()) {
        writer.handle(5, drawing.allocate_handle());
    }
    return writer.text(2, name).text(8, L"0").take();
}

void edit_record(Drawing& drawing, RecordId id, size_t manner) {
    if (drawing.record(id).is(dxf::Record::erased)) {
        return;
    }
    if (manner == 0) {
        drawing.erase(id);
    } else if (manner == 1) {
        drawing.rewrite(id, entity(drawing, L"POINT", L""));
    } else {
        drawing.replace_value(id, 8, L"Walls");
    }
}

void edit(Drawing& drawing, fuzz::Decisions& decisions) {
    const size_t kind = decisions.below(6);
    if (kind == 0) {
        drawing.append_entity(entity(drawing, L"INSERT", L"A"));
    } else if (kind == 1) {
        drawing.append_entry("STYLE", entity(drawing, L"STYLE", L"S"));
    } else if (kind == 2) {
        drawing.append_block(entity(drawing, L"BLOCK", L"B"), entity(drawing, L"ENDBLK", L""));
    } else if (kind == 3) {
        drawing.append_object(entity(drawing, L"DICTIONARY", L""));
    } else if (kind == 4 && !drawing.blocks().empty()) {
        drawing.append_to_block(static_cast<dxf::BlockId>(decisions.below(drawing.blocks().size())),
                                entity(drawing, L"LINE", L""));
    } else if (!drawing.entities().empty()) {
        auto run = drawing.entities().begin();
        std::advance(run, static_cast<std::ptrdiff_t>(decisions.below(drawing.entities().size())));
        edit_record(drawing, *run, decisions.below(3));
    }
}

/// To be called after the edits, since the handle stays in use.
void check_new_handle(Drawing& drawing) {
    const uint64_t handle = drawing.allocate_handle();
    for (RecordId id = 0; id < drawing.record_count(); ++id) {
        require(handle == 0 || drawing.record(id).handle != handle, "a new handle is nobody's");
        for (const dxf::RecordView& part : drawing.view(id).parts()) {
            require(handle == 0 || part.handle(5) != handle, "a new handle is nobody's");
        }
    }
}

void save_and_compare(Drawing& drawing, const fuzz::ScratchFile& file) {
    require(static_cast<bool>(drawing.save(file.path())), "a drawing can be written");
    const dxf::OpenResult again = Drawing::open(file.path());
    require(static_cast<bool>(again), "what was written can be read");
    require(records_of(**again) == records_of(drawing), "what was written reads as it was seen");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const fuzz::ScratchFile file("drawing_store.dxf");
    const std::string bytes(fuzz::bytes_of(data, size));
    dxf::OpenResult opened = Drawing::from_bytes(bytes, "fuzz.dxf");
    if (!opened) {
        const std::string message = opened.reason().message();
        require(message.find('\n') == std::string::npos && !opened.reason().reason.empty(), "a refusal is one line");
        require(opened.reason().position <= size + 1, "the place of an error is in the file");
        return 0;
    }
    Drawing& drawing = **opened;
    for (RecordId id = 0; id < drawing.record_count(); ++id) {
        read_whole(drawing.view(id));
    }
    require(static_cast<bool>(drawing.save(file.path())), "a drawing can be written");
    require(file.contents() == bytes, "an unedited drawing is written byte for byte");

    fuzz::Decisions decisions(data, size);
    const size_t edits = decisions.below(6);
    for (size_t i = 0; i < edits; ++i) {
        edit(drawing, decisions);
    }
    const std::vector<std::string> before = records_of(drawing);
    const uint64_t made = drawing.edits_made();
    drawing.history().begin_step();
    edit(drawing, decisions);
    edit(drawing, decisions);
    if (drawing.edits_made() != made) {
        require(drawing.undo().has_value(), "a step can be taken back");
        require(records_of(drawing) == before, "undo leaves no trace");
    }
    check_new_handle(drawing);
    save_and_compare(drawing, file);
    return 0;
}
