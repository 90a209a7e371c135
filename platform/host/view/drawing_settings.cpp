#include "platform/host/view/drawing_settings.h"

#include "base/file_contents.h"
#include "platform/host/dxf/own_groups.h"
#include "platform/host/view/transform3.h"

namespace host {

namespace {

/// The handle of a record's extension dictionary, which is not among its own groups; 0 without one.
uint64_t extension_dictionary(const dxf::RecordView& record) {
    dxf::GroupCursor cursor = record.groups();
    dxf::Group group;
    bool own_type = true;
    bool inside = false;
    while (cursor.next(group) && (own_type || group.code != 0)) {
        own_type = false;
        if (group.code == 102) {
            inside = group.word() == "{ACAD_XDICTIONARY";
        } else if (inside && group.code == 360) {
            return group.handle();
        }
    }
    return 0;
}

/// The boundary of a SPATIAL_FILTER, two corners or a polygon, by the first of its matrices in the block's coordinates.
std::vector<Vec3> read_boundary(const dxf::RecordFields& filter) {
    constexpr size_t matrix_size = 12;
    std::vector<Vec3> boundary = filter.points(10);
    std::vector<double> numbers = filter.reals(40);
    if (numbers.size() > 2 * matrix_size) {  // distances of clipping planes go before
        numbers.erase(numbers.begin(), numbers.end() - 2 * matrix_size);
    }
    if (boundary.size() == 2) {
        boundary = {boundary[0], {boundary[1].x, boundary[0].y, 0}, boundary[1], {boundary[0].x, boundary[1].y, 0}};
    }
    if (boundary.size() < 3 || numbers.size() < matrix_size) {
        return {};
    }
    const Transform3 to_world = object_coordinates(filter);
    const Transform3 to_block{{numbers[0], numbers[4], numbers[8]},
                              {numbers[1], numbers[5], numbers[9]},
                              {numbers[2], numbers[6], numbers[10]},
                              {numbers[3], numbers[7], numbers[11]}};
    for (Vec3& corner : boundary) {
        corner = to_block(to_world({corner.x, corner.y, 0}));
    }
    return boundary;
}

}  // namespace

double DrawingSettings::header_real(const std::string& name, int code, double absent) {
    const auto [found, added] = variables_.try_emplace(name, dxf::no_record);
    if (added) {
        found->second = drawing_.header_variable(name);
    }
    return found->second == dxf::no_record ? absent : drawing_.view(found->second).real(code, absent);
}

const PointMarks& DrawingSettings::point_marks() {
    if (!point_marks_) {
        constexpr double usual_percent = 5;
        point_marks_.emplace();
        point_marks_->mode = static_cast<int>(header_real("$PDMODE", 70, 0));
        double size = header_real("$PDSIZE", 40, 0);
        if (size <= 0) {
            const double height = header_real("$EXTMAX", 20, 0) - header_real("$EXTMIN", 20, 0);
            size = height * (size < 0 ? -size : usual_percent) / 100;
        }
        point_marks_->size = size;
    }
    return *point_marks_;
}

bool DrawingSettings::wipeout_frames() {
    if (!wipeout_frames_) {
        wipeout_frames_ = true;
        const dxf::NameId type = drawing_.type_names().find(L"WIPEOUTVARIABLES");
        for (const dxf::RecordId id : drawing_.objects()) {
            const dxf::Record& object = drawing_.record(id);
            if (object.type == type && !object.is(dxf::Record::erased)) {
                wipeout_frames_ = drawing_.view(id).integer(70, 1) != 0;
            }
        }
    }
    return *wipeout_frames_;
}

void DrawingSettings::index_handles() {
    const auto index = [this](const dxf::RecordRun& run) {
        for (const dxf::RecordId id : run) {
            const dxf::Record& record = drawing_.record(id);
            if (record.handle != 0 && !record.is(dxf::Record::erased)) {
                by_handle_.try_emplace(record.handle, id);
            }
        }
    };
    for (const dxf::Table& table : drawing_.tables()) {
        index(table.entries);
    }
    index(drawing_.objects());
    handles_indexed_ = true;
}

dxf::RecordId DrawingSettings::by_handle(uint64_t handle) {
    if (!handles_indexed_) {
        index_handles();
    }
    const auto found = by_handle_.find(handle);
    return found == by_handle_.end() ? dxf::no_record : found->second;
}

dxf::RecordId DrawingSettings::find_entry(dxf::RecordId dictionary, std::string_view name) {
    dxf::OwnGroupCursor cursor(drawing_.view(dictionary).groups());
    dxf::Group group;
    bool named = false;
    while (cursor.next(group)) {
        if (group.code == 3) {
            named = group.word() == name;
        } else if (named && (group.code == 350 || group.code == 360)) {
            return by_handle(group.handle());
        }
    }
    return dxf::no_record;
}

dxf::RecordId DrawingSettings::entry_of(dxf::RecordId dictionary, std::string_view name) {
    if (dictionary == dxf::no_record) {
        return dxf::no_record;
    }
    const auto [found, added] = entries_.try_emplace({dictionary, name}, dxf::no_record);
    if (added) {
        found->second = find_entry(dictionary, name);
    }
    return found->second;
}

const std::vector<Vec3>& DrawingSettings::clip_of(const dxf::RecordView& reference) {
    static const std::vector<Vec3> none;
    const uint64_t dictionary = has_clips_ ? extension_dictionary(reference) : 0;
    if (dictionary == 0) {
        return none;
    }
    const dxf::RecordId filter = entry_of(entry_of(by_handle(dictionary), "ACAD_FILTER"), "SPATIAL");
    if (filter == dxf::no_record) {
        return none;
    }
    const auto [found, added] = clips_.try_emplace(filter);
    if (added) {
        found->second = read_boundary(dxf::RecordFields(drawing_.view(filter)));
    }
    return found->second;
}

const std::wstring& DrawingSettings::block_name(uint64_t handle) {
    const auto [found, added] = block_names_.try_emplace(handle);
    const dxf::RecordId id = added && handle != 0 ? by_handle(handle) : dxf::no_record;
    if (id != dxf::no_record && drawing_.type_names().name(drawing_.record(id).type) == L"BLOCK_RECORD") {
        found->second = drawing_.view(id).text(2);
    }
    return found->second;
}

/// Files are named by styles of shapes, with or without a folder, which is another machine's.
void DrawingSettings::read_shape_files() {
    constexpr int64_t of_shapes = 1;
    constexpr size_t most_files = 20;
    shape_files_.emplace();
    const dxf::Table* const table = drawing_.table("STYLE");
    if (table == nullptr) {
        return;
    }
    for (const dxf::RecordId id : table->entries) {
        if (drawing_.record(id).is(dxf::Record::erased) || shape_files_->size() == most_files ||
            (drawing_.view(id).integer(70) & of_shapes) == 0) {
            continue;
        }
        const std::wstring said = drawing_.view(id).text(3);
        std::filesystem::path path = drawing_.path().parent_path() / said.substr(said.find_last_of(L"/\\") + 1);
        const auto contents = base::FileContents::read(path.has_extension() ? path : path.replace_extension(L".shx"));
        if (std::optional<ShapeFile> file = contents ? ShapeFile::read(contents->bytes()) : std::nullopt) {
            shape_files_->push_back(*std::move(file));
        }
    }
}

const std::vector<ShapeStroke>& DrawingSettings::shape(const std::string& name) {
    if (!shape_files_) {
        read_shape_files();
    }
    const auto [place, is_new] = shapes_.try_emplace(name);
    for (size_t file = 0; is_new && file < shape_files_->size() && place->second.empty(); ++file) {
        place->second = (*shape_files_)[file].strokes(name);
    }
    return place->second;
}

}  // namespace host
