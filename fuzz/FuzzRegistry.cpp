// Any bytes: what is read of a registry text can be written and read again as the same.
#include "FuzzFile.h"
#include "win/RegistryText.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    using namespace KxPlat;
    RegistryKey first;
    const RegistryReading reading = ReadRegistry(std::string_view(reinterpret_cast<const char*>(data), size), first);
    const std::string written = RegistryText(first, reading.encoding);
    RegistryKey second;
    const RegistryReading again = ReadRegistry(written, second);
    KxFuzz::Require(again.isRegistry && again.badLine == 0, "a written registry is understood");
    KxFuzz::Require(RegistryText(second, reading.encoding) == written, "a written registry stays the same");
    return 0;
}
