#include "base/background.h"

#ifdef _WIN32
#include <windows.h>

#include <bit>
#else
#include <algorithm>
#include <thread>
#endif

namespace base {

unsigned usable_processors() {
#ifdef _WIN32
    DWORD_PTR of_process = 0;
    DWORD_PTR of_system = 0;
    GetProcessAffinityMask(GetCurrentProcess(), &of_process, &of_system);
    return of_process == 0 ? 1 : static_cast<unsigned>(std::popcount(static_cast<unsigned long long>(of_process)));
#else
    return std::max(1U, std::thread::hardware_concurrency());
#endif
}

}  // namespace base
