#include "PeResource.h"
#include <cstdint>

namespace KxPlat {
namespace {

// Reads little-endian numbers; what lies outside the file is 0 and sets `damaged`.
class Reader {
public:
    explicit Reader(std::string_view bytes) : m_bytes(bytes) {}
    uint32_t Number(uint64_t at, int size)
    {
        if (at + static_cast<uint64_t>(size) > m_bytes.size()) {
            damaged = true;
            return 0;
        }
        uint32_t value = 0;
        for (int i = size - 1; i >= 0; --i)
            value = value << 8 | static_cast<unsigned char>(m_bytes[at + static_cast<uint64_t>(i)]);
        return value;
    }
    uint32_t Word(uint64_t at) { return Number(at, 2); }
    uint32_t Dword(uint64_t at) { return Number(at, 4); }
    std::string_view Part(uint64_t at, uint64_t size)
    {
        return at + size <= m_bytes.size() ? m_bytes.substr(at, size) : std::string_view();
    }
    bool damaged = false;

private:
    std::string_view m_bytes;
};

constexpr uint32_t kVersionType = 16;
constexpr uint32_t kSubfolder = 0x80000000;
constexpr uint32_t kNoOffset = 0xFFFFFFFF;

struct Sections {
    uint64_t table = 0;
    uint32_t count = 0;
};

// Where an address of the loaded program lies in the file, kNoOffset when in no section.
uint32_t FileOffset(Reader& file, const Sections& sections, uint32_t address)
{
    for (uint32_t i = 0; i < sections.count && !file.damaged; ++i) {
        const uint64_t row = sections.table + uint64_t(i) * 40;
        const uint32_t start = file.Dword(row + 12);
        const uint32_t size = file.Dword(row + 16);
        if (address >= start && address - start < size)
            return file.Dword(row + 20) + (address - start);
    }
    return kNoOffset;
}

// The entry of a resource folder with the number `id`, or its first one; 0 when there is none. Offsets count from
// `root`.
uint32_t EntryOf(Reader& file, uint64_t root, uint32_t folder, uint32_t id, bool any)
{
    const uint64_t at = root + folder;
    const uint32_t count = file.Word(at + 12) + file.Word(at + 14);
    for (uint32_t i = 0; i < count && !file.damaged; ++i) {
        const uint64_t row = at + 16 + uint64_t(i) * 8;
        if (any || file.Dword(row) == id)
            return file.Dword(row + 4);
    }
    return 0;
}

}   // namespace

std::string_view VersionResourceOf(std::string_view bytes)
{
    Reader file(bytes);
    const uint64_t header = file.Dword(0x3C);
    if (file.Word(0) != 0x5A4D || file.Dword(header) != 0x00004550)
        return {};
    const uint64_t optional = header + 24;
    const uint32_t magic = file.Word(optional);
    if (magic != 0x10B && magic != 0x20B)
        return {};
    const uint64_t directories = optional + (magic == 0x10B ? 96 : 112);
    if (file.Dword(directories - 4) < 3)
        return {};
    const Sections sections = {optional + file.Word(header + 20), file.Word(header + 6)};
    const uint32_t resources = file.Dword(directories + 16);
    const uint32_t root = resources != 0 ? FileOffset(file, sections, resources) : kNoOffset;
    if (root == kNoOffset)
        return {};
    // Three levels: type, name, language. Only the last one is no folder.
    const uint32_t type = EntryOf(file, root, 0, kVersionType, false);
    const uint32_t name = (type & kSubfolder) != 0 ? EntryOf(file, root, type & ~kSubfolder, 0, true) : 0;
    const uint32_t data = (name & kSubfolder) != 0 ? EntryOf(file, root, name & ~kSubfolder, 0, true) : 0;
    if (data == 0 || (data & kSubfolder) != 0 || file.damaged)
        return {};
    const uint32_t offset = FileOffset(file, sections, file.Dword(uint64_t(root) + data));
    const uint32_t size = file.Dword(uint64_t(root) + data + 4);
    return offset == kNoOffset || file.damaged ? std::string_view() : file.Part(offset, size);
}

}   // namespace KxPlat
