#include "acedads.h"
#include "base/code_page.h"
#include "base/replace_file.h"
#include "hostpicture.h"
#include "platform/host/editor/commands.h"
#include "platform/host/editor/editor.h"
#include "platform/host/editor/file_question.h"
#include "platform/host/prompt/person.h"
#include "platform/host/view/areas.h"
#include "platform/host/view/drawing_pane.h"
#include "platform/host/view/png_file.h"
#include "platform/host/view/svg_writer.h"

namespace host {
namespace {

constexpr wchar_t zoom_keywords[] = L"All Extents Object Previous Window";
constexpr int longest_input = 133;
constexpr uint64_t most_of_browser = 100'000;  // elements that a browser opens in some 4 s

void zoom_to_corner(DrawingPane& pane, const ads_point first) {
    ads_point second;
    if (acedGetCorner(first, L"\nSpecify opposite corner: ", second) == RTNORM) {
        ViewTransform closer = pane.view();
        closer.show(Box2::between({first[X], first[Y]}, {second[X], second[Y]}));
        pane.remember_view();
        pane.set_view(closer);
    }
}

void zoom_to_window(DrawingPane& pane) {
    ads_point first;
    if (acedGetPoint(nullptr, L"\nSpecify first corner: ", first) == RTNORM) {
        zoom_to_corner(pane, first);
    }
}

void zoom_to_extents(DrawingPane& pane) {
    pane.remember_view();
    pane.zoom_extents();
}

/// Zooms to what is selected already.
void zoom_to_selected(DrawingPane& pane) {
    constexpr double margin = 0.1;  // around the area, as a part of it
    const Box2 area = area_of(pane.list(), EntitySet(editor().selection.records()));
    if (area.empty()) {
        person().print(L"\nNothing is selected.");
        return;
    }
    ViewTransform closer = pane.view();
    closer.show(area, margin);
    pane.remember_view();
    pane.set_view(closer);
}

/// Zooms by a factor: "2" shows all twice as large as when the whole drawing is seen, "2X" twice as large as now.
void zoom_by(DrawingPane& pane, std::wstring text) {
    const bool relative = !text.empty() && (text.back() == L'x' || text.back() == L'X');
    if (relative) {
        text.pop_back();
    }
    const std::optional<double> factor = parse_real(text);
    if (!factor || !(*factor > 0)) {
        person().report(L"A factor, a point or an option is needed.");
        return;
    }
    pane.remember_view();
    if (!relative) {
        pane.zoom_extents();
    }
    ViewTransform scaled = pane.view();
    scaled.zoom_about({scaled.width() / 2.0, scaled.height() / 2.0}, *factor);
    pane.set_view(scaled);
}

void zoom_by_option(DrawingPane& pane) {
    ACHAR input[longest_input];
    acedGetInput(input);
    const std::wstring option = input;
    if (option == L"All" || option == L"Extents") {
        zoom_to_extents(pane);
    } else if (option == L"Previous") {
        if (!pane.restore_view()) {
            person().print(L"\nNo previous view.");
        }
    } else if (option == L"Object") {
        zoom_to_selected(pane);
    } else if (option == L"Window") {
        zoom_to_window(pane);
    } else {
        zoom_by(pane, option);
    }
}

void zoom(DrawingPane& pane) {
    ads_point corner;
    acedInitGet(RSG_OTHER, zoom_keywords);
    switch (acedGetPoint(nullptr,
                         L"\nSpecify corner of window, enter a scale factor (nX), or "
                         L"[All/Extents/Object/Previous/Window] <Extents>: ",
                         corner)) {
        case RTNORM:
            zoom_to_corner(pane, corner);
            break;
        case RTNONE:
            zoom_to_extents(pane);
            break;
        case RTKWORD:
            zoom_by_option(pane);
            break;
        default:
            break;
    }
}

void pan(DrawingPane& pane) {
    ads_point from;
    ads_point to;
    if (acedGetPoint(nullptr, L"\nSpecify base point: ", from) != RTNORM ||
        acedGetPoint(from, L"\nSpecify second point: ", to) != RTNORM) {
        return;
    }
    ViewTransform moved = pane.view();
    moved.pan(moved.to_pixel({to[X], to[Y]}) - moved.to_pixel({from[X], from[Y]}));
    pane.remember_view();
    pane.set_view(moved);
}

/// Draws the view anew. When nobody sees it, the list for later pictures is made while other commands run.
void regenerate(const Editor& editor) {
    if (editor.window != nullptr) {
        editor.view()->redraw();
    }
    const Document* const document = editor.documents.document();
    if (document != nullptr && !IsWindowVisible(editor.main_window())) {
        const bool model = document->database()->tilemode();
        DisplayList::begin(document->drawing(), model ? DisplayList::Space::model : DisplayList::Space::paper);
    }
}

void choose_background(DrawingPane& pane) {
    acedInitGet(0, L"Black White");
    ACHAR colour[longest_input] = {};
    if (acedGetKword(L"\nEnter the background's colour [Black/White]: ", colour) == RTNORM) {
        pane.set_background(std::wstring_view(colour) == L"White" ? 0xFFFFFF : 0x000000);
    }
}

std::optional<std::wstring> ask_picture_file(const Document& document, const std::wstring& extension = L"png") {
    std::filesystem::path proposal = document.path();
    proposal.replace_extension(extension);
    return ask_file_name({L"Save picture as", proposal.wstring(), extension, true, false});
}

std::shared_ptr<const DisplayList> list_for_picture(Editor& editor, const Document& document) {
    if (editor.window != nullptr) {
        editor.view()->list();  // one list serves both the window and the picture
    }
    return DisplayList::shared(document.drawing());
}

void save_picture(Editor& editor) {
    const Document* const document = open_document(editor);
    const auto file = document != nullptr ? ask_picture_file(*document) : std::nullopt;
    if (!file) {
        return;
    }
    const std::shared_ptr<const DisplayList> list = list_for_picture(editor, *document);
    editor.say_left_out(document->drawing(), *list);
    if (succeeded(save_drawing_png(list, {list->extents()}, *file))) {
        person().print(L"\n" + *file + L" saved.");
    }
}

base::Outcome<> save_svg(const SvgPicture& picture, const std::wstring& file) {
    const base::WriteStatus written = base::replace_file(file, picture.text);
    return written ? base::Outcome<>()
                   : base::Failure{L"the picture " + file + L" could not be written: " +
                                   base::wide_from_utf8(written.reason())};
}

/// Without text when the drawing has more elements. Tells the person what is left out.
SvgPicture vector_picture(Editor& editor, const Document& document, std::optional<uint64_t> most_elements,
                          std::string memory = {}) {
    if (most_elements && has_more_elements(document.drawing(), *most_elements)) {
        return {};
    }
    const std::shared_ptr<const DisplayList> list = list_for_picture(editor, document);
    editor.say_left_out(document.drawing(), *list);
    SvgPicture picture = svg_picture(*list, document.drawing(), most_elements, std::move(memory));
    if (picture.left_out > 0) {
        person().print(L"\n" + std::to_wstring(picture.left_out) +
                       L" block references are left out, for they would take a viewer too long.");
    }
    return picture;
}

void write_vector_picture(Editor& editor, const Document& document, std::optional<uint64_t> most_elements,
                          const std::wstring& file) {
    const SvgPicture picture = vector_picture(editor, document, most_elements);
    if (picture.text.empty()) {
        person().print(L"\nThe picture would have too many elements, and is not written.");
    } else if (succeeded(save_svg(picture, file))) {
        person().print(L"\n" + file + L" saved.");
    }
}

/// Saves the drawing as SVG, unless it has more elements than the user wants a viewer to draw.
void save_vector_picture(Editor& editor) {
    const Document* const document = open_document(editor);
    const auto file = document != nullptr ? ask_picture_file(*document, L"svg") : std::nullopt;
    if (!file) {
        return;
    }
    constexpr int positive = RSG_NOZERO | RSG_NONEG;
    ads_real most = 0;
    acedInitGet(positive, L"Browser");
    switch (acedGetReal(L"\nEnter the largest number of elements or [Browser] <any>: ", &most)) {
        case RTNORM:
            write_vector_picture(editor, *document, static_cast<uint64_t>(std::min(most, 1e9)), *file);
            break;
        case RTKWORD:
            write_vector_picture(editor, *document, most_of_browser, *file);
            break;
        case RTNONE:
            write_vector_picture(editor, *document, std::nullopt, *file);
            break;
        default:
            break;
    }
}

/// The area of the entity that was added last, in a size in which its letters can be read.
PictureArea picture_of_last(const DisplayList& list) {
    constexpr double readable = 14;  // pixels
    constexpr double narrowest = 400;
    constexpr double widest = 6000;
    const LastArea last = last_area(list);
    PictureArea area{last.box};
    if (last.letters > 0 && !last.box.empty()) {
        const double longest = std::max(last.box.width(), last.box.height());
        const double scale = std::min(readable / last.letters, widest / longest);
        area.width = static_cast<int>(std::max(narrowest, last.box.width() * scale * 1.05));
        area.height = static_cast<int>(std::max(narrowest, last.box.height() * scale * 1.05));
    }
    return area;
}

/// Saves a picture of the entity that was added last, or of the place where most entities are, when a picture of the
/// whole drawing would show them too small.
void save_detail(Editor& editor) {
    const Document* const document = open_document(editor);
    if (document == nullptr) {
        return;
    }
    acedInitGet(0, L"Last Most");
    ACHAR what[longest_input] = {};
    if (acedGetKword(L"\nEnter what the picture is to show [Last/Most]: ", what) != RTNORM) {
        return;
    }
    const std::optional<std::wstring> file = ask_picture_file(*document);
    if (!file) {
        return;
    }
    const std::shared_ptr<const DisplayList> list = list_for_picture(editor, *document);
    PictureArea area = picture_of_last(*list);
    if (std::wstring_view(what) == L"Most") {
        const std::optional<Box2> crowded = crowded_area(*list);
        if (!crowded) {
            person().print(L"\nThe picture of the whole drawing shows most things large enough.");
            return;
        }
        area = {*crowded};
    }
    if (succeeded(save_drawing_png(list, area, *file))) {
        person().print(L"\n" + *file + L" saved.");
    }
}

}  // namespace

void add_view_commands(Editor& editor) {
    const auto add = [&editor](std::wstring name, void (*body)(DrawingPane&)) {
        const auto look = [&editor, body] {
            if (editor.window != nullptr) {
                body(*editor.view());
            }
        };
        editor.processor.add_built_in(std::move(name), look, true);
    };
    add(L"BACKGROUND", choose_background);
    add(L"PAN", pan);
    add(L"REDRAW", [](DrawingPane& pane) { pane.redraw(); });
    editor.processor.add_built_in(
        L"REGEN", [&editor] { regenerate(editor); }, true);
    add(L"ZOOM", zoom);
    editor.add_command(L"PNGDETAIL", save_detail);
    editor.add_command(L"PNGOUT", save_picture);
    editor.add_command(L"SVGOUT", save_vector_picture);
}

}  // namespace host

std::optional<std::string> hostDrawingAsSvg(std::string memory) {
    const host::Document* const document = host::editor().documents.document();
    if (document == nullptr) {
        return std::nullopt;
    }
    std::string text = host::vector_picture(host::editor(), *document, host::most_of_browser, std::move(memory)).text;
    return text.empty() ? std::nullopt : std::optional(std::move(text));
}
