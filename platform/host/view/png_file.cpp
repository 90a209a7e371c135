#include "platform/host/view/png_file.h"

#include <zlib.h>

#include <algorithm>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/code_page.h"
#include "base/replace_file.h"
#include "platform/host/view/drawing_frame.h"

namespace host {
namespace {

std::string big_endian(uint32_t number) {
    std::string bytes;
    for (int shift = 24; shift >= 0; shift -= 8) {
        bytes += static_cast<char>(number >> shift & 0xFF);
    }
    return bytes;
}

/// A chunk of a PNG file: its length, type, data and check sum.
std::string chunk(const std::string& type, const std::string& data) {
    const std::string summed = type + data;
    const uLong sum = crc32(0, reinterpret_cast<const Bytef*>(summed.data()), static_cast<uInt>(summed.size()));
    return big_endian(static_cast<uint32_t>(data.size())) + summed + big_endian(static_cast<uint32_t>(sum));
}

/// Feeds bytes to a compressor and appends what comes out. False when it fails.
bool compress(z_stream& stream, std::string_view bytes, bool last, std::string& data) {
    Bytef piece[1U << 15];
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(bytes.data()));  // which zlib only reads
    stream.avail_in = static_cast<uInt>(bytes.size());
    int done = Z_OK;
    do {
        stream.next_out = piece;
        stream.avail_out = sizeof piece;
        done = deflate(&stream, last ? Z_FINISH : Z_NO_FLUSH);
        data.append(reinterpret_cast<const char*>(piece), sizeof piece - stream.avail_out);
    } while (stream.avail_out == 0 && done != Z_STREAM_ERROR);
    return done != Z_STREAM_ERROR;
}

/// The colours of a picture that has few of them, as most pictures of drawings and dialogs have.
class Palette {
  public:
    /// The number of a colour; nothing when there is no room for another one.
    std::optional<uint8_t> number(uint32_t colour) {
        const size_t place = place_of(colour);
        if (numbers_[place] < 0) {
            if (bytes_.size() == 3 * most) {
                return std::nullopt;
            }
            colours_[place] = colour;
            numbers_[place] = static_cast<int16_t>(bytes_.size() / 3);
            bytes_ += big_endian(colour).substr(1);
        }
        return static_cast<uint8_t>(numbers_[place]);
    }
    /// Red, green and blue of each colour, by number.
    const std::string& bytes() const { return bytes_; }

  private:
    static constexpr size_t most = 256;
    static constexpr int bits = 10;  ///< of a place; there are four times as many places as colours

    size_t place_of(uint32_t colour) const {
        constexpr uint32_t golden = 0x9E3779B1;  // 2^32 divided by the golden ratio: spreads the products
        size_t place = (colour * golden) >> (32 - bits);
        while (numbers_[place] >= 0 && colours_[place] != colour) {
            place = (place + 1) % numbers_.size();
        }
        return place;
    }

    std::vector<uint32_t> colours_ = std::vector<uint32_t>(size_t{1} << bits);
    std::vector<int16_t> numbers_ = std::vector<int16_t>(size_t{1} << bits, -1);
    std::string bytes_;
};

constexpr int block = 16;  // pixels that are compared at once: Windows' memcmp is slow

bool is_repeated(const Raster& pixels, int y) {
    if (y == 0) {
        return false;
    }
    const uint32_t* const row = pixels.row(y);
    const uint32_t* const before = pixels.row(y - 1);
    int x = 0;
    uint32_t differences = 0;
    for (; x + block <= pixels.width() && differences == 0; x += block) {
        for (int i = 0; i < block; ++i) {
            differences |= row[x + i] ^ before[x + i];
        }
    }
    return differences == 0 && std::equal(row + x, row + pixels.width(), before + x);
}

/// The first pixel from `x` on that differs from the one at `x`.
int end_of_run(const uint32_t* row, int x, int width) {
    const uint32_t colour = row[x];
    const int first_block = std::min(x + block, width);  // most runs are short
    while (x < first_block && row[x] == colour) {
        ++x;
    }
    const auto is_plain = [&](int from) {
        uint32_t differences = 0;
        for (int i = 0; i < block; ++i) {
            differences |= row[from + i] ^ colour;
        }
        return differences == 0;
    };
    while (x >= first_block && x + block <= width && is_plain(x)) {
        x += block;
    }
    while (x < width && row[x] == colour) {
        ++x;
    }
    return x;
}

/// Writes a row's pixels as numbers of the palette, and eight bytes more at the most. False when it has no room for
/// one of the colours.
bool write_numbers(const uint32_t* row, int width, Palette& palette, char* to) {
    for (int x = 0; x < width;) {
        const std::optional<uint8_t> number = palette.number(row[x]);
        if (!number) {
            return false;
        }
        const int end = end_of_run(row, x, width);
        const uint64_t eight = 0x0101010101010101 * *number;
        std::memcpy(to + x, &eight, sizeof eight);  // which is all of most runs
        if (const int more = end - x - static_cast<int>(sizeof eight); more > 0) {
            std::memset(to + x + sizeof eight, *number, static_cast<size_t>(more));
        }
        x = end;
    }
    return true;
}

/// Writes red, green and blue of a row's pixels.
bool write_colours(const uint32_t* row, int width, char* to) {
    for (int x = 0; x < width; ++x) {
        *to++ = static_cast<char>(row[x] >> 16);
        *to++ = static_cast<char>(row[x] >> 8);
        *to++ = static_cast<char>(row[x]);
    }
    return true;
}

/// The pixels row by row, each row behind its filter type; compressed quickly. `write_row` writes one of them, with
/// so many bytes for a pixel. Empty without memory, or when a row could not be written.
template <typename WriteRow>
std::string compressed_rows(const Raster& pixels, size_t bytes_of_pixel, int strategy, const WriteRow& write_row) {
    constexpr int quickly = 1;
    constexpr int widest_window = 15;
    constexpr int small_table = 5;  // a larger one takes longer to move than it saves
    constexpr size_t beyond = sizeof(uint64_t);
    z_stream stream{};
    if (deflateInit2(&stream, quickly, Z_DEFLATED, widest_window, small_table, strategy) != Z_OK) {
        return {};
    }
    std::string data;
    const size_t size = 1 + bytes_of_pixel * static_cast<size_t>(pixels.width());
    std::string row(size + beyond, '\0');  // its first byte: no filter
    bool fine = true;
    for (int y = 0; fine && y < pixels.height(); ++y) {
        fine = (is_repeated(pixels, y) || write_row(pixels.row(y), pixels.width(), row.data() + 1)) &&
               compress(stream, {row.data(), size}, y + 1 == pixels.height(), data);
    }
    deflateEnd(&stream);
    return fine ? data : std::string();
}

base::Outcome<> save_png(const FrameBitmap& picture, const std::filesystem::path& path) {
    const base::Failure no_memory{L"there is not enough memory for the picture " + path.wstring()};
    if (!picture) {
        return no_memory;
    }
    // With a palette as runs: of lines on a plain ground little else repeats, and looking for that makes them larger.
    Palette palette;
    const auto number = [&palette](const uint32_t* row, int width, char* to) {
        return write_numbers(row, width, palette, to);
    };
    std::string data = compressed_rows(picture.raster(), 1, Z_RLE, number);
    const bool numbered = !data.empty();
    if (!numbered) {
        data = compressed_rows(picture.raster(), 3, Z_DEFAULT_STRATEGY, write_colours);
    }
    if (data.empty()) {
        return no_memory;
    }
    const std::string eight_bits(numbered ? "\x08\x03\0\0\0" : "\x08\x02\0\0\0", 5);  // of a number or a colour
    const base::WriteStatus written = base::replace_file(
        path, "\x89PNG\r\n\x1A\n" +
                  chunk("IHDR", big_endian(static_cast<uint32_t>(picture.width())) +
                                    big_endian(static_cast<uint32_t>(picture.height())) + eight_bits) +
                  (numbered ? chunk("PLTE", palette.bytes()) : "") + chunk("IDAT", data) + chunk("IEND", {}));
    if (!written) {
        return base::Failure{L"the picture " + path.wstring() + L" could not be written: " +
                             base::wide_from_utf8(written.reason())};
    }
    return {};
}

}  // namespace

base::Outcome<> save_window_png(HWND window, const std::filesystem::path& path) {
    RECT frame;
    if (GetWindowRect(window, &frame) == 0) {
        return base::Failure{L"there is no window to take a picture of"};
    }
    RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    const int width = frame.right - frame.left;
    const int height = frame.bottom - frame.top;
    const WindowContext source(window, true);
    SetLayout(source.get(), 0);  // a right-to-left window is copied as it looks, not mirrored once more
    FrameBitmap copy(width, height);
    if (copy) {
        copy.raster().clear(0);  // for what of the window cannot be copied
        BitBlt(copy.context(), 0, 0, width, height, source.get(), 0, 0, SRCCOPY);
    }
    return save_png(copy, path);
}

base::Outcome<> save_painted_png(int width, int height, const std::function<base::Outcome<>(HDC)>& paint,
                                 const std::filesystem::path& path) {
    const FrameBitmap picture(width, height);
    if (picture) {
        picture.raster().clear(0);
    }
    const base::Outcome<> painted = picture ? paint(picture.context()) : base::Outcome<>();
    return painted ? save_png(picture, path) : painted;
}

base::Outcome<> save_drawing_png(std::shared_ptr<const DisplayList> list, const PictureArea& area,
                                 const std::filesystem::path& path) {
    constexpr double margin = 0.02;
    constexpr uint32_t paper = 0xFFFFFF;
    DrawingFrame frame;
    frame.set_list(std::move(list));
    frame.set_background(paper);
    frame.show_weights();
    ViewTransform view(area.width, area.height);
    view.show(area.box, margin);
    frame.set_view(view);
    const FrameBitmap* const picture = frame.picture();
    if (picture == nullptr) {
        return base::Failure{L"there is not enough memory for the picture " + path.wstring()};
    }
    return save_png(*picture, path);
}

}  // namespace host
