// Any bytes: the version resource of a program is read or refused.
#include "FuzzFile.h"
#include "win/CodePage.h"
#include "win/Version.h"
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const KxFuzz::File input("in.exe");
    static const wchar_t* const kValues[] = {L"\\", L"\\VarFileInfo\\Translation",
                                             L"\\StringFileInfo\\080404b0\\FileVersion",
                                             L"\\StringFileInfo\\040904b0\\ProductName"};
    input.Write(data, size);
    const std::wstring name = KxPlat::FromUtf8(input.path());
    DWORD handle = 0;
    const DWORD room = GetFileVersionInfoSizeW(name.c_str(), &handle);
    std::vector<unsigned char> block(room);
    if (room == 0 || !GetFileVersionInfoW(name.c_str(), 0, room, block.data()))
        return 0;
    for (const wchar_t* value : kValues) {
        void* found = nullptr;
        UINT length = 0;
        if (VerQueryValueW(block.data(), value, &found, &length) && length != 0)
            KxFuzz::Require(found >= block.data() && found < block.data() + block.size(), "a value lies in the block");
    }
    return 0;
}
