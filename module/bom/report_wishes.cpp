#include "bom/report_wishes.h"

#include <afxwin.h>
#include <aced.h>
#include <acutads.h>
#include <dbmain.h>

#include <filesystem>
#include <fstream>
#include <utility>

#include "base/background.h"
#include "base/file_digest.h"
#include "base/replace_file.h"
#include "bom/report_grid.h"
#include "bom/report_options.h"
#include "bom/report_rows.h"
#include "common/drawing_objects.h"
#include "pricelist/price_list_file.h"

namespace corvanes {

namespace {

std::wstring environment_value(const wchar_t* name) {
    wchar_t value[ACED_ENV_LENGTH];
    return acedGetEnv(name, value) == RTNORM ? value : L"";
}

BillSource source_of(const std::filesystem::path& path) {
    BillSource source{path.filename().wstring(), 0, {}};
    if (const auto digest = base::file_digest(path)) {
        source.size = digest->size;
        source.sha256 = digest->sha256;
    }
    return source;
}

std::vector<std::string> lines_of(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);) {
        if (!line.empty()) {
            lines.push_back(std::move(line));
        }
    }
    return lines;
}

std::filesystem::path drawing_path() {
    const AcDbDatabase* const database = working_database();
    const wchar_t* path = nullptr;
    return database != nullptr && database->getFilename(path) == Acad::eOk && path != nullptr ? path : L"";
}

}  // namespace

ReportWishes report_wishes() {
    return {environment_value(L"CORVANES_NOTES") == L"1", environment_value(L"CORVANES_DYNAMIC_NAMES") == L"1",
            environment_value(L"CORVANES_JSON"), environment_value(L"CORVANES_SOURCE")};
}

void print_notes(const ReportWishes& wishes, const BlockCount& count) {
    if (wishes.print_notes) {
        for (const std::wstring& line : note_lines(count.notes)) {
            acutPrintf(L"\n%s", line.c_str());
        }
    }
}

BillFile::BillFile(const ReportWishes& wishes) : path_(wishes.json_file) {
    if (path_.empty()) {
        return;
    }
    made_from_ = lines_of(wishes.source_file);
    if (made_from_.empty()) {
        drawing_ = base::run_beside([path = drawing_path()] { return source_of(path); });
    }
}

void BillFile::write(BlockCount&& count, MyCug2& grid) {
    if (path_.empty()) {
        return;
    }
    Bill bill;
    bill.made_from = std::move(made_from_);
    if (bill.made_from.empty()) {
        bill.drawing = drawing_.get();
    }
    if (grid.price_list_attached()) {
        bill.price_list = source_of(report_options().price_list_path);
    }
    bill.rows = shown_rows(grid);
    bill.with_prices = report_options().show_prices;
    bill.counted = std::move(count.counted);
    bill.notes = std::move(count.notes);
    base::FileReplacement file(path_);
    write_bill_json(std::move(bill), [&file](std::string_view piece) { static_cast<void>(file.write(piece)); });
    if (!file.commit()) {
        alert_cannot_open(path_.c_str());
    }
}

}  // namespace corvanes
