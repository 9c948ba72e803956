#include "../CodeTable.h"
#include <iconv.h>
#include <string>

namespace KxPlat {
namespace {

// Where the system's name of a code page is not "CP" and its number.
struct NameRow {
    unsigned codePage;
    const char* name;
};
const NameRow kNames[] = {
    {936, "GBK"},          {949, "UHC"},           {950, "CP950"},        {1361, "JOHAB"},       {10000, "MACINTOSH"},
    {20127, "US-ASCII"},   {20866, "KOI8-R"},      {28591, "ISO-8859-1"}, {28592, "ISO-8859-2"}, {28593, "ISO-8859-3"},
    {28594, "ISO-8859-4"}, {28595, "ISO-8859-5"},  {28596, "ISO-8859-6"}, {28597, "ISO-8859-7"}, {28598, "ISO-8859-8"},
    {28599, "ISO-8859-9"}, {28605, "ISO-8859-15"},
};

std::string SystemName(unsigned codePage)
{
    for (const NameRow& row : kNames) {
        if (row.codePage == codePage)
            return row.name;
    }
    return "CP" + std::to_string(codePage);
}

class Converter {
public:
    explicit Converter(const std::string& name) : m_handle(iconv_open("UCS-4LE", name.c_str())) {}
    ~Converter()
    {
        if (ok())
            iconv_close(m_handle);
    }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;
    bool ok() const { return m_handle != iconv_t(-1); }

    // The one character that `length` bytes stand for, or kNoChar.
    uint16_t Char(unsigned char first, unsigned char second, size_t length)
    {
        char bytes[2] = {static_cast<char>(first), static_cast<char>(second)};
        uint32_t out[4] = {};
        char* from = bytes;
        char* to = reinterpret_cast<char*>(out);
        size_t fromLeft = length;
        size_t toLeft = sizeof out;
        iconv(m_handle, nullptr, nullptr, nullptr, nullptr);
        if (iconv(m_handle, &from, &fromLeft, &to, &toLeft) != 0 || fromLeft != 0)
            return kNoChar;
        // Some pages hold a character back until they know that no accent follows.
        if (iconv(m_handle, nullptr, nullptr, &to, &toLeft) != 0 || toLeft != sizeof out - 4 || out[0] >= 0xFFFF)
            return kNoChar;
        return static_cast<uint16_t>(out[0]);
    }

private:
    iconv_t m_handle;
};

}   // namespace

bool FillFromSystem(CodeTable& table)
{
    Converter converter(SystemName(table.codePage));
    if (!converter.ok())
        return false;
    for (unsigned byte = 0; byte < 256; ++byte) {
        if (!table.lead[byte])
            table.single[byte] = converter.Char(static_cast<unsigned char>(byte), 0, 1);
        else
            table.single[byte] = kNoChar;
    }
    for (unsigned bytes = 0; bytes < table.pairs.size(); ++bytes) {
        const auto lead = static_cast<unsigned char>(bytes >> 8);
        const auto trail = static_cast<unsigned char>(bytes & 0xFF);
        if (table.lead[lead] && trail >= 0x31)
            table.pairs[bytes] = converter.Char(lead, trail, 2);
    }
    // Texts of every kind hold plain ASCII; a page that differs there (20127 aside) is no page of drawings.
    for (unsigned byte = 0; byte < 0x80; ++byte)
        table.single[byte] = static_cast<uint16_t>(byte);
    return true;
}

}   // namespace KxPlat
