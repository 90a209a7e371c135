#include "platform/host/database/placements.h"

#include <algorithm>
#include <utility>

#include "platform/host/dxf/number_fields.h"

namespace host {
namespace {

constexpr unsigned enough_in_order = 64;
constexpr dxf::RecordId widest_gap = 8;
constexpr dxf::RecordId growth = 4;  // of the next window: little is read in vain, and few threads are started
constexpr dxf::RecordId largest_window = 32768;
constexpr size_t piece = 512;  // records that a thread takes at a time

void read_insert(const dxf::Drawing& drawing, dxf::RecordId record, dxf::Insert& insert) {
    static const dxf::NumberFields<dxf::Insert> fields;
    fields.read(drawing.view(record), insert);
}

}  // namespace

void Placements::find(dxf::RecordId record) {
    if (const uint64_t edits = drawing_.edits_made(); edits != edits_) {
        stop();
        last_ = dxf::no_record;
        edits_ = edits;
    }
    in_order_ = follows_last(record) ? in_order_ + 1 : 0;
    if (in_order_ == 0) {
        stop();
    }
    if (reads_ahead_ && !current_->holds(record) && in_order_ >= enough_in_order) {
        if (!read_.valid()) {
            read_ahead(record);
        }
        advance();
    }
    if (current_->holds(record)) {
        found_ = &current_->by_record[record - current_->begin];
    } else {
        read_insert(drawing_, record, one_);
        found_ = &one_;
    }
    last_ = record;
}

bool Placements::follows_last(dxf::RecordId record) const {
    return last_ != dxf::no_record && record > last_ && record - last_ <= widest_gap;
}

void Placements::read_ahead(dxf::RecordId begin) {
    if (!next_ || next_.use_count() > 1) {
        next_ = std::make_shared<Window>();
    }
    next_->begin = begin;
    next_->taken = 0;
    next_->by_record.resize(std::min(next_size_, drawing_.record_count() - begin));
    next_size_ = std::min(growth * next_size_, largest_window);
    const dxf::Drawing& drawing = drawing_;
    read_ = base::run_beside([&drawing, window = next_] { read(drawing, *window); }).share();
    drawing_.let_read(read_);
}

void Placements::advance() {
    read(drawing_, *next_);
    read_.get();
    read_ = {};
    std::swap(current_, next_);
    const dxf::RecordId end = current_->begin + static_cast<dxf::RecordId>(current_->by_record.size());
    if (end < drawing_.record_count()) {
        read_ahead(end);
    } else {
        next_ = {};
    }
}

void Placements::stop() {
    read_ = {};
    current_ = std::make_shared<Window>();
    next_size_ = first_window;
    in_order_ = 0;
}

void Placements::read(const dxf::Drawing& drawing, Window& window) {
    const size_t size = window.by_record.size();
    for (size_t at = window.taken.fetch_add(piece); at < size; at = window.taken.fetch_add(piece)) {
        for (size_t i = at; i < std::min(at + piece, size); ++i) {
            const dxf::RecordId record = window.begin + static_cast<dxf::RecordId>(i);
            if (drawing.record(record).type == dxf::type_insert) {
                read_insert(drawing, record, window.by_record[i]);
            }
        }
    }
}

}  // namespace host
