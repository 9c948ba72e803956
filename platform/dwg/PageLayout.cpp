#include "PageLayout.h"
#include "Checksums.h"
#include "PageCoding.h"

namespace KxPlat {

namespace {

constexpr uint32_t kDataMask = 0x4164536B;

std::string WordsOf(const DataHead& head, uint32_t headSum, uint32_t mask)
{
    std::string bytes;
    for (const uint32_t word :
         {head.type, head.section, head.storedSize, head.pageSize, head.offset, head.zero, headSum, head.dataSum})
        AppendLong(bytes, word ^ mask);
    return bytes;
}

}   // namespace

void MaskFileHead(std::string& bytes)
{
    uint32_t random = 1;
    for (char& byte : bytes) {
        random = random * 0x343FD + 0x269EC3;
        byte = char(uint8_t(byte) ^ uint8_t(random >> 16));
    }
}

bool ReadFileHead(std::string_view hidden, FileHead& head, bool& isSumRight)
{
    std::string bytes(hidden.substr(0, kFileHeadSize));
    MaskFileHead(bytes);
    if (bytes.size() < kFileHeadSize || !bytes.starts_with(kFileId.substr(0, 11)))
        return false;
    ByteWalk in(bytes, 0x28);
    head.lastPage = in.Long();
    head.pagesEnd = in.Long64();
    head.copyAt = in.Long64();
    in.Skip(4);
    head.pageCount = in.Long();
    in.MoveTo(0x50);
    head.pageMapPage = in.Long();
    head.pageMapAt = in.Long64();
    head.sectionMapPage = in.Long();
    in.MoveTo(0x68);
    const uint32_t sum = in.Long();
    PutNumber(bytes, 0x68, 0, 4);
    isSumRight = sum == Crc32(bytes);
    return true;
}

std::string FileHeadBytes(const FileHead& head)
{
    std::string bytes(kFileId);
    for (const uint32_t word : {0u, uint32_t(kFileHeadSize), 4u, 0u, 0u, 0u, 1u, uint32_t(head.lastPage)})
        AppendLong(bytes, word);
    AppendLong64(bytes, head.pagesEnd);
    AppendLong64(bytes, head.copyAt);
    for (const uint32_t word : {0u, head.pageCount, 0x20u, 0x80u, 0x40u, head.pageMapPage})
        AppendLong(bytes, word);
    AppendLong64(bytes, head.pageMapAt);
    for (const uint32_t word : {head.sectionMapPage, uint32_t(head.lastPage), 0u, 0u})
        AppendLong(bytes, word);
    PutNumber(bytes, 0x68, Crc32(bytes), 4);
    MaskFileHead(bytes);
    return bytes;
}

DataHead ReadDataHead(std::string_view file, uint64_t address)
{
    ByteWalk in(file, address);
    const uint32_t mask = kDataMask ^ uint32_t(address);
    DataHead head;
    for (uint32_t* word : {&head.type, &head.section, &head.storedSize, &head.pageSize, &head.offset, &head.zero,
                           &head.headSum, &head.dataSum})
        *word = in.Long() ^ mask;
    return head;
}

uint32_t DataHeadSum(const DataHead& head)
{
    return PageSum(WordsOf(head, 0, 0), head.dataSum);
}

std::string DataHeadBytes(DataHead head, std::string_view stored, uint64_t address)
{
    head.dataSum = PageSum(stored);
    return WordsOf(head, DataHeadSum(head), kDataMask ^ uint32_t(address));
}

std::string SystemPageBytes(uint32_t type, std::string_view content)
{
    std::string coded;
    PageCoder().Encode(content, coded);
    std::string page;
    for (const uint64_t word :
         {uint64_t(type), uint64_t(content.size()), uint64_t(coded.size()), uint64_t(2), uint64_t(0)})
        AppendLong(page, word);
    PutNumber(page, 16, PageSum(coded, PageSum(page)), 4);
    return page + coded;
}

}   // namespace KxPlat
