#include "bom/drawing_survey.h"

#include <aced.h>
#include <acedsel.h>
#include <dbapserv.h>
#include <dbents.h>
#include <dbmain.h>
#include <dbsymtb.h>
#include <dbobjptr.h>

#include <algorithm>
#include <bit>
#include <functional>
#include <iterator>
#include <map>
#include <memory>
#include <tuple>
#include <unordered_map>
#include <utility>

#include "bom/nested_references.h"
#include "common/drawing_objects.h"
#include "common/host_text.h"

namespace corvanes {

namespace {

constexpr int layer_code = 8;

/// Calls back with every block reference of the drawing on a layer that the pattern matches.
void for_each_reference_on(std::wstring layers, const std::function<void(AcDbObjectId)>& handler) {
    wchar_t type[] = L"INSERT";
    resbuf on_layer{};
    on_layer.restype = layer_code;
    on_layer.resval.rstring = layers.data();
    resbuf filter{};
    filter.resval.rstring = type;
    filter.rbnext = &on_layer;
    ads_name set;
    if (acedSSGet(L"_X", nullptr, nullptr, &filter, set) != RTNORM) {
        return;
    }
    long length = 0;
    acedSSLength(set, &length);
    for (long i = 0; i < length; ++i) {
        ads_name name;
        AcDbObjectId id;
        if (acedSSName(set, i, name) == RTNORM && acdbGetObjectId(id, name) == Acad::eOk) {
            handler(id);
        }
    }
    acedSSFree(set);
}

AcDbObjectId block_of(AcDbObjectId reference) {
    const AcDbObjectPointer<AcDbBlockReference> open(reference, AcDb::kForRead);
    return open.openStatus() == Acad::eOk ? open->blockTableRecord() : AcDbObjectId::kNull;
}

AcDbObjectId space_of(AcDbObjectId reference) {
    const AcDbObjectPointer<AcDbBlockReference> open(reference, AcDb::kForRead);
    return open.openStatus() == Acad::eOk ? open->blockId() : AcDbObjectId::kNull;
}

/// The names of the frozen layers as one pattern; empty without any.
std::wstring frozen_layers() {
    std::wstring pattern;
    const AcDbObjectPointer<AcDbLayerTable> layers(working_database()->layerTableId(), AcDb::kForRead);
    AcDbLayerTableIterator* walk = nullptr;
    if (layers.openStatus() != Acad::eOk || layers->newIterator(walk) != Acad::eOk) {
        return pattern;
    }
    const std::unique_ptr<AcDbLayerTableIterator> iterator(walk);
    for (; !iterator->done(); iterator->step()) {
        AcDbObjectId id;
        iterator->getRecordId(id);
        const AcDbObjectPointer<AcDbLayerTableRecord> layer(id, AcDb::kForRead);
        HostText name;
        if (layer.openStatus() == Acad::eOk && layer->isFrozen() && layer->getName(name.place()) == Acad::eOk) {
            pattern += (pattern.empty() ? L"" : L",") + literal_pattern(name.get());
        }
    }
    return pattern;
}

/// Groups references by block, in the order in which the blocks first come.
class ByBlock {
  public:
    void add(const std::wstring& name, std::uint64_t handle) {
        const auto [place, is_new] = places_.emplace(name, all.size());
        if (is_new) {
            all.push_back({name, {}});
        }
        all[place->second].handles.push_back(handle);
    }
    std::vector<BlockReferences> all;

  private:
    std::unordered_map<std::wstring, std::size_t> places_;
};

std::uint64_t handle_of(AcDbObjectId id) {
    return id.handle();
}

/// A hash of a reference's place, scale, rotation and plane (which tells a mirrored reference). Zeros of both signs
/// count as equal.
std::uint64_t place_of(const AcDbBlockReference& reference) {
    const AcGePoint3d at = reference.position();
    const AcGeScale3d scale = reference.scaleFactors();
    const AcGeVector3d normal = reference.normal();
    std::uint64_t place = 0;
    std::uint64_t factor = 1;
    for (const double number :
         {at.x, at.y, at.z, scale.sx, scale.sy, scale.sz, reference.rotation(), normal.x, normal.y, normal.z}) {
        factor *= 0x9E3779B97F4A7C15;  // 2^64 divided by the golden ratio: its powers share no pattern
        const auto bits = std::bit_cast<std::uint64_t>(number + 0.0);  // -0.0 + 0.0 is 0.0
        place += (bits ^ bits >> 32) * factor;                         // the low half of a round number's bits is empty
    }
    return place ^ place >> 32;
}

/// A set of hashes that may hold more than was put in, but never less: it has one bit for each of many classes.
class HashBits {
  public:
    /// Makes room for so many hashes that at most one in sixteen meets another's bit.
    explicit HashBits(std::size_t hashes) : bits_(std::bit_ceil(16 * hashes + 1)) {}
    /// Adds a hash; false when it was there already.
    bool insert(std::uint64_t hash) {
        const bool is_new = !contains(hash);
        bits_[place(hash)] = true;
        return is_new;
    }
    bool contains(std::uint64_t hash) const { return bits_[place(hash)]; }

  private:
    std::size_t place(std::uint64_t hash) const { return hash & (bits_.size() - 1); }

    std::vector<bool> bits_;
};

/// The graph of the blocks that are reached from the counted ones.
class BlockGraph {
  public:
    std::size_t number_of(AcDbObjectId record) {
        const auto [place, is_new] = numbers_.emplace(record.asOldId(), records.size());
        if (is_new) {
            records.push_back(record);
            held.emplace_back();
        }
        return place->second;
    }

    /// Reads what each block holds. Blocks that are met on the way are added and read too.
    void read() {
        for (std::size_t block = 0; block < records.size(); ++block) {
            read_block(block);
        }
    }

    std::vector<AcDbObjectId> records;
    std::vector<std::vector<HeldBlock>> held;

  private:
    void read_block(std::size_t block) {
        const AcDbObjectPointer<AcDbBlockTableRecord> record(records[block], AcDb::kForRead);
        AcDbBlockTableRecordIterator* walk = nullptr;
        if (record.openStatus() != Acad::eOk || record->newIterator(walk) != Acad::eOk) {
            return;
        }
        const std::unique_ptr<AcDbBlockTableRecordIterator> iterator(walk);
        std::map<std::size_t, std::uint64_t> inner;
        for (; !iterator->done(); iterator->step()) {
            AcDbObjectId id;
            if (iterator->getEntityId(id) == Acad::eOk && id.objectClass()->isDerivedFrom(AcDbBlockReference::desc())) {
                if (const AcDbObjectId held_block = block_of(id); !held_block.isNull()) {
                    ++inner[number_of(held_block)];
                }
            }
        }
        for (const auto& [number, references] : inner) {
            held[block].push_back({number, references});
        }
    }

    std::unordered_map<Adesk::IntDbId, std::size_t> numbers_;
};

}  // namespace

void DrawingSurvey::add(const AcDbBlockReference& reference, AcDbObjectId block, std::size_t number) {
    if (number == blocks_.size()) {
        blocks_.push_back({block, reference.objectId(), std::pmr::deque<Reference>(&memory_)});
    }
    blocks_[number].references.push_back({place_of(reference), handle_of(reference.objectId())});
    if (const auto* const array = AcDbMInsertBlock::cast(&reference)) {
        survey_.arrays.push_back({block_name(block), handle_of(reference.objectId()), array->columns(), array->rows()});
    }
}

std::wstring DrawingSurvey::name_of(const Block& block) const {
    const auto true_name = true_names_ ? dynamic_block_name(block.record, block.first) : std::optional<std::wstring>();
    return true_name ? *true_name : block_name(block.record);
}

BillSurvey DrawingSurvey::finish(bool true_names) {
    true_names_ = true_names;
    for (Block& block : blocks_) {
        const std::wstring name = name_of(block);
        BlockReferences references{name, {}};
        references.handles.reserve(block.references.size());
        for (const Reference& reference : block.references) {
            references.handles.push_back(reference.handle);
        }
        if (const auto true_name = true_names ? std::nullopt : dynamic_block_name(block.record, block.first)) {
            survey_.dynamic.push_back({references, *true_name});
        }
        survey_.counted.push_back(std::move(references));
        find_stacked(block, name);
    }
    find_frozen();
    find_nested();
    return std::move(survey_);
}

void DrawingSurvey::find_frozen() {
    const std::wstring layers = frozen_layers();
    if (layers.empty()) {
        return;
    }
    const AcDbObjectId space = working_database()->currentSpaceId();
    ByBlock found;
    for_each_reference_on(layers, [&](AcDbObjectId id) {
        if (space_of(id) == space) {
            found.add(block_name(block_of(id)), handle_of(id));
        }
    });
    survey_.frozen = std::move(found.all);
}

void DrawingSurvey::find_stacked(const Block& block, const std::wstring& name) {
    // Nearly all places differ, and sorting a million of them takes long. So only those are sorted that share a bit of
    // the set with another.
    HashBits seen(block.references.size());
    HashBits shared(block.references.size());
    for (const Reference& reference : block.references) {
        if (!seen.insert(reference.place)) {
            shared.insert(reference.place);
        }
    }
    std::vector<Reference> references;
    std::copy_if(block.references.begin(), block.references.end(), std::back_inserter(references),
                 [&shared](const Reference& reference) { return shared.contains(reference.place); });
    std::sort(references.begin(), references.end(), [](const Reference& a, const Reference& b) {
        return std::tie(a.place, a.handle) < std::tie(b.place, b.handle);
    });
    BlockReferences stacked{name, {}};
    for (std::size_t i = 1; i < references.size(); ++i) {
        if (references[i].place == references[i - 1].place) {
            stacked.handles.push_back(references[i].handle);
        }
    }
    std::sort(stacked.handles.begin(), stacked.handles.end());
    if (!stacked.handles.empty()) {
        survey_.stacked.push_back(std::move(stacked));
    }
}

void DrawingSurvey::find_nested() {
    BlockGraph graph;
    for (const Block& block : blocks_) {
        graph.number_of(block.record);
    }
    graph.read();
    std::vector<std::uint64_t> outside(graph.records.size(), 0);
    for (const Block& block : blocks_) {
        outside[graph.number_of(block.record)] = block.references.size();
    }
    const std::vector<std::uint64_t> nested = nested_counts(graph.held, outside);
    for (std::size_t block = 0; block < nested.size(); ++block) {
        if (nested[block] > 0) {
            survey_.nested.push_back({block_name(graph.records[block]), nested[block]});
        }
    }
}

}  // namespace corvanes
