#include "SmallSections.h"
#include "ByteWalk.h"
#include "DwgVersion.h"
#include "Sentinels.h"

namespace KxPlat {

namespace {

void AppendTime(std::string& out, DwgTime time)
{
    AppendLong(out, time.day);
    AppendLong(out, time.millisecond);
}

// With a zero at the end, which the length counts.
void AppendWide(std::string& out, std::string_view text)
{
    AppendShort(out, text.size() + 1);
    for (const char letter : text)
        AppendShort(out, uint8_t(letter));
    AppendShort(out, 0);
}

}   // namespace

std::string AuxHeaderBytes(const DwgSections& kind, DwgTime created, DwgTime updated, uint64_t nextHandle)
{
    constexpr size_t kSize = 123;
    constexpr uint16_t kUnnamed[] = {5, 0x893, 5, 0x893, 0, 1};
    std::string bytes("\xFF\x77\x01", 3);
    AppendShort(bytes, kind.program);
    AppendShort(bytes, kind.programMaintenance);
    AppendLong(bytes, 1);   // times saved
    AppendLong(bytes, 0xFFFFFFFF);
    AppendShort(bytes, 1);
    AppendShort(bytes, 0);
    AppendLong(bytes, 0);
    for (int i = 0; i < 2; ++i) {
        AppendShort(bytes, kind.program);
        AppendShort(bytes, kind.programMaintenance);
    }
    for (const uint16_t number : kUnnamed)
        AppendShort(bytes, number);
    bytes.append(20, '\0');
    AppendTime(bytes, created);
    AppendTime(bytes, updated);
    AppendLong(bytes, nextHandle < 0x80000000 ? nextHandle : 0xFFFFFFFF);
    bytes.resize(kSize, '\0');
    return bytes;
}

std::string FreeSpaceBytes(const DwgSections& kind, uint64_t objectCount, DwgTime updated)
{
    constexpr uint64_t kLimits[] = {0x32, 0x64, 0x200, 0xFFFFFFFF};
    const bool isLong = kind.version >= kR2010;
    std::string bytes;
    AppendNumber(bytes, 0, isLong ? 8 : 4);
    AppendNumber(bytes, objectCount, isLong ? 8 : 4);
    AppendTime(bytes, updated);
    if (!isLong)
        AppendLong(bytes, 0);   // address of the objects
    bytes += char(4);
    for (const uint64_t limit : kLimits) {
        AppendLong64(bytes, limit);
        if (isLong)
            AppendLong64(bytes, 0);
    }
    return bytes;
}

std::string TemplateBytes(const DwgSections& kind, bool isMetric)
{
    std::string bytes;
    if (kind.version >= kR2007)
        AppendShort(bytes, 1);   // a description of nothing but its end
    AppendShort(bytes, 0);
    AppendShort(bytes, isMetric);
    return bytes;
}

bool IsMetric(std::string_view settings, AcDb::AcDbDwgVersion version)
{
    ByteWalk in(settings);
    const uint64_t length = in.Short();
    in.Skip(version >= kR2007 ? 2 * length : length);
    return in.Short() == 1;
}

std::string RevHistoryBytes()
{
    std::string bytes;
    for (const uint32_t number : {0u, 0u, 1u, 0u})
        AppendLong(bytes, number);
    return bytes;
}

std::string EmptyPreviewBytes()
{
    std::string bytes = BeginMark(kPreviewMark);
    AppendLong(bytes, 1);
    bytes += '\0';
    return bytes + EndMark(kPreviewMark);
}

std::string AppInfoBytes()
{
    constexpr size_t kSumSize = 16;   // no sum is known for these texts
    std::string bytes;
    AppendLong(bytes, 3);
    AppendWide(bytes, "AppInfoDataList");
    AppendLong(bytes, 3);
    for (const char* text : {"1.0", "",
                             "<ProductInformation name=\"kxcad\" build_version=\"1.0\" registry_version=\"1.0\" "
                             "install_id_string=\"kxcad\" registry_localeID=\"1033\"/>"}) {
        bytes.append(kSumSize, '\0');
        AppendWide(bytes, text);
    }
    return bytes;
}

}   // namespace KxPlat
