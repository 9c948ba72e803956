#include "ObjectMap.h"
#include "BitWriter.h"
#include "ByteWalk.h"
#include "Checksums.h"
#include <algorithm>

namespace KxPlat {

namespace {

constexpr size_t kPageSize = 2032;
constexpr size_t kLongestPair = 20;   // bytes
constexpr uint64_t kMostHandle = uint64_t(1) << 56;

bool IsBefore(const ObjectPlace& a, const ObjectPlace& b)
{
    return a.handle < b.handle;
}

// False where the page ends within a pair; what came before stays.
bool ReadPage(std::string_view page, std::vector<ObjectPlace>& places)
{
    BitReader in(page);
    ObjectPlace place;
    while (in.Left() >= 16) {
        place.handle += in.UnsignedMC();
        place.address += uint64_t(in.MC());
        if (in.isBroken() || place.handle >= kMostHandle)
            return false;
        places.push_back(place);
    }
    return in.Left() == 0;
}

void ClosePage(BitWriter& pairs, std::string& out)
{
    std::string page;
    AppendBigShort(page, unsigned(pairs.bytes().size() + 2));
    page += pairs.bytes();
    AppendBigShort(page, Crc16(page));
    out += page;
    pairs.Clear();
}

}   // namespace

std::vector<ObjectPlace> ReadObjectMap(std::string_view section, DwgReport& report)
{
    constexpr size_t kUsualPair = 3;   // bytes
    std::vector<ObjectPlace> places;
    places.reserve(section.size() / kUsualPair);
    ByteWalk in(section);
    for (;;) {
        const uint64_t start = in.at();
        const unsigned size = in.BigShort();
        if (in.isBroken() || size < 2 || in.left() < size) {
            report.Mend("the object map ends before its end");
            break;
        }
        const std::string_view page = in.Take(size - 2);
        const bool isWhole = in.BigShort() == Crc16(section.substr(start, size));
        if (!isWhole)
            report.Mend("page " + std::to_string(start) + " of the object map has a wrong checksum");
        if (page.empty())
            break;
        if (!ReadPage(page, places) && isWhole)
            report.Mend("page " + std::to_string(start) + " of the object map ends within a number");
    }
    if (!std::is_sorted(places.begin(), places.end(), IsBefore))
        std::stable_sort(places.begin(), places.end(), IsBefore);
    const auto isSame = [](const ObjectPlace& a, const ObjectPlace& b) { return a.handle == b.handle; };
    places.erase(std::unique(places.begin(), places.end(), isSame), places.end());
    return places;
}

std::string WriteObjectMap(std::vector<ObjectPlace>& places)
{
    if (!std::is_sorted(places.begin(), places.end(), IsBefore))
        std::sort(places.begin(), places.end(), IsBefore);
    std::string map;
    BitWriter pairs;
    ObjectPlace last;
    for (const ObjectPlace& place : places) {
        if (pairs.bytes().size() + 2 + kLongestPair > kPageSize) {
            ClosePage(pairs, map);
            last = ObjectPlace();
        }
        pairs.UnsignedMC(place.handle - last.handle);
        pairs.MC(int64_t(place.address - last.address));
        last = place;
    }
    if (!places.empty())
        ClosePage(pairs, map);
    ClosePage(pairs, map);
    return map;
}

}   // namespace KxPlat
