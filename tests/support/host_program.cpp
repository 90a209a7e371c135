#include "tests/support/host_program.h"

#include <windows.h>

#include "base/code_page.h"

namespace test_support {
namespace {

class Handle {
  public:
    explicit Handle(HANDLE handle) : handle_(handle) {}
    ~Handle() { CloseHandle(handle_); }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    HANDLE get() const { return handle_; }

  private:
    HANDLE handle_;
};

}  // namespace

HostProgram::HostProgram()
    : folder_("drawinghost_" + std::to_string(GetCurrentProcessId()) + "_" +
              testing::UnitTest::GetInstance()->current_test_info()->name()) {}

std::filesystem::path HostProgram::program_folder() const {
    wchar_t path[MAX_PATH];
    return std::filesystem::path(path, path + GetModuleFileNameW(nullptr, path, MAX_PATH)).parent_path();
}

Outcome HostProgram::start(const std::string& arguments) const {
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    const std::filesystem::path errors = folder_ / "errors.txt";
    PROCESS_INFORMATION process{};
    {
        const Handle output(CreateFileW(errors.c_str(), GENERIC_WRITE, FILE_SHARE_READ, &inherited, CREATE_ALWAYS,
                                        FILE_ATTRIBUTE_NORMAL, nullptr));
        STARTUPINFOW startup{};
        startup.cb = sizeof startup;
        startup.dwFlags = STARTF_USESTDHANDLES;
        startup.hStdError = output.get();
        std::wstring command =
            L"\"" + (program_folder() / L"drawinghost.exe").wstring() + L"\" " + base::wide_from_utf8(arguments);
        // Wine fails to start a program now and then on a busy machine.
        bool started = false;
        for (int tries = 0; tries < 3 && !started; ++tries) {
            started = CreateProcessW(nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr,
                                     folder_.path().c_str(), &startup, &process) != 0;
        }
        EXPECT_TRUE(started) << GetLastError();
    }
    const Handle process_handle(process.hProcess);
    const Handle thread_handle(process.hThread);
    WaitForSingleObject(process.hProcess, INFINITE);
    Outcome outcome;
    GetExitCodeProcess(process.hProcess, &outcome.status);
    outcome.said = contents(errors);
    return outcome;
}

}  // namespace test_support
