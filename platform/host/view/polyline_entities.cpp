// LWPOLYLINE and POLYLINE, meshes included.
#include "platform/host/dxf/own_groups.h"
#include "platform/host/view/entity_scope.h"
#include "platform/host/view/polyline_path.h"

namespace host {

namespace {

constexpr int64_t closed_flag = 1;
constexpr int64_t spline_flag = 4;
constexpr int64_t space_curve_flag = 8;
constexpr int64_t mesh_flag = 16;
constexpr int64_t mesh_closed_flag = 32;
constexpr int64_t faces_flag = 64;

constexpr int64_t frame_vertex_flag = 16;
constexpr int64_t mesh_vertex_flag = 64;
constexpr int64_t face_vertex_flag = 128;

struct Vertex {
    PathVertex path;
    int64_t flags = 0;
    int64_t corners[4] = {0, 0, 0, 0};
};

void read_vertex_group(const dxf::Group& group, Vertex& vertex) {
    switch (group.code) {
        case 10:
            vertex.path.point.x = group.real();
            break;
        case 20:
            vertex.path.point.y = group.real();
            break;
        case 30:
            vertex.path.point.z = group.real();
            break;
        case 40:
            vertex.path.start_width = group.real();
            break;
        case 41:
            vertex.path.end_width = group.real();
            break;
        case 42:
            vertex.path.bulge = group.real();
            break;
        case 70:
            vertex.flags = group.integer();
            break;
        case 71:
        case 72:
        case 73:
        case 74:
            vertex.corners[group.code - 71] = group.integer();
            break;
        default:
            break;
    }
}

std::vector<Vertex> read_vertices(const EntityScope& scope) {
    Vertex usual;
    usual.path.start_width = scope.fields.real(40);
    usual.path.end_width = scope.fields.real(41);
    std::vector<Vertex> vertices;
    dxf::GroupCursor cursor = scope.record.groups();
    dxf::Group group;
    dxf::OwnGroups own;
    bool in_vertex = false;
    while (cursor.next(group)) {
        if (group.code == 0) {
            own = {};
            in_vertex = group.word() == "VERTEX";
            if (in_vertex) {
                vertices.push_back(usual);
            }
        } else if (in_vertex && own.owns(group)) {
            read_vertex_group(group, vertices.back());
        }
    }
    return vertices;
}

void draw_grid_line(const EntityScope& scope, const std::vector<Vec2>& nodes, size_t first, size_t step, size_t count,
                    bool closed) {
    std::vector<Vec2> line;
    for (size_t i = 0; i < count; ++i) {
        line.push_back(nodes[first + i * step]);
    }
    if (closed) {
        line.push_back(line.front());
    }
    scope.out.strip(line);
}

void draw_mesh(const EntityScope& scope, const std::vector<Vertex>& vertices, int64_t flags) {
    const bool smooth = (flags & spline_flag) != 0;
    std::vector<Vec2> nodes;
    for (const Vertex& vertex : vertices) {
        if (!smooth || (vertex.flags & frame_vertex_flag) == 0) {
            nodes.push_back(scope.world(vertex.path.point));
        }
    }
    const auto rows = static_cast<size_t>(std::clamp<int64_t>(scope.fields.integer(smooth ? 73 : 71), 0, 32767));
    const auto columns = static_cast<size_t>(std::clamp<int64_t>(scope.fields.integer(smooth ? 74 : 72), 0, 32767));
    if (rows == 0 || columns == 0 || nodes.size() < rows * columns) {
        return;
    }
    for (size_t row = 0; row < rows; ++row) {
        draw_grid_line(scope, nodes, row * columns, 1, columns, (flags & mesh_closed_flag) != 0);
    }
    for (size_t column = 0; column < columns; ++column) {
        draw_grid_line(scope, nodes, column, columns, rows, (flags & closed_flag) != 0);
    }
}

/// A face's corner numbers count from 1; a negative one begins an edge that is not seen.
void draw_faces(const EntityScope& scope, const std::vector<Vertex>& vertices) {
    std::vector<Vec2> nodes;
    for (const Vertex& vertex : vertices) {
        if ((vertex.flags & mesh_vertex_flag) != 0) {
            nodes.push_back(scope.world(vertex.path.point));
        }
    }
    for (const Vertex& face : vertices) {
        if ((face.flags & face_vertex_flag) == 0 || (face.flags & mesh_vertex_flag) != 0) {
            continue;
        }
        size_t corners = 0;
        while (corners < 4 && face.corners[corners] != 0) {
            ++corners;
        }
        for (size_t i = 0; i < corners; ++i) {
            const int64_t from = face.corners[i];
            const int64_t to = std::abs(face.corners[(i + 1) % corners]);
            if (from > 0 && from <= static_cast<int64_t>(nodes.size()) && to <= static_cast<int64_t>(nodes.size())) {
                scope.out.line(nodes[static_cast<size_t>(from) - 1], nodes[static_cast<size_t>(to) - 1]);
            }
        }
    }
}

}  // namespace

void draw_light_polyline(const EntityScope& scope) {
    const double width = scope.fields.real(43);
    const double elevation = scope.fields.real(38);
    std::vector<PathVertex> vertices;
    for (const dxf::Group& group : scope.fields.groups()) {
        if (group.code == 10) {
            vertices.push_back({{group.real(), 0, elevation}, 0, width, width});
        } else if (vertices.empty()) {
            continue;
        } else if (group.code == 20) {
            vertices.back().point.y = group.real();
        } else if (group.code == 40) {
            vertices.back().start_width = group.real();
        } else if (group.code == 41) {
            vertices.back().end_width = group.real();
        } else if (group.code == 42) {
            vertices.back().bulge = group.real();
        }
    }
    add_path(vertices, (scope.fields.integer(70) & closed_flag) != 0, scope.object_space(), scope.out);
}

/// A MESH by its edges as they are stored, those of its faces where there are none.
void draw_subdivision_mesh(const EntityScope& scope) {
    std::vector<Vec2> nodes;
    std::vector<int64_t> faces;
    std::vector<int64_t> edges;
    std::vector<int64_t>* numbers = nullptr;
    for (const dxf::Group& group : scope.fields.groups()) {
        if (group.code == 93 || group.code == 94 || group.code == 95) {
            numbers = group.code == 93 ? &faces : group.code == 94 ? &edges : nullptr;
        } else if (group.code == 90 && numbers != nullptr) {
            numbers->push_back(group.integer());
        }
    }
    for (const Vec3& point : scope.fields.points(10)) {
        nodes.push_back(scope.world(point));
    }
    const auto draw_edge = [&](int64_t from, int64_t to) {
        const auto count = static_cast<int64_t>(nodes.size());
        if (from >= 0 && to >= 0 && from < count && to < count) {
            scope.out.line(nodes[static_cast<size_t>(from)], nodes[static_cast<size_t>(to)]);
        }
    };
    for (size_t i = 0; i + 1 < edges.size(); i += 2) {
        draw_edge(edges[i], edges[i + 1]);
    }
    const bool by_faces = edges.empty();
    for (size_t at = 0; by_faces && at < faces.size();) {
        const auto corners = static_cast<size_t>(std::max<int64_t>(faces[at++], 0));
        for (size_t i = 0; i < corners && at + corners <= faces.size(); ++i) {
            draw_edge(faces[at + i], faces[at + (i + 1) % corners]);
        }
        at += std::min(corners, faces.size() - at);
    }
}

void draw_polyline(const EntityScope& scope) {
    const int64_t flags = scope.fields.integer(70);
    const std::vector<Vertex> vertices = read_vertices(scope);
    if ((flags & mesh_flag) != 0) {
        draw_mesh(scope, vertices, flags);
        return;
    }
    if ((flags & faces_flag) != 0) {
        draw_faces(scope, vertices);
        return;
    }
    std::vector<PathVertex> path;
    const bool in_space = (flags & space_curve_flag) != 0;
    for (const Vertex& vertex : vertices) {
        if ((flags & spline_flag) == 0 || (vertex.flags & frame_vertex_flag) == 0) {
            path.push_back(in_space ? PathVertex{vertex.path.point, 0, 0, 0} : vertex.path);
        }
    }
    add_path(path, (flags & closed_flag) != 0, in_space ? scope.space : scope.object_space(), scope.out);
}

}  // namespace host
