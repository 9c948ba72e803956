#pragma once

#define IDD_ROOM 101
#define IDC_ROOM_NAME 1001
#define IDC_ROOM_NUMBER 1002
