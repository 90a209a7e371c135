// Numbers of the page's sources among the module's resources.
#pragma once

#define IDR_PAGE_HTML 101
#define IDR_PAGE_STYLE 102
#define IDR_PAGE_SCRIPT 103
