#include "page/page_writer.h"

#include <algorithm>
#include <cstdint>
#include <map>

#include "base/file_digest.h"

namespace corvanes {
namespace {

using Parts = std::map<std::string_view, std::string_view>;

std::string base64(std::string_view bytes) {
    constexpr char digits[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    const auto byte = [bytes](std::size_t at) {
        return at < bytes.size() ? std::uint32_t{static_cast<unsigned char>(bytes[at])} : 0;
    };
    std::string text;
    text.reserve((bytes.size() + 2) / 3 * 4);
    for (std::size_t at = 0; at < bytes.size(); at += 3) {
        const std::uint32_t three = byte(at) << 16 | byte(at + 1) << 8 | byte(at + 2);
        for (int shift = 18; shift >= 0; shift -= 6) {
            text += digits[three >> shift & 63];
        }
    }
    const std::size_t missing = (3 - bytes.size() % 3) % 3;
    text.replace(text.size() - missing, missing, missing, '=');
    return text;
}

/// The name by which the page's security policy allows a text of the page itself: its checksum.
std::string own(std::string_view text) {
    return "'sha256-" + base64(base::sha256_of(text)) + "'";
}

/// The text between two marks, from the first one on; empty without them.
std::string_view between(std::string_view text, std::string_view begin, std::string_view end) {
    const std::size_t found = text.find(begin);
    const std::size_t from = found + begin.size();
    const std::size_t to = found == text.npos ? text.npos : text.find(end, from);
    return to == text.npos ? std::string_view() : text.substr(from, to - from);
}

/// JSON in a form that can stand within an HTML element: "<" is escaped, so that no text in it ends the element. Within
/// a JSON text each quotation mark has a backslash before it, so `member` is found only where it is a member.
std::string for_script(std::string_view json, bool with_handles) {
    constexpr std::string_view member = "\"handles\": [";
    std::string text;
    text.reserve(with_handles ? json.size() : 0);  // without them little is left
    std::size_t angle = json.find('<');
    std::size_t handles = with_handles ? json.npos : json.find(member);
    std::size_t at = 0;
    while (angle != handles) {  // both are npos at the end
        const std::size_t special = std::min(angle, handles);
        text += json.substr(at, special - at);
        if (special == angle) {
            text += "\\u003c";
            at = special + 1;
            angle = json.find('<', at);
        } else {
            text += member;
            at = std::min(json.find(']', special), json.size());
            handles = json.find(member, at);
        }
    }
    text += json.substr(at);
    return text;
}

/// Writes the HTML with the parts in their places. "{{" within a part is left as it is.
void write_filled(std::string_view html, const Parts& parts, const PageOutput& write) {
    for (std::size_t at = 0; at < html.size();) {
        const std::size_t place = html.find("{{", at);
        write(html.substr(at, place - at));
        if (place == html.npos) {
            break;
        }
        const std::string_view name = between(html.substr(place), "{{", "}}");
        write(parts.at(name));
        at = place + name.size() + 4;
    }
}

}  // namespace

void write_bill_page(const PageSources& sources, std::string_view bill, std::string_view drawing,
                     const PageOutput& write) {
    const bool is_picture = drawing.starts_with("\x89PNG");
    std::string styles = own(sources.style);
    if (!is_picture) {
        styles += " " + own(between(drawing, "<style>", "</style>"));
    }
    const std::string policy = "default-src 'none'; script-src " + own(sources.script) + "; style-src " + styles +
                               (is_picture ? "; img-src data:" : "") + "; base-uri 'none'; form-action 'none'";
    const std::string image =
        is_picture ? R"(<img alt="The drawing" src="data:image/png;base64,)" + base64(drawing) + "\">" : std::string();
    const std::string data = for_script(bill, !is_picture);
    const Parts parts{{"policy", policy},
                      {"style", sources.style},
                      {"drawing", is_picture ? std::string_view(image) : drawing},
                      {"data", data},
                      {"script", sources.script}};
    write_filled(sources.html, parts, write);
}

}  // namespace corvanes
