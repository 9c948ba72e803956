// The registry. A text in a value is an array of wide characters in memory, and sizes count its bytes.
// Each call answers its error, ERROR_SUCCESS or another. Keys come in the order of their names, values in the order in
// which they were made. What a key's 32-bit view shows of HKEY_LOCAL_MACHINE\SOFTWARE lies in Wow6432Node there.
#pragma once
#include "KxWinTypes.h"
#include "RegistryTypes.h"

// clang-format off
#define KX_ROOT_KEY(n) (reinterpret_cast<HKEY>(static_cast<ULONG_PTR>(static_cast<intptr_t>(static_cast<LONG>(n)))))
#define HKEY_CLASSES_ROOT KX_ROOT_KEY(0x80000000U)
#define HKEY_CURRENT_USER KX_ROOT_KEY(0x80000001U)
#define HKEY_LOCAL_MACHINE KX_ROOT_KEY(0x80000002U)
#define HKEY_USERS KX_ROOT_KEY(0x80000003U)
#define HKEY_CURRENT_CONFIG KX_ROOT_KEY(0x80000005U)

#define KEY_QUERY_VALUE 0x0001U
#define KEY_SET_VALUE 0x0002U
#define KEY_CREATE_SUB_KEY 0x0004U
#define KEY_ENUMERATE_SUB_KEYS 0x0008U
#define KEY_NOTIFY 0x0010U
#define KEY_WOW64_64KEY 0x0100U
#define KEY_WOW64_32KEY 0x0200U
#define KEY_READ 0x20019U
#define KEY_WRITE 0x20006U
#define KEY_ALL_ACCESS 0xF003FU
#define REG_OPTION_NON_VOLATILE 0U
#define REG_CREATED_NEW_KEY 1U
#define REG_OPENED_EXISTING_KEY 2U
#define ERROR_NOACCESS 998U

#define RRF_RT_REG_NONE 0x00000001U
#define RRF_RT_REG_SZ 0x00000002U
#define RRF_RT_REG_EXPAND_SZ 0x00000004U
#define RRF_RT_REG_BINARY 0x00000008U
#define RRF_RT_REG_DWORD 0x00000010U
#define RRF_RT_REG_MULTI_SZ 0x00000020U
#define RRF_RT_REG_QWORD 0x00000040U
#define RRF_RT_ANY 0x0000FFFFU
#define RRF_NOEXPAND 0x10000000U
#define RRF_ZEROONFAILURE 0x20000000U
// clang-format on

struct _SECURITY_ATTRIBUTES;

extern "C" {
LSTATUS RegOpenKeyExW(HKEY key, LPCWSTR subKey, DWORD options, REGSAM access, HKEY* result);
LSTATUS RegCreateKeyExW(HKEY key, LPCWSTR subKey, DWORD reserved, LPWSTR keyClass, DWORD options, REGSAM access,
                        const _SECURITY_ATTRIBUTES* security, HKEY* result, LPDWORD disposition);
LSTATUS RegCloseKey(HKEY key);

// A text without a terminator gets one.
LSTATUS RegSetValueExW(HKEY key, LPCWSTR name, DWORD reserved, DWORD type, const BYTE* data, DWORD size);
// 234 and the size needed when `size` is too small.
LSTATUS RegQueryValueExW(HKEY key, LPCWSTR name, LPDWORD reserved, LPDWORD type, LPBYTE data, LPDWORD size);
// The default value of a key as a text.
LSTATUS RegQueryValueW(HKEY key, LPCWSTR subKey, LPWSTR data, LONG* size);
// 1630 when the value's type is not among those that `flags` allow.
LSTATUS RegGetValueW(HKEY key, LPCWSTR subKey, LPCWSTR name, DWORD flags, LPDWORD type, PVOID data, LPDWORD size);
LSTATUS RegDeleteValueW(HKEY key, LPCWSTR name);

LSTATUS RegEnumKeyW(HKEY key, DWORD index, LPWSTR name, DWORD size);
LSTATUS RegEnumKeyExW(HKEY key, DWORD index, LPWSTR name, LPDWORD size, LPDWORD reserved, LPWSTR keyClass,
                      LPDWORD classSize, LPFILETIME written);
LSTATUS RegEnumValueW(HKEY key, DWORD index, LPWSTR name, LPDWORD nameSize, LPDWORD reserved, LPDWORD type, LPBYTE data,
                      LPDWORD size);
// Any answer may be null. Names are counted in characters, data in bytes.
LSTATUS RegQueryInfoKeyW(HKEY key, LPWSTR keyClass, LPDWORD classSize, LPDWORD reserved, LPDWORD subKeys,
                         LPDWORD longestSubKey, LPDWORD longestClass, LPDWORD values, LPDWORD longestName,
                         LPDWORD longestData, LPDWORD securitySize, LPFILETIME written);
LSTATUS RegDeleteKeyW(HKEY key, LPCWSTR subKey);    // 5 when it has keys below it
LSTATUS RegDeleteTreeW(HKEY key, LPCWSTR subKey);   // a null name empties the key itself
}
