// A DWG file taken apart: what its first bytes say, and the bytes of each of its sections, whatever container held
// them.
#pragma once
#include "../db/AcDb.h"
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace KxPlat {

// Either a part of the mapped file or bytes of its own; copies share them.
class DwgSection {
public:
    DwgSection(std::string_view name, std::string_view partOfFile) : m_name(name), m_bytes(partOfFile) {}
    DwgSection(std::string_view name, std::string&& own)
        : m_name(name), m_own(std::make_shared<const std::string>(std::move(own))), m_bytes(*m_own)
    {
    }
    const std::string& name() const { return m_name; }
    std::string_view bytes() const { return m_bytes; }

private:
    std::string m_name;
    std::shared_ptr<const std::string> m_own;
    std::string_view m_bytes;
};

// Names of sections; the flat container of AC1015 and before has no names, its parts go by the same ones.
inline constexpr std::string_view kHeaderSection = "AcDb:Header";
inline constexpr std::string_view kAuxHeaderSection = "AcDb:AuxHeader";
inline constexpr std::string_view kClassesSection = "AcDb:Classes";
inline constexpr std::string_view kHandlesSection = "AcDb:Handles";
inline constexpr std::string_view kTemplateSection = "AcDb:Template";
inline constexpr std::string_view kFreeSpaceSection = "AcDb:ObjFreeSpace";
// In a flat container the whole file, since the object map counts from its first byte.
inline constexpr std::string_view kObjectsSection = "AcDb:AcDbObjects";
inline constexpr std::string_view kRevHistorySection = "AcDb:RevHistory";
inline constexpr std::string_view kSummarySection = "AcDb:SummaryInfo";
inline constexpr std::string_view kPreviewSection = "AcDb:Preview";
inline constexpr std::string_view kAppInfoSection = "AcDb:AppInfo";
inline constexpr std::string_view kAppHistorySection = "AcDb:AppInfoHistory";
inline constexpr std::string_view kFileListSection = "AcDb:FileDepList";
inline constexpr std::string_view kPrototypeSection = "AcDb:AcDsPrototype_1b";

// What stands before the first object.
inline constexpr uint32_t kObjectsMark = 0x0DCA;

struct DwgSections {
    AcDb::AcDbDwgVersion version = AcDb::kDHL_CURRENT;
    uint8_t maintenance = 0;          // byte 0x0B
    uint8_t program = 0;              // byte 0x11: version of the program that wrote the file
    uint8_t programMaintenance = 0;   // byte 0x12
    int codePage = 30;                // as numbered in DWG files, see DwgCodePages.h
    std::vector<DwgSection> all;

    const DwgSection* Find(std::string_view name) const
    {
        for (const DwgSection& section : all)
            if (section.name() == name)
                return &section;
        return nullptr;
    }
    // Empty when there is no such section.
    std::string_view BytesOf(std::string_view name) const
    {
        const DwgSection* section = Find(name);
        return section == nullptr ? std::string_view() : section->bytes();
    }
};

// One class that the file declares. Objects of type 500 and above are numbered by it.
struct DwgClass {
    int number = 0;   // 500 and up, gaps are legal
    int proxyFlags = 0;
    std::wstring application, className, dxfName;
    bool wasProxy = false;
    bool isEntity = false;
    uint32_t instances = 0, version = 0, maintenance = 0;   // from AC1018 on
};

// The object map: where each object begins within the objects section.
struct ObjectPlace {
    uint64_t handle = 0;
    uint64_t address = 0;
};

// Where the encoded objects of a drawing go, one after the other as the file will have them.
class ObjectSink {
public:
    virtual ~ObjectSink() = default;
    // A whole frame: size, body, checksum.
    virtual void Add(uint64_t handle, std::string_view frame) = 0;
};

}   // namespace KxPlat
