// Resource identifiers of the tests' dialogs.
#define IDD_FIELDS 100
#define IDC_NAME 102
#define IDC_NOTES 104
#define IDC_PRESS 106
#define IDD_ONE_BUTTON 107
