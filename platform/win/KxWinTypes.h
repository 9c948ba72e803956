// The Windows types, constants and macros that modules use, with their documented names and values.
// LONG, DWORD and UINT have 32 bits as on Windows; wchar_t and the C++ `long` follow this system.
#pragma once
#include <cstddef>
#include <cstdint>

// clang-format off
typedef int                 BOOL;
typedef unsigned char       BYTE;
typedef uint16_t            WORD;
typedef uint32_t            DWORD;
typedef uint32_t            UINT;
typedef int32_t             LONG;
typedef uint32_t            ULONG;
typedef int64_t             LONGLONG;
typedef uint64_t            ULONGLONG;
typedef int                 INT;
typedef short               SHORT;
typedef unsigned short      USHORT;
typedef char                CHAR;
typedef wchar_t             WCHAR;
typedef wchar_t             TCHAR;
typedef float               FLOAT;
typedef void*               PVOID;
typedef void*               LPVOID;
typedef const void*         LPCVOID;
typedef BYTE*               LPBYTE;
typedef WORD*               LPWORD;
typedef DWORD*              LPDWORD;
typedef BOOL*               LPBOOL;
typedef LONG*               PLONG;
typedef UINT*               PUINT;
typedef char*               LPSTR;
typedef const char*         LPCSTR;
typedef wchar_t*            LPWSTR;
typedef const wchar_t*      LPCWSTR;
typedef wchar_t*            LPTSTR;
typedef const wchar_t*      LPCTSTR;
typedef intptr_t            INT_PTR;
typedef uintptr_t           UINT_PTR;
typedef intptr_t            LONG_PTR;
typedef uintptr_t           ULONG_PTR;
typedef uintptr_t           DWORD_PTR;
typedef size_t              SIZE_T;
typedef UINT_PTR            WPARAM;
typedef LONG_PTR            LPARAM;
typedef LONG_PTR            LRESULT;
typedef LONG                HRESULT;
typedef DWORD               COLORREF;
typedef WORD                ATOM;
typedef WORD                LANGID;
typedef DWORD               LCID;
typedef DWORD               ACCESS_MASK;
typedef ACCESS_MASK         REGSAM;
typedef LONG                LSTATUS;

typedef void*               HANDLE;
typedef struct HINSTANCE__* HINSTANCE;
typedef HINSTANCE           HMODULE;
typedef struct HWND__*      HWND;
typedef struct HMENU__*     HMENU;
typedef struct HDC__*       HDC;
typedef struct HICON__*     HICON;
typedef HICON               HCURSOR;
typedef struct HBITMAP__*   HBITMAP;
typedef struct HBRUSH__*    HBRUSH;
typedef struct HPEN__*      HPEN;
typedef struct HFONT__*     HFONT;
typedef struct HRGN__*      HRGN;
typedef struct HKEY__*      HKEY;
typedef struct HRSRC__*     HRSRC;
typedef void*               HGDIOBJ;
typedef void*               HGLOBAL;

#define WINAPI
#define CALLBACK
#define APIENTRY
#define AFX_CDECL
#define CONST const

#ifndef TRUE
#define TRUE 1
#define FALSE 0
#endif

// Answers nothing, so that the compiler lets it be cast to the function that it really is.
typedef void (WINAPI* FARPROC)();
typedef LRESULT (CALLBACK* WNDPROC)(HWND, UINT, WPARAM, LPARAM);
typedef BOOL (CALLBACK* WNDENUMPROC)(HWND, LPARAM);

struct tagPOINT { LONG x, y; };
typedef tagPOINT POINT, *LPPOINT;
struct tagSIZE { LONG cx, cy; };
typedef tagSIZE SIZE, *LPSIZE;
struct tagRECT { LONG left, top, right, bottom; };
typedef tagRECT RECT, *LPRECT;
typedef const tagRECT* LPCRECT;
struct tagMSG { HWND hwnd; UINT message; WPARAM wParam; LPARAM lParam; DWORD time; POINT pt; };
typedef tagMSG MSG, *LPMSG;
struct _FILETIME { DWORD dwLowDateTime, dwHighDateTime; };
typedef _FILETIME FILETIME, *LPFILETIME;
struct _SYSTEMTIME { WORD wYear, wMonth, wDayOfWeek, wDay, wHour, wMinute, wSecond, wMilliseconds; };
typedef _SYSTEMTIME SYSTEMTIME, *LPSYSTEMTIME;
struct tagCOPYDATASTRUCT { ULONG_PTR dwData; DWORD cbData; PVOID lpData; };
typedef tagCOPYDATASTRUCT COPYDATASTRUCT, *PCOPYDATASTRUCT;
struct tagNMHDR { HWND hwndFrom; UINT_PTR idFrom; UINT code; };
typedef tagNMHDR NMHDR;

struct tagVS_FIXEDFILEINFO {
    DWORD dwSignature, dwStrucVersion;
    DWORD dwFileVersionMS, dwFileVersionLS;
    DWORD dwProductVersionMS, dwProductVersionLS;
    DWORD dwFileFlagsMask, dwFileFlags, dwFileOS, dwFileType, dwFileSubtype;
    DWORD dwFileDateMS, dwFileDateLS;
};
typedef tagVS_FIXEDFILEINFO VS_FIXEDFILEINFO;

#define LOWORD(l) (static_cast<WORD>(static_cast<DWORD_PTR>(l) & 0xFFFF))
#define HIWORD(l) (static_cast<WORD>((static_cast<DWORD_PTR>(l) >> 16) & 0xFFFF))
#define LOBYTE(w) (static_cast<BYTE>(static_cast<DWORD_PTR>(w) & 0xFF))
#define HIBYTE(w) (static_cast<BYTE>((static_cast<DWORD_PTR>(w) >> 8) & 0xFF))
#define MAKEWORD(a, b) (static_cast<WORD>(static_cast<BYTE>(a) | (static_cast<WORD>(static_cast<BYTE>(b)) << 8)))
#define MAKELONG(a, b) (static_cast<LONG>(static_cast<WORD>(a) | (static_cast<DWORD>(static_cast<WORD>(b)) << 16)))
#define MAKEWPARAM(l, h) (static_cast<WPARAM>(static_cast<DWORD>(MAKELONG(l, h))))
#define MAKELPARAM(l, h) (static_cast<LPARAM>(static_cast<DWORD>(MAKELONG(l, h))))
#define RGB(r, g, b) (static_cast<COLORREF>(static_cast<BYTE>(r) | (static_cast<BYTE>(g) << 8) | (static_cast<DWORD>(static_cast<BYTE>(b)) << 16)))
#define GetRValue(rgb) (LOBYTE(rgb))
#define GetGValue(rgb) (LOBYTE((rgb) >> 8))
#define GetBValue(rgb) (LOBYTE((rgb) >> 16))
// A resource number in the place of its name.
#define MAKEINTRESOURCE(i) (reinterpret_cast<LPWSTR>(static_cast<ULONG_PTR>(static_cast<WORD>(i))))
#define MAKEINTRESOURCEW(i) MAKEINTRESOURCE(i)
#define IS_INTRESOURCE(p) ((reinterpret_cast<ULONG_PTR>(p) >> 16) == 0)
#define _T(text) L##text
#define TEXT(text) L##text
#define INVALID_HANDLE_VALUE (reinterpret_cast<HANDLE>(static_cast<LONG_PTR>(-1)))
#define ARRAYSIZE(a) (sizeof(a) / sizeof((a)[0]))
#define UNREFERENCED_PARAMETER(p) (static_cast<void>(p))

// Makes a function or class of a module visible to other modules.
#define KX_DLLEXPORT __attribute__((visibility("default")))

#define MAX_PATH 260
#define _MAX_PATH 260
#define _MAX_DRIVE 3
#define _MAX_DIR 256
#define _MAX_FNAME 256
#define _MAX_EXT 256

enum : DWORD { DLL_PROCESS_DETACH = 0, DLL_PROCESS_ATTACH = 1, DLL_THREAD_ATTACH = 2, DLL_THREAD_DETACH = 3 };

enum : DWORD {
    ERROR_SUCCESS = 0, ERROR_FILE_NOT_FOUND = 2, ERROR_PATH_NOT_FOUND = 3, ERROR_TOO_MANY_OPEN_FILES = 4,
    ERROR_ACCESS_DENIED = 5, ERROR_INVALID_HANDLE = 6, ERROR_NOT_ENOUGH_MEMORY = 8, ERROR_NO_MORE_FILES = 18,
    ERROR_WRITE_FAULT = 29, ERROR_READ_FAULT = 30, ERROR_SHARING_VIOLATION = 32, ERROR_LOCK_VIOLATION = 33,
    ERROR_NOT_SUPPORTED = 50, ERROR_FILE_EXISTS = 80, ERROR_INVALID_PARAMETER = 87, ERROR_DISK_FULL = 112,
    ERROR_CALL_NOT_IMPLEMENTED = 120, ERROR_INSUFFICIENT_BUFFER = 122, ERROR_INVALID_NAME = 123,
    ERROR_MOD_NOT_FOUND = 126, ERROR_PROC_NOT_FOUND = 127, ERROR_NEGATIVE_SEEK = 131, ERROR_DIR_NOT_EMPTY = 145,
    ERROR_BAD_PATHNAME = 161, ERROR_ALREADY_EXISTS = 183, ERROR_BAD_EXE_FORMAT = 193, ERROR_MORE_DATA = 234,
    ERROR_NO_MORE_ITEMS = 259, ERROR_DIRECTORY = 267, ERROR_KEY_DELETED = 1018, ERROR_NO_UNICODE_TRANSLATION = 1113,
    ERROR_DLL_INIT_FAILED = 1114, ERROR_INVALID_WINDOW_HANDLE = 1400, ERROR_TIMEOUT = 1460,
    ERROR_UNSUPPORTED_TYPE = 1630, ERROR_RESOURCE_DATA_NOT_FOUND = 1812, ERROR_RESOURCE_TYPE_NOT_FOUND = 1813
};
#define NO_ERROR 0L

#define CP_ACP 0
#define CP_OEMCP 1
#define CP_THREAD_ACP 3
#define CP_UTF8 65001
#define MB_PRECOMPOSED 0x00000001
#define MB_ERR_INVALID_CHARS 0x00000008
#define WC_NO_BEST_FIT_CHARS 0x00000400

#define MB_OK 0x00000000U
#define MB_OKCANCEL 0x00000001U
#define MB_ABORTRETRYIGNORE 0x00000002U
#define MB_YESNOCANCEL 0x00000003U
#define MB_YESNO 0x00000004U
#define MB_RETRYCANCEL 0x00000005U
#define MB_ICONHAND 0x00000010U
#define MB_ICONSTOP 0x00000010U
#define MB_ICONERROR 0x00000010U
#define MB_ICONQUESTION 0x00000020U
#define MB_ICONEXCLAMATION 0x00000030U
#define MB_ICONWARNING 0x00000030U
#define MB_ICONASTERISK 0x00000040U
#define MB_ICONINFORMATION 0x00000040U
#define MB_DEFBUTTON1 0x00000000U
#define MB_DEFBUTTON2 0x00000100U
#define MB_DEFBUTTON3 0x00000200U
#define MB_TYPEMASK 0x0000000FU
#define MB_DEFMASK 0x00000F00U
#define IDOK 1
#define IDCANCEL 2
#define IDABORT 3
#define IDRETRY 4
#define IDIGNORE 5
#define IDYES 6
#define IDNO 7
#define IDCLOSE 8
#define IDHELP 9

#define WM_NULL 0x0000
#define WM_CREATE 0x0001
#define WM_DESTROY 0x0002
#define WM_MOVE 0x0003
#define WM_SIZE 0x0005
#define WM_ACTIVATE 0x0006
#define WM_SETFOCUS 0x0007
#define WM_KILLFOCUS 0x0008
#define WM_ENABLE 0x000A
#define WM_SETREDRAW 0x000B
#define WM_SETTEXT 0x000C
#define WM_GETTEXT 0x000D
#define WM_GETTEXTLENGTH 0x000E
#define WM_PAINT 0x000F
#define WM_CLOSE 0x0010
#define WM_QUIT 0x0012
#define WM_ERASEBKGND 0x0014
#define WM_SHOWWINDOW 0x0018
#define WM_SETCURSOR 0x0020
#define WM_GETMINMAXINFO 0x0024
#define WM_COPYDATA 0x004A
#define WM_NOTIFY 0x004E
#define WM_NCDESTROY 0x0082
#define WM_KEYFIRST 0x0100
#define WM_KEYDOWN 0x0100
#define WM_KEYUP 0x0101
#define WM_CHAR 0x0102
#define WM_SYSKEYDOWN 0x0104
#define WM_SYSKEYUP 0x0105
#define WM_KEYLAST 0x0109
#define WM_INITDIALOG 0x0110
#define WM_COMMAND 0x0111
#define WM_SYSCOMMAND 0x0112
#define WM_TIMER 0x0113
#define WM_HSCROLL 0x0114
#define WM_VSCROLL 0x0115
#define WM_INITMENUPOPUP 0x0117
#define WM_MOUSEFIRST 0x0200
#define WM_MOUSEMOVE 0x0200
#define WM_LBUTTONDOWN 0x0201
#define WM_LBUTTONUP 0x0202
#define WM_LBUTTONDBLCLK 0x0203
#define WM_RBUTTONDOWN 0x0204
#define WM_RBUTTONUP 0x0205
#define WM_RBUTTONDBLCLK 0x0206
#define WM_MBUTTONDOWN 0x0207
#define WM_MBUTTONUP 0x0208
#define WM_MBUTTONDBLCLK 0x0209
#define WM_MOUSEWHEEL 0x020A
#define WM_USER 0x0400
#define WM_APP 0x8000

#define VK_BACK 0x08
#define VK_TAB 0x09
#define VK_RETURN 0x0D
#define VK_SHIFT 0x10
#define VK_CONTROL 0x11
#define VK_MENU 0x12
#define VK_ESCAPE 0x1B
#define VK_SPACE 0x20
#define VK_PRIOR 0x21
#define VK_NEXT 0x22
#define VK_END 0x23
#define VK_HOME 0x24
#define VK_LEFT 0x25
#define VK_UP 0x26
#define VK_RIGHT 0x27
#define VK_DOWN 0x28
#define VK_INSERT 0x2D
#define VK_DELETE 0x2E
#define VK_F1 0x70
#define VK_F12 0x7B

#define WS_OVERLAPPED 0x00000000U
#define WS_POPUP 0x80000000U
#define WS_CHILD 0x40000000U
#define WS_VISIBLE 0x10000000U
#define WS_DISABLED 0x08000000U
#define WS_CLIPSIBLINGS 0x04000000U
#define WS_CLIPCHILDREN 0x02000000U
#define WS_CAPTION 0x00C00000U
#define WS_BORDER 0x00800000U
#define WS_DLGFRAME 0x00400000U
#define WS_VSCROLL 0x00200000U
#define WS_HSCROLL 0x00100000U
#define WS_SYSMENU 0x00080000U
#define WS_THICKFRAME 0x00040000U
#define WS_GROUP 0x00020000U
#define WS_TABSTOP 0x00010000U
#define WS_MINIMIZEBOX 0x00020000U
#define WS_MAXIMIZEBOX 0x00010000U
#define WS_OVERLAPPEDWINDOW 0x00CF0000U
#define SW_HIDE 0
#define SW_SHOWNORMAL 1
#define SW_NORMAL 1
#define SW_SHOWMINIMIZED 2
#define SW_SHOWMAXIMIZED 3
#define SW_SHOWNOACTIVATE 4
#define SW_SHOW 5
#define SW_MINIMIZE 6
#define SW_RESTORE 9
#define GWL_STYLE (-16)
#define GWL_EXSTYLE (-20)
#define GCL_HMODULE (-16)
#define GCL_STYLE (-26)
#define MF_STRING 0x00000000U
#define MF_BYCOMMAND 0x00000000U
#define MF_ENABLED 0x00000000U
#define MF_UNCHECKED 0x00000000U
#define MF_GRAYED 0x00000001U
#define MF_DISABLED 0x00000002U
#define MF_CHECKED 0x00000008U
#define MF_POPUP 0x00000010U
#define MF_BYPOSITION 0x00000400U
#define MF_SEPARATOR 0x00000800U

#define INFINITE 0xFFFFFFFFU
#define WAIT_OBJECT_0 0U
#define WAIT_TIMEOUT 258U
#define WAIT_FAILED 0xFFFFFFFFU
#define STILL_ACTIVE 259U
#define PROCESS_QUERY_INFORMATION 0x0400
#define INVALID_FILE_ATTRIBUTES 0xFFFFFFFFU
#define FILE_ATTRIBUTE_READONLY 0x00000001
#define FILE_ATTRIBUTE_HIDDEN 0x00000002
#define FILE_ATTRIBUTE_DIRECTORY 0x00000010
#define FILE_ATTRIBUTE_ARCHIVE 0x00000020
#define FILE_ATTRIBUTE_NORMAL 0x00000080
#define VS_FFI_SIGNATURE 0xFEEF04BDU
#define VS_FFI_STRUCVERSION 0x00010000U
// clang-format on
