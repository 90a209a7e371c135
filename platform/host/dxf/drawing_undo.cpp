// Noting edits, and taking steps of them back.
#include "platform/host/dxf/drawing.h"

namespace dxf {

void Drawing::note_addition(RecordId id) {
    history_.note({id, std::nullopt});
}

void Drawing::note_change(RecordId id) {
    const std::string_view bytes = record(id).is(Record::erased) ? std::string_view() : bytes_of(record(id));
    history_.note({id, std::string(bytes)});
    changed_.push_back(id);
}

std::optional<std::wstring> Drawing::undo() {
    await_reader();
    UndoHistory::Step step = history_.take_last();
    if (step.changes.empty()) {
        return std::nullopt;
    }
    {
        const UndoHistory::Pause taking_back(history_);
        for (auto change = step.changes.rbegin(); change != step.changes.rend(); ++change) {
            if (change->before && !change->before->empty()) {
                rewrite(change->record, *change->before);
                continue;
            }
            if (record(change->record).type == type_block) {
                forget_name_of_block(change->record);
            }
            erase(change->record);
        }
    }
    history_.restore_state(step);
    return std::move(step.name);
}

/// The name is free again for another block.
void Drawing::forget_name_of_block(RecordId head) {
    const NameId name = record(head).block_name;
    const BlockId block = block_named(name);
    if (block != no_block && index_.blocks[block].head == head) {
        index_.block_of_name[name] = no_block;
    }
}

}  // namespace dxf
