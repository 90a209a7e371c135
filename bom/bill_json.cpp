#include "bom/bill_json.h"

#include <charconv>
#include <unordered_map>

#include "base/case_folding.h"
#include "base/code_page.h"
#include "bom/report_text.h"

namespace corvanes {

namespace {

constexpr int schema_version = 1;
constexpr const char* program = "Corvanes 1.0.0";

std::string quoted(std::wstring_view text) {
    constexpr char hexadecimal[] = "0123456789abcdef";
    std::string json = "\"";
    for (const char byte : base::utf8_from_wide(text)) {
        if (byte == '"' || byte == '\\') {
            json += '\\';
            json += byte;
        } else if (static_cast<unsigned char>(byte) < 0x20) {
            json += "\\u00";
            json += hexadecimal[byte >> 4];
            json += hexadecimal[byte & 15];
        } else {
            json += byte;
        }
    }
    return json + '"';
}

std::string handle_text(std::uint64_t handle) {
    char digits[16];
    const auto end = std::to_chars(digits, digits + sizeof digits, handle, 16).ptr;
    std::string text(digits, end);
    for (char& digit : text) {
        digit = digit >= 'a' ? static_cast<char>(digit - 'a' + 'A') : digit;
    }
    return '"' + text + '"';
}

template <class Items, class Write>
std::string array_of(const Items& items, const char* separator, Write write) {
    std::string json;
    for (const auto& item : items) {
        json += (json.empty() ? "" : separator) + write(item);
    }
    return '[' + json + ']';
}

std::string handles_of(const std::vector<std::uint64_t>& handles) {
    return array_of(handles, ", ", handle_text);
}

std::string source_of(const BillSource& source) {
    std::string json = "{\"name\": " + quoted(source.name);
    if (!source.sha256.empty()) {
        json += ", \"size\": " + std::to_string(source.size) + ", \"sha256\": \"" + source.sha256 + '"';
    }
    return json + '}';
}

/// Money is null where it was not shown.
std::string money(const Bill& bill, const std::wstring& text) {
    return bill.with_prices && !text.empty() ? quoted(text) : "null";
}

class RowWriter {
  public:
    explicit RowWriter(const Bill& bill) : bill_(bill) {
        for (const BlockReferences& block : bill.counted) {
            std::vector<std::uint64_t>& all = handles_[base::lower(block.name)];
            all.insert(all.end(), block.handles.begin(), block.handles.end());
        }
    }

    std::string write(const ReportCells& row) {
        // Of two rows with one name the list's last entry has the references.
        const bool counted = row[quantity_column] != L"0";
        const auto found = handles_.find(base::lower(row[name_column]));
        return "{\"block\": " + quoted(row[name_column]) + ", \"price\": " + money(bill_, row[price_column]) +
               ", \"quantity\": " + std::string(row[quantity_column].begin(), row[quantity_column].end()) +
               ", \"description\": " + quoted(row[description_column]) +
               ", \"total\": " + money(bill_, row[total_column]) + ", \"handles\": " +
               handles_of(counted && found != handles_.end() ? found->second : std::vector<std::uint64_t>()) + '}';
    }

  private:
    const Bill& bill_;
    std::unordered_map<std::wstring, std::vector<std::uint64_t>> handles_;
};

std::string note_object(const Note& note) {
    std::string json = "{\"code\": " + quoted(name_of(note.code)) + ", \"text\": " + quoted(note.text);
    if (!note.block.empty()) {
        json += ", \"block\": " + quoted(note.block);
    }
    if (!note.handles.empty()) {
        json += ", \"handles\": " + handles_of(note.handles);
    }
    if (note.line != 0) {
        json += ", \"line\": " + std::to_string(note.line);
    }
    return json + ", \"number\": " + std::to_string(note.number) + '}';
}

}  // namespace

std::string bill_json(const Bill& bill) {
    std::vector<ReportCells> rows = bill.rows;
    std::wstring sum;
    // A summary has no quantity; a block of that name has one. An empty report gets a summary with each sort.
    while (!rows.empty() && rows.back()[quantity_column].empty()) {
        sum = rows.back()[total_column];
        rows.pop_back();
    }
    RowWriter writer(bill);
    return "{\"schema\": " + std::to_string(schema_version) + ",\n\"program\": \"" + program +
           "\",\n\"drawing\": " + source_of(bill.drawing) +
           ",\n\"prices\": " + (bill.price_list ? source_of(*bill.price_list) : "null") +
           ",\n\"rows\": " + array_of(rows, ",\n", [&writer](const ReportCells& row) { return writer.write(row); }) +
           ",\n\"sum\": " + money(bill, sum) + ",\n\"notes\": " + array_of(bill.notes, ",\n", note_object) +
           ",\n\"note_lines\": " + array_of(note_lines(bill.notes), ",\n", quoted) + "}\n";
}

}  // namespace corvanes
