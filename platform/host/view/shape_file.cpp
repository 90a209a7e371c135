#include "platform/host/view/shape_file.h"

#include <array>
#include <cctype>
#include <cmath>

namespace host {

namespace {

constexpr size_t deepest = 8;           // shapes within shapes
constexpr size_t most_vertices = 5000;  // of one shape
constexpr size_t most_saved = 4;        // places that can be gone back to
constexpr double octant = pi / 4;

int number(std::string_view bytes, size_t at) {
    return static_cast<unsigned char>(bytes[at]);
}

int signed_number(std::string_view bytes, size_t at) {
    return static_cast<signed char>(bytes[at]);
}

std::string in_capitals(std::string_view name) {
    std::string capitals(name);
    for (char& letter : capitals) {
        letter = static_cast<char>(std::toupper(static_cast<unsigned char>(letter)));
    }
    return capitals;
}

/// Follows what the pen does.
class Pen {
  public:
    explicit Pen(const std::map<uint16_t, std::string>& programs) : programs_(programs) {}

    /// False once the shape is too long.
    bool run(std::string_view program) {
        bool skip = false;  // the next command is for vertical text only
        for (size_t at = 0; at < program.size();) {
            const bool skipped = std::exchange(skip, false);
            const int command = number(program, at);
            const size_t length = length_at(program, at);
            if (command == 0 || at + length > program.size() || vertices_ > most_vertices) {
                return vertices_ <= most_vertices;
            }
            if (command == 0xE) {
                skip = true;
            } else if (!skipped && !take(command, program.substr(at + 1, length - 1))) {
                return false;
            }
            at += length;
        }
        return true;
    }
    std::vector<ShapeStroke> take_strokes() {
        lift();
        return std::move(strokes_);
    }

  private:
    /// How many bytes a command has with its arguments.
    static size_t length_at(std::string_view program, size_t at) {
        constexpr std::array<size_t, 16> lengths = {1, 1, 1, 2, 2, 1, 1, 2, 3, 0, 3, 6, 4, 0, 1, 1};
        const int command = number(program, at);
        if (command >= 16) {
            return 1;
        }
        if (command != 0x9 && command != 0xD) {
            return lengths[static_cast<size_t>(command)];
        }
        const size_t step = command == 0x9 ? 2 : 3;
        size_t end = at + 1;  // pairs, or pairs with a bulge, up to a pair of zeros
        while (end + 1 < program.size() && (program[end] != 0 || program[end + 1] != 0)) {
            end += step;
        }
        return end + 2 - at;
    }

    bool take(int command, std::string_view said) {
        switch (command) {
            case 0x1:
                down_ = true;
                break;
            case 0x2:
                lift();
                down_ = false;
                break;
            case 0x3:
            case 0x4:
                scale_ *= number(said, 0) == 0 ? 1 : command == 3 ? 1.0 / number(said, 0) : number(said, 0);
                break;
            case 0x5:
                save();
                break;
            case 0x6:
                go_back();
                break;
            case 0x7:
                return run_other(static_cast<uint16_t>(number(said, 0)));
            case 0x8:
                move(signed_number(said, 0), signed_number(said, 1), 0);
                break;
            case 0x9:
            case 0xD:
                take_pairs(said, command == 0x9 ? 2 : 3);
                break;
            case 0xA:
                arc(number(said, 0), said.substr(1), 0, 0);
                break;
            case 0xB:
                arc(number(said, 2) * 256 + number(said, 3), said.substr(4), number(said, 0), number(said, 1));
                break;
            case 0xC:
                move(signed_number(said, 0), signed_number(said, 1), signed_number(said, 2));
                break;
            default:
                take_vector(command);
        }
        return true;
    }

    void take_pairs(std::string_view said, size_t step) {
        for (size_t at = 0; at + step <= said.size() && (said[at] != 0 || said[at + 1] != 0); at += step) {
            move(signed_number(said, at), signed_number(said, at + 1), step == 3 ? signed_number(said, at + 2) : 0);
        }
    }

    /// A length in the high half, and one of sixteen directions, whose longer part has that length.
    void take_vector(int command) {
        constexpr std::array<Vec2, 16> ways = {{{1, 0},
                                                {1, 0.5},
                                                {1, 1},
                                                {0.5, 1},
                                                {0, 1},
                                                {-0.5, 1},
                                                {-1, 1},
                                                {-1, 0.5},
                                                {-1, 0},
                                                {-1, -0.5},
                                                {-1, -1},
                                                {-0.5, -1},
                                                {0, -1},
                                                {0.5, -1},
                                                {1, -1},
                                                {1, -0.5}}};
        const Vec2 way = ways[static_cast<size_t>(command & 0xF)] * static_cast<double>(command >> 4);
        draw_to(at_ + way * scale_, 0);
    }

    void move(int x, int y, int bulge) {
        constexpr double whole = 127;  // a half circle
        draw_to(at_ + Vec2{static_cast<double>(x), static_cast<double>(y)} * scale_, bulge / whole);
    }

    /// An arc by its radius, its first octant and how many it has; offsets of its ends are in 256ths of an octant.
    void arc(double radius, std::string_view octants, double begin_offset, double end_offset) {
        const int said = signed_number(octants, 0);
        const double way = said < 0 ? -1 : 1;
        const int first = (std::abs(said) >> 4) & 7;
        const int count = (std::abs(said) & 7) == 0 ? 8 : std::abs(said) & 7;
        const double begin = (first + way * begin_offset / 256) * octant;
        const double last = end_offset > 0 ? count - 1 + end_offset / 256 : count;
        const double sweep = way * (last - begin_offset / 256) * octant;
        const Vec2 centre = at_ - direction(begin) * (radius * scale_);
        constexpr int pieces = 4;  // each less than a half circle
        for (int piece = 1; piece <= pieces; ++piece) {
            draw_to(centre + direction(begin + sweep * piece / pieces) * (radius * scale_),
                    std::tan(sweep / pieces / 4));
        }
    }

    void draw_to(Vec2 to, double bulge) {
        if (down_) {
            if (stroke_.empty()) {
                stroke_.push_back({{at_.x, at_.y, 0}});
            }
            stroke_.back().bulge = bulge;
            stroke_.push_back({{to.x, to.y, 0}});
            ++vertices_;
        }
        at_ = to;
    }

    void lift() {
        if (!stroke_.empty()) {
            strokes_.push_back(std::move(stroke_));
            stroke_.clear();
        }
    }

    void save() {
        if (saved_.size() < most_saved) {
            saved_.push_back(at_);
        }
    }

    void go_back() {
        if (!saved_.empty()) {
            lift();
            at_ = saved_.back();
            saved_.pop_back();
        }
    }

    bool run_other(uint16_t code) {
        const auto other = programs_.find(code);
        if (other == programs_.end() || depth_ == deepest) {
            return true;
        }
        ++depth_;
        ++vertices_;  // shapes that only call each other end too
        const bool done = run(other->second);
        --depth_;
        return done;
    }

    const std::map<uint16_t, std::string>& programs_;
    std::vector<ShapeStroke> strokes_;
    ShapeStroke stroke_;
    std::vector<Vec2> saved_;
    Vec2 at_{0, 0};
    double scale_ = 1;
    bool down_ = true;
    size_t depth_ = 0;
    size_t vertices_ = 0;
};

}  // namespace

std::optional<ShapeFile> ShapeFile::read(std::string_view bytes) {
    constexpr std::string_view kind = "AutoCAD-86 shapes ";
    const size_t end_of_head = bytes.substr(0, 64).find('\x1a');
    if (!bytes.starts_with(kind) || end_of_head == std::string_view::npos) {
        return std::nullopt;
    }
    size_t at = end_of_head + 1;
    const auto take = [&bytes, &at] {
        const int low = at < bytes.size() ? number(bytes, at) : 0;
        const int high = at + 1 < bytes.size() ? number(bytes, at + 1) : 0;
        at += 2;
        return static_cast<uint16_t>(low | high << 8);
    };
    at += 4;  // the lowest and the highest code
    const size_t count = take();
    size_t data = at + count * 4;
    ShapeFile file;
    for (size_t shape = 0; shape < count && data < bytes.size(); ++shape) {
        const uint16_t code = take();
        const size_t length = take();
        const std::string_view whole = bytes.substr(data, length);
        const size_t end_of_name = whole.find('\0');
        if (end_of_name != std::string_view::npos) {
            file.code_of_[in_capitals(whole.substr(0, end_of_name))] = code;
            file.programs_[code] = whole.substr(end_of_name + 1);
        }
        data += length;
    }
    return file;
}

std::vector<ShapeStroke> ShapeFile::strokes(std::string_view name) const {
    const auto code = code_of_.find(in_capitals(name));
    if (code == code_of_.end()) {
        return {};
    }
    Pen pen(programs_);
    pen.run(programs_.at(code->second));
    return pen.take_strokes();
}

}  // namespace host
