#include "ObjectScan.h"
#include "BitReader.h"
#include "Checksums.h"
#include "DwgVersion.h"
#include <map>

namespace KxPlat {

namespace {

constexpr size_t kSmallest = 5;   // bytes of a body
constexpr size_t kLargest = size_t(1) << 26;
constexpr int kMostType = 500 + 2000;
// Bytes that searching may put through the checksum: a file of noise ends the search, not the user's patience.
constexpr uint64_t kMostWork = uint64_t(1) << 27;

constexpr int kDictionaryType = 42;

struct TableTypeRow {
    int type;
    TableKind kind;
};
constexpr TableTypeRow kTableTypes[] = {
    {48, TableKind::Block},    {50, TableKind::Layer},  {52, TableKind::TextStyle},
    {56, TableKind::Linetype}, {60, TableKind::View},   {62, TableKind::Ucs},
    {64, TableKind::Viewport}, {66, TableKind::RegApp}, {68, TableKind::DimStyle},
};

}   // namespace

bool ScanObjectAt(std::string_view objects, uint64_t address, AcDb::AcDbDwgVersion version, bool checkSum,
                  ScannedObject& object)
{
    if (address >= objects.size() || objects.size() - address < kSmallest)
        return false;
    const std::string_view frame = objects.substr(address);
    BitReader in(frame);
    const uint64_t size = in.MS();
    const uint64_t references = version >= kR2010 ? in.UnsignedMC() : 0;
    const uint64_t body = in.Position() / 8;
    if (in.isBroken() || size < kSmallest || size > kLargest || body + size + 2 > frame.size() || references > size * 8)
        return false;
    object.type = version >= kR2010 ? in.OT() : in.BS();
    if (version >= kR2000 && version < kR2010 && in.RL() > size * 8)
        return false;
    const HandleRef handle = in.H();
    if (in.isBroken() || handle.code != 0 || handle.value == 0 || object.type <= 0 || object.type > kMostType)
        return false;
    object.handle = handle.value;
    object.address = address;
    object.size = body + size + 2;
    return !checkSum || BitReader(frame.substr(body + size)).RS() == Crc16(frame.substr(0, body + size));
}

void AddLostObjects(std::string_view objects, AcDb::AcDbDwgVersion version, std::vector<ObjectPlace>& places)
{
    std::map<uint64_t, uint64_t> addresses;
    ScannedObject object;
    for (const ObjectPlace& place : places)
        if (ScanObjectAt(objects, place.address, version, false, object) && object.handle == place.handle)
            addresses.emplace(place.handle, place.address);
    uint64_t work = 0;
    for (uint64_t at = 0; at < objects.size() && work < kMostWork;) {
        if (!ScanObjectAt(objects, at, version, false, object)) {
            ++at;
            continue;
        }
        work += object.size;
        if (!ScanObjectAt(objects, at, version, true, object)) {
            ++at;
            continue;
        }
        addresses.emplace(object.handle, at);
        at += object.size;
    }
    places.clear();
    for (const auto& [handle, address] : addresses)
        places.push_back({handle, address});
}

void FindRoots(std::string_view objects, AcDb::AcDbDwgVersion version, const std::vector<ObjectPlace>& places,
               DwgRoots& roots)
{
    const auto fill = [](uint64_t& root, uint64_t handle) { root = root == 0 ? handle : root; };
    ScannedObject object;
    for (const ObjectPlace& place : places) {
        if (!ScanObjectAt(objects, place.address, version, false, object))
            continue;
        if (object.type == kDictionaryType)   // the root of all is older than what it holds
            fill(roots.namedObjects, place.handle);
        for (const TableTypeRow& row : kTableTypes)
            if (row.type == object.type)
                fill(roots.tables[size_t(row.kind)], place.handle);
    }
}

}   // namespace KxPlat
