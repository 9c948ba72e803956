// Any bytes: the reader opens them or refuses, and what it opens can be saved in both versions and opened again.
#include "db/AcDbDatabase.h"
#include "FuzzFile.h"
#include "win/CodePage.h"

namespace {

bool Opens(AcDbDatabase& database, const std::string& path)
{
    return database.readDwgFile(KxPlat::FromUtf8(path).c_str()) == Acad::eOk;
}

}   // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const KxFuzz::File input("in.dwg");
    static const KxFuzz::File output("out.dwg");
    input.Write(data, size);
    AcDbDatabase first(false);
    if (!Opens(first, input.path()))
        return 0;
    for (const AcDb::AcDbDwgVersion version : {AcDb::kDHL_1015, AcDb::kDHL_1024}) {
        KxFuzz::Require(first.saveAs(KxPlat::FromUtf8(output.path()).c_str(), false, version) == Acad::eOk,
                        "an open drawing is saved");
        AcDbDatabase second(false);
        KxFuzz::Require(Opens(second, output.path()), "a saved drawing opens");
    }
    return 0;
}
