#include "bom/bill_json.h"

#include <algorithm>
#include <charconv>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "base/case_folding.h"
#include "base/code_page.h"
#include "bom/report_text.h"
#include "base/version.h"

namespace corvanes {

namespace {

constexpr int schema_version = 1;
constexpr const char* program = "Corvanes " CORVANES_VERSION;

/// Writes JSON piece by piece.
class JsonWriter {
  public:
    explicit JsonWriter(const BillSink& sink) : sink_(sink) {}

    JsonWriter& raw(std::string_view json) {
        json_ += json;
        if (json_.size() > piece) {
            flush();
        }
        return *this;
    }
    JsonWriter& number(std::uint64_t value, int base = 10) {
        char digits[20];
        const auto end = std::to_chars(std::begin(digits), std::end(digits), value, base).ptr;
        std::transform(digits, end, digits, [](char digit) { return digit >= 'a' ? digit - 'a' + 'A' : digit; });
        return raw({digits, static_cast<std::size_t>(end - digits)});
    }
    JsonWriter& text(std::wstring_view text) {
        constexpr char hexadecimal[] = "0123456789abcdef";
        json_ += '"';
        for (const char byte : base::utf8_from_wide(text)) {
            if (byte == '"' || byte == '\\') {
                json_ += '\\';
                json_ += byte;
            } else if (static_cast<unsigned char>(byte) < 0x20) {
                json_ += "\\u00";
                json_ += hexadecimal[byte >> 4];
                json_ += hexadecimal[byte & 15];
            } else {
                json_ += byte;
            }
        }
        json_ += '"';
        return *this;
    }
    /// Writes brackets, and between them calls write(item) for each item.
    template <class Items, class Write>
    JsonWriter& array(const Items& items, const char* separator, Write write) {
        json_ += '[';
        bool first = true;
        for (const auto& item : items) {
            raw(std::exchange(first, false) ? "" : separator);
            write(item);
        }
        json_ += ']';
        return *this;
    }
    JsonWriter& handles(const std::vector<std::uint64_t>& handles) {
        return array(handles, ", ", [this](std::uint64_t handle) { raw("\"").number(handle, 16).raw("\""); });
    }
    void flush() {
        sink_(json_);
        json_.clear();
    }

  private:
    static constexpr std::size_t piece = std::size_t{1} << 16;

    const BillSink& sink_;
    std::string json_;
};

class BillWriter {
  public:
    BillWriter(Bill bill, const BillSink& sink) : bill_(std::move(bill)), out_(sink) {
        for (BlockReferences& block : bill_.counted) {
            std::vector<std::uint64_t>& all = handles_[base::lower(block.name)];
            if (all.empty()) {
                all = std::move(block.handles);
            } else {
                all.insert(all.end(), block.handles.begin(), block.handles.end());
            }
        }
    }

    void write() {
        if (!bill_.with_prices) {
            hide_quoted_prices();
        }
        std::vector<ReportCells> rows = bill_.rows;
        std::wstring sum;
        // Summary rows are dropped. They have no quantity, which tells them from a block with the summary's name; an
        // empty report gets another one with each sort.
        while (!rows.empty() && rows.back()[quantity_column].empty()) {
            sum = rows.back()[total_column];
            rows.pop_back();
        }
        out_.raw("{\"schema\": ").number(schema_version).raw(",\n\"program\": \"").raw(program);
        out_.raw("\",\n\"drawing\": ");
        if (bill_.made_from.empty()) {
            write_source(bill_.drawing);
        } else {
            out_.raw(bill_.made_from.front());
        }
        out_.raw(",\n\"prices\": ");
        if (bill_.price_list) {
            write_source(*bill_.price_list);
        } else {
            out_.raw("null");
        }
        out_.raw(",\n\"columns\": ");
        write_columns();
        out_.raw(",\n\"rows\": ").array(rows, ",\n", [this](const ReportCells& row) { write_row(row); });
        out_.raw(",\n\"sum\": ");
        write_money(sum);
        write_list("notes", '{', bill_.notes, [this](const Note& note) { write_note(note); });
        write_list("note_lines", '"', note_lines(bill_.notes), [this](const std::wstring& line) { out_.text(line); });
        out_.raw("}\n").flush();
    }

  private:
    void hide_quoted_prices() {
        for (Note& note : bill_.notes) {
            if (note.code == NoteCode::partly_read_price) {
                note.text = L"line " + std::to_wstring(note.line);
            }
        }
    }

    void write_source(const BillSource& source) {
        out_.raw("{\"name\": ").text(source.name);
        if (!source.sha256.empty()) {
            out_.raw(", \"size\": ").number(source.size).raw(", \"sha256\": \"").raw(source.sha256).raw("\"");
        }
        out_.raw("}");
    }

    /// Writes a list: first the lines of `made_from` that begin with the character `beginning`, then the bill's items.
    template <class Items, class Write>
    void write_list(const char* name, char beginning, const Items& items, Write write) {
        write_name(",\n", name);
        const char* separator = "[";
        for (std::size_t i = 1; i < bill_.made_from.size(); ++i) {
            if (bill_.made_from[i].front() == beginning) {
                out_.raw(std::exchange(separator, ",\n")).raw(bill_.made_from[i]);
            }
        }
        for (const auto& item : items) {
            out_.raw(std::exchange(separator, ",\n"));
            write(item);
        }
        out_.raw(*separator == '[' ? "[]" : "]");
    }

    void write_columns() {
        const char* separator = "{";
        for (const ReportColumnTraits& column : report_column_traits) {
            if (bill_.with_prices || !column.money) {
                write_name(std::exchange(separator, ", "), column.member);
                out_.text(column.heading);
            }
        }
        out_.raw("}");
    }

    void write_name(const char* separator, const char* name) { out_.raw(separator).raw("\"").raw(name).raw("\": "); }

    /// Writes an amount of money, or null when the report did not show it.
    void write_money(const std::wstring& text) {
        if (bill_.with_prices && !text.empty()) {
            out_.text(text);
        } else {
            out_.raw("null");
        }
    }

    void write_row(const ReportCells& row) {
        // Of two rows with one name only the counted one, the list's last entry of that name, has the references.
        const bool counted = row[quantity_column] != L"0";
        const std::vector<std::uint64_t> none;
        const auto found = handles_.find(base::lower(row[name_column]));
        const char* separator = "{";
        for (int column = 0; column < report_columns; ++column) {
            const std::wstring& text = row[static_cast<std::size_t>(column)];
            write_name(std::exchange(separator, ", "), traits_of(column).member);
            if (traits_of(column).money) {
                write_money(text);
            } else if (traits_of(column).number) {
                out_.raw(std::string(text.begin(), text.end()));
            } else {
                out_.text(text);
            }
        }
        out_.raw(", \"handles\": ");
        out_.handles(counted && found != handles_.end() ? found->second : none).raw("}");
    }

    void write_note(const Note& note) {
        out_.raw("{\"code\": ").text(name_of(note.code)).raw(", \"text\": ").text(note.text);
        if (!note.block.empty()) {
            out_.raw(", \"block\": ").text(note.block);
        }
        if (!note.handles.empty()) {
            out_.raw(", \"handles\": ").handles(note.handles);
        }
        if (note.line != 0) {
            out_.raw(", \"line\": ").number(note.line);
        }
        out_.raw(", \"number\": ").number(note.number).raw("}");
    }

    Bill bill_;
    std::unordered_map<std::wstring, std::vector<std::uint64_t>> handles_;
    JsonWriter out_;
};

}  // namespace

void write_bill_json(Bill bill, const BillSink& sink) {
    BillWriter(std::move(bill), sink).write();
}

}  // namespace corvanes
