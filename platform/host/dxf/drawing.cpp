#include "platform/host/dxf/drawing.h"

#include <algorithm>
#include <atomic>
#include <utility>

#include "base/case_folding.h"
#include "base/progress.h"
#include "platform/host/dxf/index_builder.h"

namespace dxf {

namespace {

/// Written at once: large enough for the disk, small enough for every system call.
constexpr size_t write_size = size_t{8} << 20;

uint64_t next_serial() {
    static std::atomic<uint64_t> last{0};
    return ++last;
}

}  // namespace

Drawing::Drawing(std::filesystem::path path, base::FileContents contents, std::string memory)
    : path_(std::move(path)), contents_(std::move(contents)), memory_(std::move(memory)), serial_(next_serial()) {}

Drawing::~Drawing() {
    await_readers();
}

void Drawing::add_reader(Reader reader) {
    std::erase_if(readers_, [](const Reader& earlier) { return earlier.has_finished(); });
    readers_.push_back(std::move(reader));
}

void Drawing::await_readers() {
    for (const Reader& reader : std::exchange(readers_, {})) {
        reader.wait();
    }
}

OpenResult Drawing::open(const std::filesystem::path& path) {
    auto contents = base::FileContents::read(path);
    if (!contents) {
        return base::Failure{Error{.file = path, .reason = contents.reason()}};
    }
    return load(std::unique_ptr<Drawing>(new Drawing(path, *std::move(contents), {})));
}

OpenResult Drawing::from_bytes(std::string bytes, const std::filesystem::path& name) {
    return load(std::unique_ptr<Drawing>(new Drawing(name, {}, std::move(bytes))));
}

OpenResult Drawing::load(std::unique_ptr<Drawing> drawing) {
    if (const base::Outcome<Error> indexed = build_index(drawing->original(), drawing->index_); !indexed) {
        Error error = indexed.reason();
        error.file = drawing->path_;
        return base::Failure{std::move(error)};
    }
    return drawing;
}

std::string_view Drawing::original() const {
    return memory_.empty() ? contents_.bytes() : std::string_view(memory_);
}

Manner Drawing::manner() const {
    return {index_.encoding, index_.line_end, index_.codec};
}

std::string_view Drawing::bytes_of(const Record& record) const {
    if (record.place.added()) {
        return edits_.piece(record.place);
    }
    const std::string_view bytes = original();
    const uint64_t offset = std::min<uint64_t>(record.place.number(), bytes.size());
    return bytes.substr(offset, record.length);
}

RecordView Drawing::view(RecordId id) const {
    return RecordView(bytes_of(index_.records[id]), index_.encoding, index_.codec);
}

BlockId Drawing::block_named(NameId name) const {
    return name < index_.block_of_name.size() ? index_.block_of_name[name] : no_block;
}

const Table* Drawing::table(std::string_view name) const {
    const auto found = std::find_if(index_.tables.begin(), index_.tables.end(),
                                    [name](const Table& table) { return table.name == name; });
    return found == index_.tables.end() ? nullptr : &*found;
}

RecordId Drawing::table_entry(std::string_view table_name, std::wstring_view entry) const {
    const Table* const found = table(table_name);
    if (found == nullptr) {
        return no_record;
    }
    for (const RecordId id : found->entries) {
        if (!record(id).is(Record::erased) && base::compare_ignoring_case(view(id).text(2), entry) == 0) {
            return id;
        }
    }
    return no_record;
}

RecordId Drawing::header_variable(std::string_view name) const {
    for (const RecordId id : index_.header) {
        if (!record(id).is(Record::erased) && view(id).type() == name) {
            return id;
        }
    }
    return no_record;
}

void Drawing::note_addition(RecordId id) {
    history_.note({id, std::nullopt});
}

void Drawing::note_change(RecordId id) {
    const std::string_view bytes = record(id).is(Record::erased) ? std::string_view() : bytes_of(record(id));
    history_.note({id, std::string(bytes)});
    changed_.push_back(id);
}

std::optional<std::wstring> Drawing::undo() {
    await_readers();
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

/// Frees the block's name for another block.
void Drawing::forget_name_of_block(RecordId head) {
    const NameId name = record(head).block_name;
    const BlockId block = block_named(name);
    if (block != no_block && index_.blocks[block].head == head) {
        index_.block_of_name[name] = no_block;
    }
}

base::WriteStatus Drawing::write_to(base::FileReplacement& file) const {
    base::WriteStatus status;
    double written = 0;
    edits_.apply(original(), [&](std::string_view bytes, Place) {
        while (status && !bytes.empty()) {
            const std::string_view piece = bytes.substr(0, write_size);
            status = file.write(piece);
            bytes.remove_prefix(piece.size());
            written += static_cast<double>(piece.size());
            if (status && piece.size() == write_size &&
                !base::ProgressWatch::goes_on(std::min(1.0, written / static_cast<double>(size())))) {
                status = base::Failure<std::string>{"Writing it was stopped"};
            }
        }
        return static_cast<bool>(status);
    });
    return status;
}

base::WriteStatus Drawing::save(const std::filesystem::path& target) {
    settle_hand_seed();
    base::FileReplacement file(target);
    base::WriteStatus written = write_to(file);
    return written ? file.commit() : written;
}

}  // namespace dxf
