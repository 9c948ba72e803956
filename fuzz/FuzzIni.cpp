// Any bytes: a profile file keeps its lines, and a value that is set is found again.
#include "FuzzFile.h"
#include "win/IniText.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    using KxPlat::IniText;
    IniText ini = IniText::Parse(std::string_view(reinterpret_cast<const char*>(data), size));
    for (const std::wstring& section : ini.SectionNames()) {
        for (const KxPlat::IniLine* line : ini.KeysOf(section))
            ini.Find(section, line->name);
    }
    ini.Set(L"Kx", L"key", L"value");
    const IniText again = IniText::Parse(ini.Bytes());
    const KxPlat::IniLine* line = again.Find(L"Kx", L"key");
    KxFuzz::Require(line != nullptr && line->value == L"value", "a value that was set is found");
    ini.RemoveKey(L"Kx", L"key");
    ini.RemoveSection(L"Kx");
    return 0;
}
