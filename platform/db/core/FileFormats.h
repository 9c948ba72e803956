// The drawing files that can be read and written. Formats enter themselves; the database knows them only from here.
#pragma once
#include "../../rx/acadstrc.h"
#include "../AcDb.h"
#include <string>
#include <string_view>
#include <vector>

class AcDbDatabase;

namespace KxPlat {

struct ReadReport {
    std::wstring error;     // "line 120, group 40: not a number: abc"; set when reading failed
    uint64_t repairs = 0;   // faults that were mended
    uint64_t lost = 0;      // objects among them that could not be read
    std::wstring firstRepair;
    std::vector<std::wstring> lines;   // the first of the faults, in words
};

struct WriteReport {
    uint64_t dropped = 0;   // objects that the file's version cannot hold
};

struct FileFormat {
    const wchar_t* extension;   // ".dxf"
    // Fills an empty database (no default drawing). On failure the database may hold a part of the file.
    Acad::ErrorStatus (*read)(AcDbDatabase& database, const wchar_t* path, ReadReport& report);
    // The file at `path` is whole before and after, whatever happens. `precision`: decimals, or 16 and more for exact.
    Acad::ErrorStatus (*write)(AcDbDatabase& database, const wchar_t* path, AcDb::AcDbDwgVersion version, bool isBinary,
                               int precision);
    // By the first bytes of a file, of which there may be fewer than the format's mark has.
    bool (*isOf)(std::string_view firstBytes);
    // The version that a file gets when this one is asked for.
    AcDb::AcDbDwgVersion (*written)(AcDb::AcDbDwgVersion wanted);
};

void AddFileFormat(const FileFormat& format);
// By the extension of `path`, without regard to case; null when nobody knows it.
const FileFormat* FormatOf(std::wstring_view path);

// By what the file holds, whatever its name; where that tells nothing, by the extension.
const FileFormat* FormatOfFile(std::wstring_view path);

// What the last reading in this process had to say.
ReadReport& LastReadReport();
WriteReport& LastWriteReport();

}   // namespace KxPlat
