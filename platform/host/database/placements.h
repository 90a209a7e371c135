// Placements, which tells where the INSERTs of a drawing stand, and reads ahead for who asks for all of them.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <future>
#include <memory>
#include <vector>

#include "base/background.h"
#include "platform/host/dxf/drawing.h"
#include "platform/host/dxf/entities.h"

namespace host {

/// Reads the placement of one INSERT at a time, until many have been asked for in the order of the file. From then on
/// another thread, where there is a processor for it, reads those of the next some thousand records while the ones
/// before are asked for. An edit of the drawing waits for that thread and ends the reading ahead.
class Placements {
  public:
    /// The drawing must live as long.
    explicit Placements(dxf::Drawing& drawing) : drawing_(drawing) {}
    Placements(const Placements&) = delete;
    Placements& operator=(const Placements&) = delete;

    /// The fields of a record's INSERT, after all edits. The reference is valid until the next call.
    const dxf::Insert& of(dxf::RecordId record) {
        if (record != last_ || drawing_.edits_made() != edits_) {
            find(record);
        }
        return *found_;
    }

  private:
    /// The placements of the INSERTs among some neighbouring records.
    struct Window {
        dxf::RecordId begin = 0;
        std::vector<dxf::Insert> by_record;  ///< default ones of other records
        std::atomic<size_t> taken = 0;       ///< how many of them some thread has read or is about to read

        bool holds(dxf::RecordId record) const { return record >= begin && record - begin < by_record.size(); }
    };
    using WindowPointer = std::shared_ptr<Window>;

    /// Reads what of a window no other thread has taken.
    static void read(const dxf::Drawing& drawing, Window& window);
    /// Makes `record` the last one that was asked for.
    void find(dxf::RecordId record);
    bool follows_last(dxf::RecordId record) const;
    void read_ahead(dxf::RecordId begin);
    /// Makes the window that was read ahead the current one, when this thread and the other have read it to its end,
    /// and has the one behind it read.
    void advance();
    void stop();

    static constexpr dxf::RecordId first_window = 512;

    dxf::Drawing& drawing_;
    const bool reads_ahead_ = base::usable_processors() > 1;
    uint64_t edits_ = 0;                   ///< that the drawing had when what is below was read
    dxf::RecordId last_ = dxf::no_record;  ///< that was asked for
    unsigned in_order_ = 0;                ///< how many of those asked for last followed the one before
    const dxf::Insert* found_ = &one_;     ///< of last_; in the current window, or else one_
    dxf::Insert one_;
    WindowPointer current_ = std::make_shared<Window>();
    WindowPointer next_ = std::make_shared<Window>();  ///< which another thread reads, while read_ is valid
    std::shared_future<void> read_;
    dxf::RecordId next_size_ = first_window;  ///< of the window that will be read after next_
};

}  // namespace host
