#include "grid/grid_printing.h"

#include <afxwin.h>
#include <commdlg.h>
#include <winspool.h>

#include <memory>

#include "base/loaded_library.h"
#include "grid/cell_grid.h"
#include "grid/escape_key.h"
#include "grid/page_painter.h"

namespace corvanes {

namespace {

struct FreeGlobal {
    void operator()(void* memory) const { ::GlobalFree(memory); }
};
struct DeleteContext {
    void operator()(HDC dc) const { ::DeleteDC(dc); }
};

// What the person chose in the system's dialog.
struct PrintChoice {
    std::unique_ptr<HDC__, DeleteContext> dc;
    int first_page = 0;
    int last_page = 0xFFFF;
};

void say_no_printer() {
    AfxMessageBox(L"There is no printer to print on", MB_OK | MB_ICONEXCLAMATION);
}

// The system's dialog would only say that one has to be installed first.
bool any_printer() {
    const auto spooler = base::LoadedLibrary::load(L"winspool.drv");
    const auto list_printers = spooler.function<decltype(::EnumPrintersW)>("EnumPrintersW");
    constexpr DWORD names_only = 4;
    DWORD needed = 0;
    DWORD count = 0;
    if (list_printers != nullptr) {
        list_printers(PRINTER_ENUM_LOCAL | PRINTER_ENUM_CONNECTIONS, nullptr, names_only, nullptr, 0, &needed, &count);
    }
    return needed > 0;
}

// Asks for the printer; nothing when the person gave up, and, after a message, when there is no printer.
PrintChoice ask_for_printer(HWND owner) {
    if (!any_printer()) {
        say_no_printer();
        return {};
    }
    PRINTDLGW asked{};
    asked.lStructSize = sizeof asked;
    asked.hwndOwner = owner;
    asked.Flags = PD_RETURNDC | PD_NOSELECTION | PD_NOWARNING | PD_USEDEVMODECOPIESANDCOLLATE;
    asked.nFromPage = asked.nMinPage = 1;
    asked.nToPage = asked.nMaxPage = 0xFFFF;
    const auto library = base::LoadedLibrary::load(L"comdlg32.dll");
    const auto print_dialog = library.function<decltype(::PrintDlgW)>("PrintDlgW");
    const auto error = library.function<decltype(::CommDlgExtendedError)>("CommDlgExtendedError");
    const bool chosen = print_dialog != nullptr && print_dialog(&asked) != FALSE;
    const std::unique_ptr<void, FreeGlobal> mode(asked.hDevMode), names(asked.hDevNames);
    PrintChoice choice;
    choice.dc.reset(asked.hDC);
    if (chosen && (asked.Flags & PD_PAGENUMS) != 0) {
        choice.first_page = asked.nFromPage - 1;
        choice.last_page = asked.nToPage - 1;
    }
    const bool cancelled = !chosen && error != nullptr && error() == 0;
    if (!choice.dc && !cancelled) {
        say_no_printer();
    }
    return choice;
}

bool print_pages(CellGrid& grid, const PrintTitles& titles, const PrintChoice& choice) {
    HDC const dc = choice.dc.get();
    PagePainter painter(grid, titles, dc,
                        {::GetDeviceCaps(dc, HORZRES), ::GetDeviceCaps(dc, VERTRES), ::GetDeviceCaps(dc, LOGPIXELSX)});
    DOCINFOW document{};
    document.cbSize = sizeof document;
    document.lpszDocName = titles.left.c_str();
    bool printing = ::StartDocW(dc, &document) > 0;
    for (int page = choice.first_page; printing && page < painter.page_count() && page <= choice.last_page; ++page) {
        if (escape_waits()) {
            ::AbortDoc(dc);
            return true;
        }
        printing = ::StartPage(dc) > 0;
        if (printing) {
            painter.Paint(page);
            printing = ::EndPage(dc) > 0;
        }
    }
    return printing && ::EndDoc(dc) > 0;
}

}  // namespace

void print_grid(CellGrid& grid, const PrintTitles& titles) {
    const PrintChoice choice = ask_for_printer(::GetAncestor(grid.m_hWnd, GA_ROOT));
    if (choice.dc && !print_pages(grid, titles, choice)) {
        AfxMessageBox(L"The printer does not print", MB_OK | MB_ICONEXCLAMATION);
    }
}

}  // namespace corvanes
