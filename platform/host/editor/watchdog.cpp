#include "platform/host/editor/watchdog.h"

#include <windows.h>

#include "platform/host/editor/history.h"
#include "platform/host/editor/script_run.h"

namespace host {

Watchdog::Watchdog(const ScriptRun& run, std::chrono::seconds patience)
    : run_(run), patience_(patience), thread_([this] { watch(); }) {}

Watchdog::~Watchdog() {
    {
        const std::lock_guard<std::mutex> lock(mutex_);
        done_ = true;
    }
    wake_.notify_one();
    thread_.join();
}

void Watchdog::watch() {
    std::unique_lock<std::mutex> lock(mutex_);
    for (;;) {
        const size_t before = run_.progress();
        if (wake_.wait_for(lock, patience_, [this] { return done_; })) {
            return;
        }
        if (run_.progress() == before) {
            const std::wstring reason = L"nothing happened for " + std::to_wstring(patience_.count()) + L" s";
            write_standard_error(run_.stall_failure(reason) + L"\n");
            // Not exit(): the main thread is stuck somewhere, and must not be waited for.
            TerminateProcess(GetCurrentProcess(), 1);
        }
    }
}

}  // namespace host
