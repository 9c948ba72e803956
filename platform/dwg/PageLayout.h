// The page container: numbers and small codings that its reader and its writer share.
#pragma once
#include "ByteWalk.h"
#include <cstdint>
#include <string>
#include <string_view>

namespace KxPlat {

inline constexpr uint32_t kPageMapType = 0x41630E3B;
inline constexpr uint32_t kSectionMapType = 0x4163003B;
inline constexpr uint32_t kDataPageType = 0x4163043B;
inline constexpr uint64_t kFirstPageAt = 0x100;
inline constexpr uint64_t kPageStep = 0x20;   // addresses and sizes of pages are multiples of it
inline constexpr size_t kSystemHeadSize = 20;
inline constexpr size_t kDataHeadSize = 32;
inline constexpr uint32_t kUsualPageSize = 0x7400;
inline constexpr std::string_view kFileId("AcFssFcAJMB\0", 12);

// The header behind the file's first bytes, and again at the end of the file.
inline constexpr uint64_t kFileHeadAt = 0x80;
inline constexpr size_t kFileHeadSize = 0x6C;

struct FileHead {
    uint64_t lastPage = 0;         // highest page number
    uint64_t pagesEnd = 0;         // address behind the last page, less kFirstPageAt
    uint64_t copyAt = 0;           // address of the copy of this header
    uint32_t pageCount = 0;        // without gaps
    uint32_t pageMapPage = 0;      // number of the page
    uint64_t pageMapAt = 0;        // address of the page, less kFirstPageAt
    uint32_t sectionMapPage = 0;   // number of the page
};

// Hides and shows the header: the same both ways.
void MaskFileHead(std::string& bytes);
// False when these are not the hidden bytes of a header. A wrong checksum is told apart.
bool ReadFileHead(std::string_view hidden, FileHead& head, bool& isSumRight);
std::string FileHeadBytes(const FileHead& head);

// The eight words before a data page, hidden by the page's address.
struct DataHead {
    uint32_t type = kDataPageType;
    uint32_t section = 0;      // id
    uint32_t storedSize = 0;   // of the coded data
    uint32_t pageSize = 0;     // in the file, with this header
    uint32_t offset = 0;       // in the section
    uint32_t zero = 0;
    uint32_t headSum = 0, dataSum = 0;
};
DataHead ReadDataHead(std::string_view file, uint64_t address);
std::string DataHeadBytes(DataHead head, std::string_view stored, uint64_t address);
uint32_t DataHeadSum(const DataHead& head);

std::string SystemPageBytes(uint32_t type, std::string_view content);

}   // namespace KxPlat
