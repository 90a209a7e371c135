// Identifiers of the module's resources.
#pragma once

#define IDD_BOM_TEMPLATE 200
#define IDD_BOM_REPORT 201

// Controls of the BOM Report dialog.
#define IDC_REPORT_SAVE 200
#define IDC_REPORT_INSERT 207
#define IDC_REPORT_CLOSE 212
#define IDC_REPORT_ATTACH 213
#define IDC_REPORT_FILE 214
#define IDC_REPORT_GRID 216
#define IDC_REPORT_SHOW_PRICE 221
