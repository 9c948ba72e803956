#pragma once

#define IDD_ROOM 101
#define IDC_ROOM_NAME 1001
#define IDC_ROOM_NUMBER 1002

#define IDD_VIEW 102
#define IDC_VIEW 1003
