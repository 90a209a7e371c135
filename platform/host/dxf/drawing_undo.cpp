// Steps of edits and taking the last one back.
#include <utility>

#include "platform/host/dxf/drawing.h"

namespace dxf {

void Drawing::note_addition(RecordId id) {
    if (!undoing_) {
        if (std::exchange(step_ended_, false)) {
            step_.clear();
        }
        step_.push_back({id, std::nullopt});
    }
}

void Drawing::note_change(RecordId id) {
    if (!undoing_) {
        if (std::exchange(step_ended_, false)) {
            step_.clear();
        }
        const std::string_view bytes = record(id).is(Record::erased) ? std::string_view() : bytes_of(record(id));
        step_.push_back({id, std::string(bytes)});
    }
}

bool Drawing::undo() {
    const std::vector<Change> step = std::exchange(step_, {});
    undoing_ = true;
    for (auto change = step.rbegin(); change != step.rend(); ++change) {
        if (change->before && !change->before->empty()) {
            rewrite(change->record, *change->before);
            continue;
        }
        if (record(change->record).type == type_block) {
            forget_name_of_block(change->record);
        }
        erase(change->record);
    }
    undoing_ = false;
    return !step.empty();
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
