// LEADER and MULTILEADER.
#include "platform/host/view/curves.h"
#include "platform/host/view/dim_style.h"

namespace host {

namespace {

std::vector<Vec2> plan(const EntityScope& scope, const std::vector<Vec3>& points, bool curved) {
    std::vector<Vec2> seen;
    for (const Vec3& point : curved ? curve_through(points, false, scope.out.budget().most_chords()) : points) {
        seen.push_back(scope.world(point));
    }
    return seen;
}

/// What a MULTILEADER's context data says (groups 300 to 301).
struct LeaderContext {
    struct Line {
        std::vector<Vec3> points;  ///< from the arrow's tip on
    };
    struct Leader {
        std::vector<Line> lines;
        Vec3 end;  ///< of all lines
        Vec3 landing{1, 0, 0};
        double landing_length = 0;
        bool has_end = false;
    };
    MadeText text;
    double arrow_size = 0;
    double gap = 0;
    int64_t text_colour = 0;
    int64_t ground_colour = 0;
    double ground_scale = 1;
    bool has_ground = false;
    bool in_columns = false;  ///< lines run downwards
    bool has_text = false;
    bool has_block = false;
    uint64_t block = 0;
    Vec3 block_position;
    Vec3 block_scale{1, 1, 1};
    double block_rotation = 0;
    std::vector<Leader> leaders;
};

/// Sets the part of a point that group `code` + 0, 10 or 20 holds.
bool read_point(const dxf::Group& group, int code, Vec3& point) {
    if (group.code == code) {
        point.x = group.real();
    } else if (group.code == code + 10) {
        point.y = group.real();
    } else if (group.code == code + 20) {
        point.z = group.real();
    } else {
        return false;
    }
    return true;
}

class ContextReader {
  public:
    explicit ContextReader(const EntityScope& scope) : scope_(scope) {}

    /// Braces nest: the context, leaders in it, and lines in those.
    LeaderContext read() {
        enum Level { outside, context, leader, line } level = outside;
        for (const dxf::Group& group : scope_.fields.groups()) {
            const bool opens = group.code == 300 && level == outside;
            const bool closes = (group.code == 303 && level == leader) || (group.code == 305 && level == line);
            if (opens || closes) {
                level = level == line ? leader : context;
            } else if (group.code == 301 && level == context) {
                break;
            } else if (group.code == 302 && level == context) {
                level = leader;
                said_.leaders.emplace_back();
            } else if (group.code == 304 && level == leader) {
                level = line;
                said_.leaders.back().lines.emplace_back();
            } else if (level == context) {
                read_content(group);
            } else if (level == leader) {
                read_leader(group, said_.leaders.back());
            } else if (level == line) {
                read_line(group, said_.leaders.back().lines.back().points);
            }
        }
        return std::move(said_);
    }

  private:
    void read_content(const dxf::Group& group);
    static void read_leader(const dxf::Group& group, LeaderContext::Leader& leader);
    static void read_line(const dxf::Group& group, std::vector<Vec3>& points) {
        if (group.code == 10) {
            points.push_back({group.real(), 0, 0});
        } else if (!points.empty()) {
            read_point(group, 10, points.back());
        }
    }

    const EntityScope& scope_;
    LeaderContext said_;
};

void ContextReader::read_content(const dxf::Group& group) {
    if (read_point(group, 11, said_.text.normal) || read_point(group, 12, said_.text.position) ||
        read_point(group, 13, said_.text.direction) || read_point(group, 15, said_.block_position) ||
        read_point(group, 16, said_.block_scale)) {
        return;
    }
    switch (group.code) {
        case 41:
            said_.text.height = group.real();
            break;
        case 43:
            said_.text.width = group.real();
            break;
        case 46:
            said_.block_rotation = group.real();
            break;
        case 90:
            said_.text_colour = group.integer();
            break;
        case 91:
            said_.ground_colour = group.integer();
            break;
        case 141:
            said_.ground_scale = group.real();
            break;
        case 172: {
            constexpr int64_t downwards = 3;
            said_.in_columns = group.integer() == downwards;
            break;
        }
        case 291:
            said_.has_ground = group.integer() != 0;
            break;
        case 140:
            said_.arrow_size = group.real();
            break;
        case 145:
            said_.gap = group.real();
            break;
        case 171:
            said_.text.attachment = static_cast<int>(std::clamp<int64_t>(group.integer(), 1, 3));
            break;
        case 290:
            said_.has_text = group.integer() != 0;
            break;
        case 296:
            said_.has_block = group.integer() != 0;
            break;
        case 304:
            said_.text.value = scope_.fields.decode(group.value);
            break;
        case 340:
            said_.text.style = scope_.text_of(scope_.settings.by_handle(group.handle()), 2);
            break;
        case 341:
            said_.block = group.handle();
            break;
        default:
            break;
    }
}

void ContextReader::read_leader(const dxf::Group& group, LeaderContext::Leader& leader) {
    if (read_point(group, 10, leader.end) || read_point(group, 11, leader.landing)) {
        return;
    }
    if (group.code == 290) {
        leader.has_end = group.integer() != 0;
    } else if (group.code == 40) {
        leader.landing_length = group.real();
    }
}

/// The highest byte of such a colour tells what the others are; nothing for that of the entity.
std::optional<Ink> packed_ink(int64_t colour) {
    switch (colour >> 24 & 0xFF) {
        case 0xC2:
            return Ink::rgb(static_cast<uint32_t>(colour));
        case 0xC3:
            return indexed_ink(static_cast<int>(colour & 0xFF));
        default:
            return std::nullopt;
    }
}

/// The last of the groups with a code: those behind the context data have codes that are used within it, too.
const dxf::Group* last_group(const dxf::RecordFields& fields, int code) {
    const auto& groups = fields.groups();
    const auto found =
        std::find_if(groups.rbegin(), groups.rend(), [code](const dxf::Group& group) { return group.code == code; });
    return found == groups.rend() ? nullptr : &*found;
}

void draw_leader_lines(const EntityScope& scope, const LeaderContext& context) {
    const dxf::Group* const kind = last_group(scope.fields, 170);
    const int64_t line_kind = kind == nullptr ? 1 : kind->integer();  // none, straight or curved
    const dxf::Group* const landed = last_group(scope.fields, 291);
    const bool has_landing = landed == nullptr || landed->integer() != 0;
    const std::wstring arrow = scope.settings.block_name(scope.fields.handle(342));
    for (const LeaderContext::Leader& leader : context.leaders) {
        const Vec3 landing_end = leader.end + leader.landing * leader.landing_length;
        for (const LeaderContext::Line& line : leader.lines) {
            std::vector<Vec3> points = line.points;
            if (leader.has_end) {
                points.push_back(leader.end);
            }
            if (line_kind == 0 || points.size() < 2) {
                continue;
            }
            scope.out.strip(plan(scope, points, line_kind == 2));
            if ((points[1] - points[0]).length() > context.arrow_size) {
                draw_arrow_head(scope, arrow, points[0], points[1], context.arrow_size);
            }
        }
        if (line_kind != 0 && leader.has_end && has_landing && leader.landing_length > 0) {
            scope.out.line(scope.world(leader.end), scope.world(landing_end));
        }
    }
}

}  // namespace

void draw_leader(const EntityScope& scope) {
    const DimStyle style(scope);
    if (const std::optional<Ink> ink = style.ink(176)) {
        scope.out.set_ink(*ink);
    }
    const std::vector<Vec3> points = scope.fields.points(10);
    scope.out.strip(plan(scope, points, scope.fields.integer(72) == 1));
    const double size = style.arrow_size();
    if (scope.fields.integer(71, 1) == 1 && points.size() > 1 && (points[1] - points[0]).length() > size) {
        draw_arrow_head(scope, style.arrow(341), points[0], points[1], size);
    }
}

/// Draws what the context data says; the picture that the entity brings along stands in where there are none.
void draw_multileader(const EntityScope& scope) {
    const LeaderContext context = ContextReader(scope).read();
    const bool empty = context.leaders.empty() && !context.has_text && !context.has_block;
    if ((empty || context.in_columns) && draw_proxy_graphics(scope)) {
        return;
    }
    const Ink own = scope.out.ink();
    if (const dxf::Group* const colour = last_group(scope.fields, 91)) {
        scope.out.set_ink(packed_ink(colour->integer()).value_or(own));
    }
    draw_leader_lines(scope, context);
    scope.out.set_ink(own);
    if (context.has_block) {
        const Transform3 where = Transform3::translation(context.block_position) *
                                 Transform3::rotation(context.block_rotation) *
                                 Transform3::scaling(context.block_scale);
        scope.blocks.place(scope.settings.block_name(context.block), where);
    }
    if (context.has_text) {
        scope.out.set_ink(packed_ink(context.text_colour).value_or(own));
        const dxf::Group* const framed = last_group(scope.fields, 292);
        MadeText text = context.text;
        text.framed = framed != nullptr && framed->integer() != 0;
        text.margin = text.framed ? context.gap : text.height * (context.ground_scale - 1);
        if (context.has_ground) {
            text.ground = packed_ink(context.ground_colour).value_or(Ink::background());
        }
        draw_made_text(scope, text);
    }
}

}  // namespace host
