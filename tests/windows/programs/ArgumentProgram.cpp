// Writes its arguments, one a line in UTF-8, to the file that KX_TEST_LOG names.
#include <windows.h>

#include <shellapi.h>

#include <cstdio>
#include <string>

int main()
{
    wchar_t log[MAX_PATH] = {};
    GetEnvironmentVariableW(L"KX_TEST_LOG", log, MAX_PATH);
    int count = 0;
    wchar_t** words = CommandLineToArgvW(GetCommandLineW(), &count);
    std::string text;
    for (int i = 1; i < count; ++i) {
        char bytes[1024] = {};
        WideCharToMultiByte(CP_UTF8, 0, words[i], -1, bytes, sizeof bytes, nullptr, nullptr);
        (text += bytes) += '\n';
    }
    const std::wstring unfinished = std::wstring(log) + L".new";
    std::FILE* file = _wfopen(unfinished.c_str(), L"wb");
    if (file == nullptr)
        return 1;
    std::fwrite(text.data(), 1, text.size(), file);
    std::fclose(file);
    return MoveFileExW(unfinished.c_str(), log, MOVEFILE_REPLACE_EXISTING) ? 0 : 1;
}
