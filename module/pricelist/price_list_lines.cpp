#include "pricelist/price_list_lines.h"

#include <algorithm>

namespace corvanes {
namespace {

constexpr wchar_t separator = L'|';

/// Reads a text as a stream in text mode gives its lines: CR LF is one line feed.
class LineReader {
  public:
    explicit LineReader(std::wstring_view text) : rest_(text) {}

    /// The next piece of at most `longest_line` characters, its line feed included. Sets at_end() when the text ended
    /// before a line feed or the limit was met. The view lives until the next call.
    std::wstring_view next() {
        const size_t feed = rest_.substr(0, longest_line + 1).find(L'\n');
        const bool return_before = feed != std::wstring_view::npos && feed > 0 && rest_[feed - 1] == L'\r';
        if (feed != std::wstring_view::npos && !return_before && feed < longest_line) {
            return take(feed + 1);
        }
        if (return_before && feed <= longest_line) {
            // The view ends in the carriage return, in the place of a line feed; the caller cuts the last character
            // without a look at it.
            const std::wstring_view line = take(feed + 1);
            return line.substr(0, line.size() - 1);
        }
        at_end_ = rest_.size() < longest_line;
        return take(std::min(rest_.size(), longest_line));
    }

    bool at_end() const { return at_end_; }
    /// The line of the text, from 1, that the last piece stands in, and whether the piece begins it.
    size_t number() const { return number_; }
    bool begins_line() const { return begins_line_; }

  private:
    std::wstring_view take(size_t count) {
        const std::wstring_view taken = rest_.substr(0, count);
        rest_.remove_prefix(count);
        begins_line_ = line_ended_;
        number_ += line_ended_ ? 1 : 0;
        line_ended_ = !taken.empty() && taken.back() == L'\n';
        return taken;
    }

    std::wstring_view rest_;
    size_t number_ = 0;
    bool line_ended_ = true;
    bool begins_line_ = true;
    bool at_end_ = false;
};

bool split_line(std::wstring_view line, PriceListEntry& entry) {
    entry = {};
    if (TakeField(line, entry.name, separator) == 1 && TakeField(line, entry.price, separator) == 1) {
        TakeField(line, entry.description, separator);
    }
    return !entry.name.empty() && !entry.price.empty();
}

}  // namespace

int TakeField(std::wstring_view& cursor, std::wstring_view& destination, wchar_t field_separator) {
    const auto ends_field = [=](wchar_t character) {
        return character == field_separator || character == L'\0' || character == L'\n';
    };
    const auto stop = std::find_if(cursor.begin(), cursor.end(), ends_field);
    destination = cursor.substr(0, static_cast<size_t>(stop - cursor.begin()));
    cursor.remove_prefix(destination.size());
    if (cursor.empty() || cursor.front() != field_separator) {
        return 0;
    }
    cursor.remove_prefix(1);
    return 1;
}

PriceListCounts read_entries(std::wstring_view text, const std::function<void(const PriceListEntry&)>& handler) {
    PriceListCounts counts;
    LineReader reader(text);
    std::wstring_view line = reader.next();
    while (!reader.at_end()) {
        line.remove_suffix(1);
        PriceListEntry entry;
        if (split_line(line, entry)) {
            handler(entry);
            ++counts.entries;
        } else {
            ++counts.dropped;
        }
        line = reader.next();
    }
    counts.dropped += line.empty() ? 0 : 1;
    return counts;
}

void read_lines(std::wstring_view text, const std::function<void(const PriceListLine&)>& handler) {
    LineReader reader(text);
    for (std::wstring_view line = reader.next(); !reader.at_end(); line = reader.next()) {
        line.remove_suffix(1);
        PriceListLine read{reader.number(), {}, LineFate::entry};
        const bool entry = split_line(line, read.entry);
        const bool separated = line.find(separator) != std::wstring_view::npos;
        read.fate = !reader.begins_line()     ? LineFate::too_long
                    : entry                   ? LineFate::entry
                    : line.empty()            ? LineFate::blank
                    : !separated              ? LineFate::no_separator
                    : read.entry.name.empty() ? LineFate::no_name
                                              : LineFate::no_price;
        handler(read);
    }
    if (const size_t last = text.rfind(L'\n') + 1; last < text.size()) {
        handler({reader.number(), {}, LineFate::no_line_end});
    }
}

EntryLoss loss_on_reading(const PriceListEntry& entry) {
    size_t length = 0;
    for (const std::wstring_view field : {entry.name, entry.price, entry.description}) {
        if (field.find(separator) != std::wstring_view::npos) {
            return EntryLoss::separator;
        }
        if (field.find(L'\n') != std::wstring_view::npos) {
            return EntryLoss::line_end;
        }
        length += field.size() + 1;
    }
    return length > longest_line ? EntryLoss::length : EntryLoss::nothing;
}

void append_entry(std::wstring& text, const PriceListEntry& entry) {
    if (entry.name.empty() && entry.price.empty() && entry.description.empty()) {
        return;
    }
    for (const std::wstring_view field : {entry.name, entry.price}) {
        text.append(field).push_back(separator);
    }
    text.append(entry.description).append(L"\r\n");
}

}  // namespace corvanes
