#include "page/page_command.h"

#include <afxwin.h>
#include <aced.h>
#include <acutads.h>

#include <filesystem>
#include <optional>
#include <string>

#include "base/code_page.h"
#include "base/file_contents.h"
#include "base/replace_file.h"
#include "base/temporary_folder.h"
#include "common/extension_module.h"
#include "common/file_question.h"
#include "hostpicture.h"
#include "page/kept_view.h"
#include "page/last_bill.h"
#include "page/page_resource.h"
#include "page/page_writer.h"

namespace corvanes {
namespace {

using std::filesystem::path;

std::string_view source(int number) {
    const HINSTANCE module = extension_module().resource_handle();
    const HRSRC found = FindResourceW(module, MAKEINTRESOURCEW(number), RT_RCDATA);
    const HGLOBAL loaded = found != nullptr ? LoadResource(module, found) : nullptr;
    return loaded != nullptr
               ? std::string_view(static_cast<const char*>(LockResource(loaded)), SizeofResource(module, found))
               : std::string_view();
}

/// While it lives, commands that this one runs print nothing but problems.
class Quiet {
  public:
    Quiet() { was_read_ = acedGetVar(variable, &before_) == RTNORM && set(0); }
    ~Quiet() {
        if (was_read_) {
            set(before_.resval.rint);
        }
    }
    Quiet(const Quiet&) = delete;
    Quiet& operator=(const Quiet&) = delete;

  private:
    static constexpr const wchar_t* variable = L"CMDECHO";

    static bool set(short value) {
        resbuf wanted{};
        wanted.restype = RTSHORT;
        wanted.resval.rint = value;
        return acedSetVar(variable, &wanted) == RTNORM;
    }

    resbuf before_{};
    bool was_read_ = false;
};

std::optional<std::string> read_picture(const path& file) {
    const auto picture = base::FileContents::read(file);
    return picture ? std::optional<std::string>(picture->bytes()) : std::nullopt;
}

/// As SVG, or with too many parts for a browser as PNG.
std::optional<std::string> picture_of_drawing() {
    if (auto svg = hostDrawingAsSvg()) {
        return svg;
    }
    const base::TemporaryFolder folder;
    const path file = folder.path() / L"drawing.png";
    const Quiet quiet;
    acedCommand(RTSTR, L"PNGOUT", RTSTR, file.c_str(), RTNONE);
    return read_picture(file);
}

std::optional<std::wstring> ask_page_file() {
    path proposal = acDocManagerPtr()->curDocument()->fileName();
    proposal.replace_extension(L".html");
    return ask_for_file(L"Save page as", proposal.wstring(), L"html", FileQuestion::new_file);
}

/// False after the person was told why not.
bool write_page(const base::FileContents& bill, std::string_view picture, const std::wstring& file) {
    base::FileReplacement page(file);
    write_bill_page({source(IDR_PAGE_HTML), source(IDR_PAGE_STYLE), source(IDR_PAGE_SCRIPT)}, bill.bytes(), picture,
                    [&page](std::string_view piece) { static_cast<void>(page.write(piece)); });
    const base::WriteStatus written = page.commit();
    if (written) {
        acutPrintf(L"\n%s saved.", file.c_str());
    } else {
        acedAlert((L"File " + file + L" could not be written: " + base::wide_from_utf8(written.reason())).c_str());
    }
    return static_cast<bool>(written);
}

/// Shows the drawing as it was kept, or else as `otherwise` gives it. False when there is no picture at all.
template <typename Otherwise>
bool write_page_with_view(const base::FileContents& bill, KeptView& view, const std::wstring& file,
                          const Otherwise& otherwise) {
    const std::optional<std::string> other = view.svg() == nullptr ? otherwise() : std::nullopt;
    const std::string* const picture = other ? &*other : view.svg();
    if (picture != nullptr && write_page(bill, *picture, file)) {
        view.forget();
    }
    return picture != nullptr;
}

/// The last bill; nothing after a line that says why.
std::optional<base::FileContents> bill_to_show(const LastBill& last) {
    if (acDocManagerPtr()->curDocument() == nullptr) {
        acutPrintf(L"\nNo drawing is open.");
        return std::nullopt;
    }
    auto bill = last.read();
    if (!bill) {
        acutPrintf(L"\nThe page shows the last bill, and this drawing has none yet: make a report first (QXBOMC).");
    }
    return bill;
}

}  // namespace

void save_page(const LastBill& last, KeptView& view) {
    const auto bill = bill_to_show(last);
    const auto file = bill ? ask_page_file() : std::nullopt;
    if (!file) {
        return;
    }
    if (!write_page_with_view(*bill, view, *file, picture_of_drawing)) {
        acutPrintf(L"\nThere is no picture of the drawing, and so no page.");
    }
}

void save_page_with_picture(const LastBill& last, KeptView& view) {
    const auto bill = bill_to_show(last);
    const auto file = bill ? ask_page_file() : std::nullopt;
    const auto shown =
        file ? ask_for_file(L"Picture of the drawing", L"", L"svg;png", FileQuestion::existing_file) : std::nullopt;
    if (!shown) {
        return;
    }
    if (!write_page_with_view(*bill, view, *file, [&shown] { return read_picture(*shown); })) {
        acedAlert((L"File " + *shown + L" could not be read.").c_str());
    }
}

}  // namespace corvanes
