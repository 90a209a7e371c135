// The lossless drawing store: a DXF file in memory, an index of its records, and edits that change nothing else.
#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <future>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/file_contents.h"
#include "base/replace_file.h"
#include "base/result.h"
#include "platform/host/dxf/edits.h"
#include "platform/host/dxf/error.h"
#include "platform/host/dxf/index.h"
#include "platform/host/dxf/record.h"
#include "platform/host/dxf/record_view.h"
#include "platform/host/dxf/record_writer.h"

namespace dxf {

class Drawing;

/// A drawing, or why there is none.
using OpenResult = base::Result<std::unique_ptr<Drawing>, Error>;

/// One open drawing. Reading gives the state with all edits so far; nothing reaches the disk before save().
class Drawing {
  public:
    static OpenResult open(const std::filesystem::path& path);
    /// A drawing in memory; `name` stands for the file in errors.
    static OpenResult from_bytes(std::string bytes, const std::filesystem::path& name);
    ~Drawing();
    Drawing(const Drawing&) = delete;
    Drawing& operator=(const Drawing&) = delete;

    // What the drawing is.
    const std::filesystem::path& path() const { return path_; }
    /// $ACADVER; "AC1009" when the drawing does not say.
    const std::string& version() const { return index_.version; }
    Encoding encoding() const { return index_.encoding; }
    /// A number that no other drawing of this process has.
    uint64_t serial() const { return serial_; }
    /// The bytes of the drawing when it was opened, and all bytes that edits have added.
    uint64_t size() const { return original().size() + edits_.bytes(); }
    const TextCodec& codec() const { return index_.codec; }
    /// How to encode what is to be added to this drawing.
    Manner manner() const;

    // Names. Ids in a Record refer to these.
    const NameTable& type_names() const { return index_.types; }
    const NameTable& layer_names() const { return index_.layers; }
    const NameTable& block_names() const { return index_.block_names; }

    // Records.
    RecordId record_count() const { return static_cast<RecordId>(index_.records.size()); }
    const Record& record(RecordId id) const { return index_.records[id]; }
    RecordView view(RecordId id) const;
    /// Top-level records of the ENTITIES section: model space, and the current paper space (Record::paper_space).
    const RecordRun& entities() const { return index_.entities; }
    const RecordRun& objects() const { return index_.objects; }
    const std::vector<Block>& blocks() const { return index_.blocks; }
    /// The first block of that name (an index into blocks()), or no_block.
    BlockId block_named(NameId name) const;
    const std::vector<Table>& tables() const { return index_.tables; }
    /// The table with the name in capitals ("LAYER", "BLOCK_RECORD"), or nullptr.
    const Table* table(std::string_view name) const;
    /// The entry of a table by name (group 2) without regard to case, or no_record. Erased entries are passed over.
    RecordId table_entry(std::string_view table_name, std::wstring_view entry) const;
    /// A header variable ("$HANDSEED"), or no_record. Its view's first group has code 9. Erased ones are passed over.
    RecordId header_variable(std::string_view name) const;

    // Edits. Bytes come from a RecordWriter of manner(), one whole record with its sub-records each.
    bool edited() const { return !edits_.empty(); }
    /// The number of edits since the drawing was opened; it shows whether there were any since an earlier call. Undoing
    /// counts as new edits.
    uint64_t edits_made() const { return edits_.made(); }
    /// The records that edits changed or erased, one for each such edit in its order. Additions are not among them.
    const std::vector<RecordId>& changed_records() const { return changed_; }
    /// Whether new records need handles: R13 and later always, R12 where the drawing uses them.
    bool uses_handles() const;
    /// A handle that the drawing does not use; 0 when it uses none. $HANDSEED follows at save().
    uint64_t allocate_handle();
    /// Appends to the ENTITIES section (paper space when the record says so by group 67).
    RecordId append_entity(std::string bytes);
    RecordId append_to_block(BlockId block, std::string bytes);
    /// A new, empty block between its BLOCK and ENDBLK records.
    BlockId append_block(std::string head, std::string end);
    /// Appends to a table and raises its count (group 70); makes the table when it is missing.
    RecordId append_entry(std::string_view table_name, std::string bytes);
    RecordId append_object(std::string bytes);
    /// Appends to the HEADER section; the first group names the variable, with code 9.
    RecordId append_header_variable(std::string bytes);
    /// Replaces the value of the nth own group with this code, keeping all else; false when there is no such group.
    bool replace_value(RecordId id, int code, const Value& value, size_t nth = 0);
    /// Replaces a record's bytes.
    void rewrite(RecordId id, std::string bytes);
    /// Leaves a record with its sub-records out of the saved drawing.
    void erase(RecordId id);

    /// Allows a reader on another thread, which has finished when the future has its result. The next edit, or the end
    /// of the drawing, first waits for all readers.
    template <class Result>
    void let_read(const std::shared_future<Result>& reader) {
        add_reader({[reader] { return reader.wait_for(std::chrono::seconds(0)) == std::future_status::ready; },
                    [reader] { reader.wait(); }});
    }

    /// The steps that undo() takes back; UndoHistory::state tells whether the drawing is as it was at an earlier time.
    UndoHistory& history() { return history_; }
    const UndoHistory& history() const { return history_; }
    /// Undoes the last step: restores what it changed or erased, and erases what it added. Handles that it took stay
    /// taken, and a section or table that it needed stays, empty. Returns the step's name; nothing when there is no
    /// step.
    std::optional<std::wstring> undo();

    /// Writes the drawing: the bytes as opened with the edits applied. An unedited drawing is written byte for byte.
    /// The file that was opened may be the target; what others have done to it since does not matter.
    base::WriteStatus save(const std::filesystem::path& target);

  private:
    Drawing(std::filesystem::path path, base::FileContents contents, std::string memory);

    struct Reader {
        std::function<bool()> has_finished;
        std::function<void()> wait;
    };

    static OpenResult load(std::unique_ptr<Drawing> drawing);
    void add_reader(Reader reader);
    void await_readers();
    std::string_view original() const;
    std::string_view bytes_of(const Record& record) const;
    RecordId add_record(std::string bytes, Place before);
    void update_record(RecordId id, std::string bytes);
    void settle_hand_seed();
    base::WriteStatus write_to(base::FileReplacement& file) const;
    /// The end of the section, which is made in its usual place when it is missing.
    Place ensure_section(std::string_view name);
    void end_last_line(Place before);
    void keep_end_before(Place& end, Place section_end);
    /// Remember a record's bytes before a change; an added record had none.
    void note_change(RecordId id);
    void note_addition(RecordId id);
    void forget_name_of_block(RecordId head);
    Table& ensure_table(std::string_view name);

    std::filesystem::path path_;
    base::FileContents contents_;
    std::string memory_;
    DrawingIndex index_;
    EditList edits_;
    UndoHistory history_;
    std::vector<RecordId> changed_;
    std::vector<Reader> readers_;
    const uint64_t serial_;
    uint64_t next_handle_ = 0;
    bool hand_seed_due_ = false;
};

}  // namespace dxf
