// run_beside, which begins work that the caller will need later.
#pragma once

#include <future>
#include <system_error>
#include <type_traits>

namespace base {

/// How many processors this process may use, at least one.
unsigned usable_processors();

/// Begins `work` on a thread of its own. Where this process has one processor only, or the system has no thread for it
/// now, the first who waits for the result does the work. What the work throws, get() throws.
template <typename Work>
std::future<std::invoke_result_t<Work>> run_beside(Work work) {
    if (usable_processors() > 1) {
        try {
            return std::async(std::launch::async, work);
        } catch (const std::system_error&) {
        }
    }
    return std::async(std::launch::deferred, std::move(work));
}

}  // namespace base
