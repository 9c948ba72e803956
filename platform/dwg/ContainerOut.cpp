#include "ContainerOut.h"
#include "ByteWalk.h"
#include "Container.h"
#include "DwgVersion.h"
#include "Sentinels.h"

namespace KxPlat {

std::unique_ptr<ContainerWriter> NewContainerWriter(AtomicFile& file, const DwgSections& kind)
{
    return kind.version < kR2004 ? NewFlatWriter(file, kind) : NewPageWriter(file, kind);
}

std::string FirstBytes(const DwgSections& kind, uint64_t previewAddress)
{
    std::string bytes(NameOfDwgVersion(kind.version));
    bytes.append(5, '\0');
    bytes += char(kind.maintenance);
    bytes += char(kind.version < kR2004 ? 1 : 3);
    AppendLong(bytes, previewAddress);
    bytes += char(kind.program);
    bytes += char(kind.programMaintenance);
    AppendShort(bytes, uint64_t(kind.codePage));
    return bytes;
}

std::string MovedPreview(std::string_view preview, int64_t by)
{
    constexpr size_t kCountAt = sizeof(Sentinel) + 4, kRowSize = 9;
    std::string moved(preview);
    if (preview.size() <= kCountAt)
        return moved;
    const size_t count = uint8_t(preview[kCountAt]);
    for (size_t i = 0; i < count && kCountAt + 1 + (i + 1) * kRowSize <= preview.size(); ++i) {
        const size_t at = kCountAt + 1 + i * kRowSize + 1;
        PutNumber(moved, at, uint64_t(int64_t(ByteWalk(preview, at).Long()) + by), 4);
    }
    return moved;
}

}   // namespace KxPlat
