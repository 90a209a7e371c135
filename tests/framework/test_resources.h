// Resource identifiers of the tests' program and of its extension module.
#define IDD_FIELDS 100
#define IDC_NUMBER 101
#define IDC_NAME 102
#define IDC_TICK 103
#define IDC_NOTES 104
#define IDC_LABEL 105
#define IDC_PRESS 106
#define IDD_ONE_BUTTON 107
#define IDD_EXTENSION 110
#define IDS_BOTH 1
