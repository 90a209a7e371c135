#include "platform/host/prompt/prompt_options.h"

#include <algorithm>

namespace host {

std::vector<PromptOption> prompt_options(std::wstring_view prompt) {
    std::vector<PromptOption> options;
    const size_t open = prompt.find(L'[');
    const size_t close = open == std::wstring_view::npos ? open : prompt.find(L']', open);
    if (close == std::wstring_view::npos) {
        return options;
    }
    for (size_t begin = open + 1; begin <= close;) {
        const size_t end = std::min(prompt.find(L'/', begin), close);
        if (end > begin) {
            options.push_back({begin, end - begin});
        }
        begin = end + 1;
    }
    return options;
}

}  // namespace host
