#include "platform/host/view/text_layout.h"

#include <algorithm>

#include "platform/host/view/text_item.h"

namespace host {

namespace {

constexpr double usual_spacing = 5.0 / 3;

double width_of(const TextRun& run) {
    return estimated_width(run.text) * run.height * run.width_factor;
}

double height_of(const TextLine& line) {
    double height = 0;
    for (const TextRun& run : line.runs) {
        height = std::max(height, run.raise == 0 ? run.height : 0);
    }
    return height > 0 ? height : line.height;
}

/// By how much a line grows by a run; `last` is what the run before it added.
double growth(const TextRun& run, double last) {
    return run.stacked ? std::max(width_of(run) - last, 0.0) : width_of(run);
}

double width_of(const std::vector<TextRun>& runs) {
    double width = 0;
    double last = 0;
    for (const TextRun& run : runs) {
        last = growth(run, last);
        width += last;
    }
    return width;
}

double part_before(TextItem::Anchor anchor) {
    return anchor == TextItem::Anchor::left ? 0 : anchor == TextItem::Anchor::centre ? 0.5 : 1;
}

/// Breaks a line at blanks so that no part is wider than `width`, where it can be.
void wrap(const TextLine& line, double width, std::vector<TextLine>& broken) {
    TextLine part{{}, line.alignment, line.height};
    double part_width = 0;
    for (const TextRun& run : line.runs) {
        const TextRun look = run.without_text();
        bool begun = false;  // the part ends with a piece of this run
        for (size_t at = 0; at < run.text.size() || !begun;) {
            const size_t letters = run.text.find_first_not_of(L' ', at);
            const size_t end = std::min(run.text.find(L' ', letters), run.text.size());
            TextRun piece = look;
            piece.text = run.text.substr(at, end - at);
            const bool may_break = !part.runs.empty() && (letters > at || piece.text.empty());
            if (may_break && part_width + width_of(piece) > width) {
                broken.push_back(std::move(part));
                part = {{}, line.alignment, line.height};
                part_width = 0;
                begun = false;
                piece.text.erase(0, std::min(letters - at, piece.text.size()));
            }
            part_width += run.stacked ? 0 : width_of(piece);
            if (begun) {
                part.runs.back().text += piece.text;
            } else {
                part.runs.push_back(std::move(piece));
            }
            begun = true;
            at = end;
        }
    }
    broken.push_back(std::move(part));
}

}  // namespace

std::vector<PlacedRun> place_line(const std::vector<TextRun>& runs, TextItem::Anchor alignment) {
    std::vector<PlacedRun> placed;
    std::wstring letters;
    for (const TextRun& run : runs) {
        letters += run.text;
    }
    const bool from_right = runs_from_right(letters);
    if (runs.size() == 1) {
        placed.push_back({runs[0], {0, runs[0].raise}, alignment, width_of(runs[0]), false, from_right});
        return placed;
    }
    const double width = width_of(runs);
    double x = 0;
    double begin = 0;
    double last = 0;
    for (const TextRun& run : runs) {
        begin = run.stacked ? begin : x;
        const double left = from_right ? width - begin - width_of(run) : begin;
        placed.push_back({run,
                          {left - width * part_before(alignment), run.raise},
                          TextItem::Anchor::left,
                          width_of(run),
                          true,
                          from_right});
        last = growth(run, last);
        x += last;
    }
    return placed;
}

std::vector<PlacedRun> place_paragraphs(const std::vector<TextLine>& lines, const ParagraphSetting& setting) {
    std::vector<TextLine> broken;
    for (const TextLine& line : lines) {
        if (setting.width > 0) {
            wrap(line, setting.width, broken);
        } else {
            broken.push_back(line);
        }
    }
    std::vector<double> below;  // how far each base line is under that of the first
    double widest = setting.width;
    for (const TextLine& line : broken) {
        below.push_back(below.empty() ? 0 : below.back() + height_of(line) * usual_spacing * setting.spacing);
        widest = setting.width > 0 ? setting.width : std::max(widest, width_of(line.runs));
    }
    const double first = broken.empty() ? 0 : height_of(broken.front());
    const double depth = below.empty() ? 0 : below.back();
    const double above[] = {-first, (depth - first) / 2, depth};
    std::vector<PlacedRun> placed;
    for (size_t i = 0; i < broken.size(); ++i) {
        const TextItem::Anchor alignment = broken[i].alignment.value_or(setting.column);
        const double x = widest * (part_before(alignment) - part_before(setting.column));
        for (PlacedRun& run : place_line(broken[i].runs, alignment)) {
            run.at = run.at + Vec2{x, above[setting.row] - below[i]};
            placed.push_back(std::move(run));
        }
    }
    return placed;
}

Box2 area_of(const std::vector<PlacedRun>& runs, const ParagraphSetting& setting) {
    constexpr double descent = 0.3;  // of letters under the base line, of the height
    Box2 area;
    for (const PlacedRun& run : runs) {
        const double left = run.at.x - run.width * part_before(run.anchor);
        area.add(Vec2{left, run.at.y - descent * run.run.height});
        area.add(Vec2{left + run.width, run.at.y + run.run.height});
    }
    if (setting.width > 0 && !runs.empty()) {
        area.low.x = -setting.width * part_before(setting.column);
        area.high.x = area.low.x + setting.width;
    }
    return area;
}

}  // namespace host
