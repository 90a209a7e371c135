// Times opening a drawing and counting its block references: dxf_load_bench DRAWING [ROUNDS].
// Prints lines "name seconds" for the best round, and for counting the line feeds of the same bytes.
#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <string>

#include "platform/host/dxf/drawing.h"

namespace {

using Clock = std::chrono::steady_clock;

struct Round {
    double open_seconds = 0;
    double lines_seconds = 0;
    uint64_t inserts = 0;
    uint64_t lines = 0;
    uint64_t bytes = 0;
    uint64_t index_bytes = 0;
    std::string error;
};

double seconds_since(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

/// Opens the drawing and counts per block, as a report does.
void open_and_count(const char* path, Round& round) {
    const auto start = Clock::now();
    const auto opened = dxf::Drawing::open(std::filesystem::path(path));
    if (!opened) {
        round.error = opened.reason().message();
        return;
    }
    std::vector<uint64_t> counts((*opened)->block_names().size() + 1);
    for (const dxf::RecordId id : (*opened)->entities()) {
        const dxf::Record& record = (*opened)->record(id);
        if (record.type == dxf::type_insert) {
            ++counts[std::min<size_t>(record.block_name, counts.size() - 1)];
        }
    }
    for (const uint64_t count : counts) {
        round.inserts += count;
    }
    round.open_seconds = seconds_since(start);
    round.index_bytes = (*opened)->record_count() * uint64_t{sizeof(dxf::Record)};
}

/// The least that is possible: reads the file and looks at each byte once.
void count_lines(const char* path, Round& round) {
    const auto start = Clock::now();
    const auto contents = base::FileContents::read(std::filesystem::path(path));
    if (!contents) {
        round.error = contents.reason();
        return;
    }
    const std::string_view bytes = contents->bytes();
    round.bytes = bytes.size();
    round.lines = static_cast<uint64_t>(std::count(bytes.begin(), bytes.end(), '\n'));
    round.lines_seconds = seconds_since(start);
}

}  // namespace

int main(int count, char** arguments) {
    if (count < 2) {
        std::fprintf(stderr, "usage: dxf_load_bench DRAWING [ROUNDS]\n");
        return 2;
    }
    const int rounds = count > 2 ? std::max(1, std::atoi(arguments[2])) : 5;
    Round best;
    best.open_seconds = best.lines_seconds = std::numeric_limits<double>::max();
    for (int i = 0; i < rounds; ++i) {
        Round round;
        count_lines(arguments[1], round);
        open_and_count(arguments[1], round);
        if (!round.error.empty()) {
            std::fprintf(stderr, "%s\n", round.error.c_str());
            return 1;
        }
        round.open_seconds = std::min(round.open_seconds, best.open_seconds);
        round.lines_seconds = std::min(round.lines_seconds, best.lines_seconds);
        best = round;
    }
    std::printf("inserts %llu\nopen_and_count_seconds %.3f\ncount_lines_seconds %.3f\nratio_to_count_lines %.2f\n",
                static_cast<unsigned long long>(best.inserts), best.open_seconds, best.lines_seconds,
                best.open_seconds / best.lines_seconds);
    std::printf("megabytes_per_second %.0f\nindex_bytes %llu\nfile_bytes %llu\n",
                static_cast<double>(best.bytes) / 1e6 / best.open_seconds,
                static_cast<unsigned long long>(best.index_bytes), static_cast<unsigned long long>(best.bytes));
}
