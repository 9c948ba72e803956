#include "../ElfVersion.h"
#include <cstring>
#include <elf.h>

namespace KxPlat {
namespace {

template <class Record>
bool ReadRecord(std::string_view file, uint64_t at, Record& record)
{
    if (at > file.size() || file.size() - at < sizeof record)
        return false;
    std::memcpy(&record, file.data() + at, sizeof record);
    return true;
}

std::string_view PartOf(std::string_view file, uint64_t at, uint64_t size)
{
    return at <= file.size() && size <= file.size() - at ? file.substr(at, size) : std::string_view();
}

}   // namespace

std::string_view OwnVersionTextOf(std::string_view file)
{
    Elf64_Ehdr head = {};
    if (!ReadRecord(file, 0, head) || std::memcmp(head.e_ident, ELFMAG, SELFMAG) != 0 ||
        head.e_ident[EI_CLASS] != ELFCLASS64)
        return {};
    Elf64_Shdr names = {};
    if (!ReadRecord(file, head.e_shoff + uint64_t(head.e_shstrndx) * sizeof names, names))
        return {};
    const std::string_view nameBytes = PartOf(file, names.sh_offset, names.sh_size);
    for (unsigned i = 0; i < head.e_shnum; ++i) {
        Elf64_Shdr section = {};
        if (!ReadRecord(file, head.e_shoff + uint64_t(i) * sizeof section, section) ||
            section.sh_name >= nameBytes.size())
            return {};
        const std::string_view name = nameBytes.substr(section.sh_name);
        if (name.substr(0, name.find('\0')) != ".kxversion")
            continue;
        const std::string_view text = PartOf(file, section.sh_offset, section.sh_size);
        return text.substr(0, text.find('\0'));
    }
    return {};
}

}   // namespace KxPlat
