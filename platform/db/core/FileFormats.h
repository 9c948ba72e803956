// The drawing files that can be read and written. Formats enter themselves; the database knows them only from here.
#pragma once
#include "../../rx/acadstrc.h"
#include "../AcDb.h"
#include <string>
#include <string_view>

class AcDbDatabase;

namespace KxPlat {

struct ReadReport {
    std::wstring error;     // "line 120, group 40: not a number: abc"; set when reading failed
    uint64_t repairs = 0;   // faults that were mended
    std::wstring firstRepair;
};

struct FileFormat {
    const wchar_t* extension;   // ".dxf"
    // Fills an empty database (no default drawing). On failure the database may hold a part of the file.
    Acad::ErrorStatus (*read)(AcDbDatabase& database, const wchar_t* path, ReadReport& report);
    // The file at `path` is whole before and after, whatever happens. `precision`: decimals, or 16 and more for exact.
    Acad::ErrorStatus (*write)(AcDbDatabase& database, const wchar_t* path, AcDb::AcDbDwgVersion version, bool isBinary,
                               int precision);
};

void AddFileFormat(const FileFormat& format);
// By the extension of `path`, without regard to case; null when nobody knows it.
const FileFormat* FormatOf(std::wstring_view path);

// What the last reading in this process had to say.
ReadReport& LastReadReport();

}   // namespace KxPlat
