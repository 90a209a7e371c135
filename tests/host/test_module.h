// Control numbers of the test module's dialog.
#pragma once

#define IDD_TEST 100
#define IDC_TEXT 101
#define IDC_TICK 102
#define IDC_ECHO 103
#define IDC_ASK_FILE 104
#define IDC_ALERT 105
#define IDC_QUESTION 106
#define IDC_GRID 107
#define IDC_LAST_EVENT 108
#define IDC_DISABLED 109
