// The message by which any program asks a grid window to paint a page as it would be printed.
#pragma once

#include <windows.h>

namespace corvanes {

// Sent to the grid's window as the message that RegisterWindowMessage(printed_page_query_message) gives, with the
// address of a PrintedPageQuery in lParam. The grid paints the page (they count from 0) on `dc`, a page of so many
// pixels, and answers how many pages there are; 0 when it is not for printing.
constexpr wchar_t printed_page_query_message[] = L"PrintedPageQuery";

struct PrintedPageQuery {
    HDC dc;
    int width;
    int height;
    int dots_per_inch;
    int page;
};

}  // namespace corvanes
