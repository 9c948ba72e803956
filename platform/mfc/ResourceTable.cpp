#include "ResourceTable.h"
#include "../win/Modules.h"
#include "ByteReader.h"

namespace KxPlat {

std::string_view FindResourceIn(std::string_view table, const wchar_t* name, const wchar_t* type)
{
    while (table.size() >= 32) {
        ByteReader sizes(table);
        const size_t dataSize = sizes.U32();
        const size_t headSize = sizes.U32();
        if (headSize < 32 || headSize > table.size() || dataSize > table.size() - headSize)
            return {};
        ByteReader head(table.substr(8, headSize - 8));
        const OrdinalOrName entryType = head.Name();
        const OrdinalOrName entryName = head.Name();
        if (!head.Failed() && entryType.Is(type) && entryName.Is(name))
            return table.substr(headSize, dataSize);
        const size_t whole = (headSize + dataSize + 3) / 4 * 4;
        table.remove_prefix(whole < table.size() ? whole : table.size());
    }
    return {};
}

std::string_view FindResourceBytes(HINSTANCE module, const wchar_t* name, const wchar_t* type)
{
    const FARPROC symbol = GetProcAddress(module, kResourceSymbol);
    if (symbol == nullptr)
        return {};
    const char* bytes = reinterpret_cast<const char*>(symbol);
    const size_t size = ByteReader({bytes, 4}).U32();
    return FindResourceIn({bytes + 4, size}, name, type);
}

}   // namespace KxPlat
