#include "bom/drawing_survey.h"

#include <aced.h>
#include <acedsel.h>
#include <dbapserv.h>
#include <dbblkref.h>
#include <dbdatabase.h>
#include <dblyrtbl.h>
#include <dbobjptr.h>
#include <dbsymtb.h>

#include <algorithm>
#include <array>
#include <functional>
#include <map>
#include <memory>
#include <utility>

#include "bom/drawing_objects.h"
#include "bom/nested_references.h"

namespace corvanes {

namespace {

constexpr int columns_code = 70;
constexpr int rows_code = 71;
constexpr int layer_code = 8;
constexpr int operator_code = -4;

AcDbDatabase* working_database() {
    return acdbHostApplicationServices()->workingDatabase();
}

/// A filter list of the host: codes with texts or integers.
class Filter {
  public:
    Filter() { groups_.reserve(8); }
    Filter& text(int code, const wchar_t* value) {
        texts_.push_back(std::make_unique<std::wstring>(value));
        add(code).resval.rstring = texts_.back()->data();
        return *this;
    }
    Filter& integer(int code, short value) {
        add(code).resval.rint = value;
        return *this;
    }
    const resbuf* list() const { return groups_.data(); }

  private:
    resbuf& add(int code) {
        groups_.push_back({});
        groups_.back().restype = static_cast<short>(code);
        for (std::size_t i = 0; i + 1 < groups_.size(); ++i) {
            groups_[i].rbnext = &groups_[i + 1];
        }
        return groups_.back();
    }

    std::vector<resbuf> groups_;
    std::vector<std::unique_ptr<std::wstring>> texts_;
};

/// Calls back with the name and id of every entity of the drawing that the filter accepts.
void for_each_filtered(const Filter& filter, const std::function<void(const ads_name, AcDbObjectId)>& handler) {
    ads_name set;
    if (acedSSGet(L"_X", nullptr, nullptr, filter.list(), set) != RTNORM) {
        return;
    }
    long length = 0;
    acedSSLength(set, &length);
    for (long i = 0; i < length; ++i) {
        ads_name name;
        AcDbObjectId id;
        if (acedSSName(set, i, name) == RTNORM && acdbGetObjectId(id, name) == Acad::eOk) {
            handler(name, id);
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

/// A pattern that a name alone matches.
std::wstring exact_pattern(const std::wstring& name) {
    std::wstring pattern;
    for (const wchar_t character : name) {
        if (std::wstring_view(L"#@.*?~[]-,`").find(character) != std::wstring_view::npos) {
            pattern += L'`';
        }
        pattern += character;
    }
    return pattern;
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
        wchar_t* name = nullptr;
        if (layer.openStatus() == Acad::eOk && layer->isFrozen() && layer->getName(name) == Acad::eOk) {
            pattern += (pattern.empty() ? L"" : L",") + exact_pattern(name);
            acutDelString(name);
        }
    }
    return pattern;
}

/// References by block, in the order in which the blocks first come.
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

/// Place, scale and rotation. Zeros of both signs are one.
std::array<double, 7> placement(const AcDbBlockReference& reference) {
    const AcGePoint3d at = reference.position();
    const AcGeScale3d scale = reference.scaleFactors();
    return {at.x + 0.0, at.y + 0.0, at.z + 0.0, scale.sx, scale.sy, scale.sz, reference.rotation() + 0.0};
}

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

    /// Reads what each block holds, those among them that are reached on the way.
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
            if (iterator->getEntityId(id) == Acad::eOk && id.objectClass() == AcDbBlockReference::desc()) {
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

std::uint64_t handle_of(AcDbObjectId id) {
    return id.handle();
}

}  // namespace

void DrawingSurvey::add(AcDbObjectId reference, AcDbObjectId block) {
    const auto [place, is_new] = places_.emplace(block.asOldId(), blocks_.size());
    if (is_new) {
        blocks_.push_back({block, {}});
    }
    blocks_[place->second].references.push_back(reference);
}

std::wstring DrawingSurvey::name_of(const Block& block) const {
    const auto true_name =
        true_names_ ? dynamic_block_name(block.record, block.references.front()) : std::optional<std::wstring>();
    return true_name ? *true_name : block_name(block.record);
}

BillSurvey DrawingSurvey::finish(const ads_name selection, bool true_names) {
    true_names_ = true_names;
    for (const Block& block : blocks_) {
        const std::wstring name = name_of(block);
        BlockReferences references{name, {}};
        references.handles.reserve(block.references.size());
        for (const AcDbObjectId reference : block.references) {
            references.handles.push_back(handle_of(reference));
        }
        if (const auto true_name =
                true_names ? std::nullopt : dynamic_block_name(block.record, block.references.front())) {
            survey_.dynamic.push_back({references, *true_name});
        }
        survey_.counted.push_back(std::move(references));
        find_stacked(block, name);
    }
    find_arrays(selection);
    find_frozen();
    find_nested();
    return std::move(survey_);
}

void DrawingSurvey::find_arrays(const ads_name selection) {
    Filter several;
    several.text(0, L"INSERT").text(operator_code, L"<OR").text(operator_code, L">").integer(columns_code, 1);
    several.text(operator_code, L">").integer(rows_code, 1).text(operator_code, L"OR>");
    for_each_filtered(several, [&](const ads_name name, AcDbObjectId id) {
        if (acedSSMemb(name, selection) == RTNORM) {
            const ObjectGroups groups(id);
            const auto number = [&groups](int code) { return std::max(1, groups.integer(code, 1)); };
            survey_.arrays.push_back(
                {block_name(block_of(id)), handle_of(id), number(columns_code), number(rows_code)});
        }
    });
}

void DrawingSurvey::find_frozen() {
    const std::wstring layers = frozen_layers();
    if (layers.empty()) {
        return;
    }
    const AcDbObjectId space = working_database()->currentSpaceId();
    ByBlock found;
    Filter frozen;
    frozen.text(0, L"INSERT").text(layer_code, layers.c_str());
    for_each_filtered(frozen, [&](const ads_name, AcDbObjectId id) {
        if (space_of(id) == space) {
            found.add(block_name(block_of(id)), handle_of(id));
        }
    });
    survey_.frozen = std::move(found.all);
}

void DrawingSurvey::find_stacked(const Block& block, const std::wstring& name) {
    if (block.references.size() < 2) {
        return;
    }
    std::vector<std::pair<std::array<double, 7>, AcDbObjectId>> placed;
    placed.reserve(block.references.size());
    for (const AcDbObjectId id : block.references) {
        const AcDbObjectPointer<AcDbBlockReference> reference(id, AcDb::kForRead);
        if (reference.openStatus() == Acad::eOk) {
            placed.emplace_back(placement(*reference), id);
        }
    }
    std::sort(placed.begin(), placed.end());
    BlockReferences stacked{name, {}};
    for (std::size_t i = 1; i < placed.size(); ++i) {
        if (placed[i].first == placed[i - 1].first) {
            stacked.handles.push_back(handle_of(placed[i].second));
        }
    }
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
