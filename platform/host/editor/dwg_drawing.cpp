#include "platform/host/editor/dwg_drawing.h"

#include <windows.h>

#include <array>
#include <cctype>
#include <cstring>
#include <fstream>
#include <iterator>
#include <optional>
#include <utility>
#include <vector>

#include "base/case_folding.h"
#include "base/code_page.h"
#include "base/unix_program.h"

namespace host {
namespace {

constexpr wchar_t variable[] = L"DRAWINGHOST_DWG_CONVERTER";
constexpr wchar_t message_name[] = L"message.txt";

std::wstring converter() {
    std::array<wchar_t, 4096> value{};
    const DWORD length = GetEnvironmentVariableW(variable, value.data(), static_cast<DWORD>(value.size()));
    return {value.data(), length < value.size() ? length : 0};
}

std::wstring read_message(const std::filesystem::path& folder) {
    std::ifstream file(folder / message_name, std::ios::binary);
    std::string text{std::istreambuf_iterator<char>(file), {}};
    text.erase(text.find_last_not_of("\r\n") + 1);
    return base::wide_from_utf8(text);
}

std::optional<int> run_windows_program(const std::wstring& program, const std::vector<std::filesystem::path>& files) {
    std::wstring line = L"\"" + program + L"\"";
    for (const std::filesystem::path& file : files) {
        line += L" \"" + file.wstring() + L"\"";
    }
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    if (CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, CREATE_NO_WINDOW, nullptr, nullptr, &start,
                       &process) == 0) {
        return std::nullopt;
    }
    CloseHandle(process.hThread);
    WaitForSingleObject(process.hProcess, INFINITE);
    DWORD status = 1;
    GetExitCodeProcess(process.hProcess, &status);
    CloseHandle(process.hProcess);
    return static_cast<int>(status);
}

std::optional<int> run_converter(const std::wstring& program, const std::vector<std::filesystem::path>& files) {
    if (program.front() != L'/') {
        return run_windows_program(program, files);
    }
    std::vector<std::string> arguments{base::utf8_from_wide(program)};
    for (const std::filesystem::path& file : files) {
        // Only a folder that exists is sure to have a name in the system below, so the file's own name is added to
        // that.
        const std::optional<std::string> folder = base::unix_name(file.parent_path());
        arguments.push_back(folder.value_or("") + "/" + base::utf8_from_wide(file.filename().wstring()));
    }
    return base::run_unix_program(std::move(arguments));
}

}  // namespace

bool is_dwg(const std::filesystem::path& path) {
    std::array<char, 6> mark{};
    std::ifstream(path, std::ios::binary).read(mark.data(), mark.size());
    const auto digit = [&mark](size_t at) { return std::isdigit(static_cast<unsigned char>(mark[at])) != 0; };
    return (std::memcmp(mark.data(), "AC", 2) == 0 || std::memcmp(mark.data(), "MC", 2) == 0) && digit(2) &&
           (digit(3) || mark[3] == '.') && digit(4) && (digit(5) || mark[5] == '.');
}

bool has_dwg_name(const std::filesystem::path& path) {
    return base::compare_ignoring_case(path.extension().wstring(), L".dwg") == 0;
}

base::Result<ConvertedDrawing> ConvertedDrawing::convert(const std::filesystem::path& dwg) {
    const std::wstring program = converter();
    if (program.empty()) {
        return base::Failure{dwg.wstring() + L": it is a DWG drawing, and " + variable +
                             L" names no program that converts it"};
    }
    ConvertedDrawing made(dwg.stem());
    if (made.folder_.path().empty()) {
        return base::Failure{dwg.wstring() + L": there is no folder for temporary files"};
    }
    const std::optional<int> status =
        run_converter(program, {std::filesystem::absolute(dwg), made.dxf_, made.folder_.path() / message_name});
    if (status == 0) {
        return made;
    }
    const std::wstring message = read_message(made.folder_.path());
    return base::Failure{dwg.wstring() + L": " +
                         (status && !message.empty() ? message : program + L" could not convert it")};
}

ConvertedDrawing::ConvertedDrawing(const std::filesystem::path& name)
    : dxf_(folder_.path() / (name.wstring() + L".dxf")) {}

std::wstring ConvertedDrawing::notes() const {
    return read_message(folder_.path());
}

}  // namespace host
