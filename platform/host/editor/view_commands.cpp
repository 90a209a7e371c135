#include "acedads.h"
#include "platform/host/editor/commands.h"
#include "platform/host/editor/editor.h"
#include "platform/host/editor/file_question.h"
#include "platform/host/prompt/person.h"
#include "platform/host/view/drawing_pane.h"
#include "platform/host/view/png_file.h"

namespace host {
namespace {

constexpr wchar_t zoom_keywords[] = L"All Extents Previous Window";
constexpr int longest_input = 133;

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

/// "2" is twice as large as the whole drawing is seen, "2X" twice as large as it is now.
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
                         L"[All/Extents/Previous/Window] <Extents>: ",
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

void choose_background(DrawingPane& pane) {
    acedInitGet(0, L"Black White");
    ACHAR colour[longest_input] = {};
    if (acedGetKword(L"\nEnter the background's colour [Black/White]: ", colour) == RTNORM) {
        pane.set_background(std::wstring_view(colour) == L"White" ? 0xFFFFFF : 0x000000);
    }
}

void save_picture(Editor& editor) {
    const Document* const document = editor.documents.document();
    if (document == nullptr) {
        person().report(L"No drawing is open.");
        return;
    }
    std::filesystem::path proposal = document->path();
    proposal.replace_extension(L".png");
    const std::optional<std::wstring> file =
        ask_file_name({L"Save picture as", proposal.wstring(), L"png", true, false});
    if (!file) {
        return;
    }
    if (editor.window != nullptr) {
        editor.view()->list();  // the window shows what the picture is made of: one list serves both
    }
    const std::shared_ptr<const DisplayList> list = DisplayList::shared(document->drawing());
    editor.say_left_out(document->drawing(), *list);
    if (succeeded(save_drawing_png(list, *file))) {
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
    add(L"REGEN", [](DrawingPane& pane) { pane.redraw(); });
    add(L"ZOOM", zoom);
    editor.add_command(L"PNGOUT", save_picture);
}

}  // namespace host
