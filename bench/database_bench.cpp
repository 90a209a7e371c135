// Times what a report asks of the database: database_bench DRAWING [ROUNDS]. Prints the best round: lines of a name,
// seconds, and the ratio to the time of opening the drawing.
#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <utility>

#include "acedsel.h"
#include "acutads.h"
#include "dbapserv.h"
#include "dbents.h"
#include "dbsymtb.h"
#include "platform/host/database/database_store.h"
#include "platform/host/database/entity_selector.h"

namespace {

using Clock = std::chrono::steady_clock;

enum Step { opening, selecting, counting, locating, in_window, step_count };
constexpr const char* step_names[] = {"open drawing", "select block references", "open each and its block",
                                      "place of each", "select by window"};
using Times = std::array<double, step_count>;

class Timer {
  public:
    double lap() {
        const auto now = Clock::now();
        return std::chrono::duration<double>(now - std::exchange(start_, now)).count();
    }

  private:
    Clock::time_point start_ = Clock::now();
};

/// Opens each reference of the set, calls visit(reference) and closes it. False when one cannot be opened.
template <typename Visit>
bool visit_references(const ads_name set, long length, Visit visit) {
    for (long i = 0; i < length; ++i) {
        ads_name entity;
        AcDbObjectId id;
        AcDbBlockReference* reference = nullptr;
        if (acedSSName(set, i, entity) != RTNORM || acdbGetObjectId(id, entity) != Acad::eOk ||
            acdbOpenObject(reference, id, AcDb::kForRead) != Acad::eOk) {
            return false;
        }
        visit(*reference);
        reference->close();
    }
    return true;
}

/// Opens what the report's count opens. Adds up the lengths of the names, so that the compiler leaves nothing out.
size_t count_letters(const ads_name set, long length) {
    size_t letters = 0;
    const bool counted = visit_references(set, length, [&letters](const AcDbBlockReference& reference) {
        AcDbBlockTableRecord* record = nullptr;
        if (acdbOpenObject(record, reference.blockTableRecord(), AcDb::kForRead) == Acad::eOk) {
            ACHAR* name = nullptr;
            record->getName(name);
            letters += std::wcslen(name);
            acutDelString(name);
            record->close();
        }
    });
    return counted ? letters : 0;
}

/// Asks each reference for its place, as the notes of a report do. Adds the places up.
double add_places(const ads_name set, long length) {
    double sum = 0;
    visit_references(set, length, [&sum](const AcDbBlockReference& reference) {
        sum += reference.position().x + reference.scaleFactors().sx + reference.rotation() + reference.normal().z;
    });
    return sum;
}

bool run(const std::filesystem::path& path, Times& times) {
    Timer timer;
    const host::OpenDatabase opened = host::open_database(path);
    if (!opened) {
        std::fprintf(stderr, "%s\n", opened.reason().message().c_str());
        return false;
    }
    AcDbDatabase* const drawing = opened->get();
    times[opening] = timer.lap();
    acdbHostApplicationServices()->setWorkingDatabase(drawing);
    struct resbuf* const filter = acutNewRb(0);
    filter->resval.rstring = acad__strdup(L"INSERT");
    ads_name set;
    long length = 0;
    timer.lap();
    const bool selected = acedSSGet(L"A", nullptr, nullptr, filter, set) == RTNORM;
    times[selecting] = timer.lap();
    acutRelRb(filter);
    acedSSLength(set, &length);
    timer.lap();
    const size_t letters = selected ? count_letters(set, length) : 0;
    times[counting] = timer.lap();
    const double places = selected ? add_places(set, length) : 0;
    times[locating] = timer.lap();
    host::EntitySelector selector(drawing->store());
    const size_t inside = selector.in_window({-1e9, -1e9, 0}, {1e9, 1e9, 0}).size();
    times[in_window] = timer.lap();
    std::fprintf(stderr, "%ld references, %zu letters, places %g, %zu in the window\n", length, letters, places,
                 inside);
    acdbHostApplicationServices()->setWorkingDatabase(nullptr);
    return letters != 0;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fprintf(stderr, "database_bench DRAWING [ROUNDS]\n");
        return 2;
    }
    const int rounds = argc > 2 ? std::atoi(argv[2]) : 3;
    Times best;
    best.fill(1e9);
    for (int round = 0; round < rounds; ++round) {
        Times times;
        if (!run(std::filesystem::path(argv[1]), times)) {
            return 1;
        }
        std::transform(times.begin(), times.end(), best.begin(), best.begin(),
                       [](double now, double before) { return std::min(now, before); });
    }
    for (size_t step = 0; step < step_count; ++step) {
        std::printf("%-28s %8.4f s %6.2f\n", step_names[step], best[step], best[step] / best[opening]);
    }
    return 0;
}
