// Prints what the store counts in each drawing named on the command line, one line each:
// path, version, INSERTs in model space, in paper space, inside blocks; or "error" and the reason.
#include <cstdint>
#include <cstdio>
#include <string>

#include "platform/host/dxf/drawing.h"
#include "platform/host/dxf/space_names.h"

namespace {

struct Counts {
    uint64_t model = 0;
    uint64_t paper = 0;
    uint64_t in_blocks = 0;
};

/// Layouts other than the current one keep their entities in blocks of their own: those count as paper space.
Counts count_inserts(const dxf::Drawing& drawing) {
    Counts counts;
    for (const dxf::RecordId id : drawing.entities()) {
        const dxf::Record& record = drawing.record(id);
        if (record.type == dxf::type_insert) {
            ++(record.is(dxf::Record::paper_space) ? counts.paper : counts.model);
        }
    }
    for (const dxf::Block& block : drawing.blocks()) {
        const std::wstring& name = drawing.block_names().name(block.name);
        uint64_t& count = dxf::is_paper_space_name(name)   ? counts.paper
                          : dxf::is_model_space_name(name) ? counts.model
                                                           : counts.in_blocks;
        for (const dxf::RecordId id : block.entities) {
            count += drawing.record(id).type == dxf::type_insert ? 1 : 0;
        }
    }
    return counts;
}

}  // namespace

int main(int count, char** arguments) {
    for (int i = 1; i < count; ++i) {
        const auto opened = dxf::Drawing::open(std::filesystem::path(arguments[i]));
        if (!opened) {
            std::printf("%s\terror\t%s\n", arguments[i], opened.reason().message().c_str());
            continue;
        }
        const Counts counts = count_inserts(**opened);
        std::printf("%s\t%s\t%llu\t%llu\t%llu\n", arguments[i], (*opened)->version().c_str(),
                    static_cast<unsigned long long>(counts.model), static_cast<unsigned long long>(counts.paper),
                    static_cast<unsigned long long>(counts.in_blocks));
    }
}
