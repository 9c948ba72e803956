// Numbers of the resources in TestResources.rc.
#pragma once

#define IDS_FIRST 100
#define IDS_GAP 97

#define IDD_TEST 0x64
#define IDC_NAME 1001
#define IDC_COUNT 1002
#define IDC_KIND 1003
#define IDC_ROWS 1004
#define IDC_ALL 1005
#define IDC_LEFT 1006
#define IDC_RIGHT 1007
#define IDC_TABLE 1008
#define IDC_HIDDEN 1009
#define IDC_APPLY 1010
