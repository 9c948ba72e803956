// The inside of one database: its objects by handle, its header variables, its tables, its undo record, and what must
// be remembered of the file that it came from.
#pragma once
#include "../../mfc/CString.h"
#include "Fields.h"
#include "HandleTable.h"
#include "HeaderVars.h"
#include "NameIndex.h"
#include "Shape.h"
#include "UndoLog.h"
#include <string>
#include <vector>

class AcDbSymbolTable;
class AcDbSymbolTableRecord;

namespace KxPlat {

// One 0-started record of a section that holds no objects (CLASSES, ACDSDATA), or a whole unknown section.
struct LooseRecord {
    CString name;   // value of the 0 group
    GroupList groups;
};

struct LooseSection {
    std::string name;   // "ACDSDATA", "THUMBNAILIMAGE", ...
    GroupList head;     // groups before the first 0 group
    std::vector<LooseRecord> records;
};

// A group that says the same as the database in other words: a name in another case, a text with needless escapes, an
// owner that is not the real one.
struct KeptSpelling {
    const AcDbStub* object;   // null: in no object
    int16_t code;
    CString text;      // what the group means, or what stood where a handle should
    CString bytes;     // as the file spells it, a character for each byte; empty: as `text`
    AcDbStub* owner;   // for code 330
};

// A section of a file that says nothing of its objects (a preview, summary information), byte by byte.
struct KeptBytes {
    std::string name;
    Bytes bytes;
};

// The file that a drawing was read from, as far as writing it back needs it.
struct FileForm {
    AcDb::AcDbDwgVersion version = AcDb::kDHL_1024;
    bool isDxf = false;
    bool isBinary = false;
    bool hasHandles = true;   // R12 files may go without
    bool hasCrLf = true;
    bool isPadded = true;                    // group codes right-aligned
    CString codePage = L"ANSI_1252";         // $DWGCODEPAGE, or what stands for it
    int codePageNumber = 1252;               // of the texts' bytes; 65001 from AC1021 on
    std::vector<std::string> comments;       // 999 groups before the first section
    std::vector<std::string> sectionOrder;   // names of the sections that the file had
    std::vector<std::string> tableOrder;     // "VPORT", "LTYPE", ...
    std::vector<LooseRecord> classes;
    std::vector<int> classNumbers;        // of a DWG file, beside `classes`
    std::vector<LooseSection> sections;   // everything besides the known six
    std::vector<KeptBytes> dwgSections;   // of a DWG file, everything that is not made anew when it is saved
    // Handles given after reading: from the first on to objects that came without one and stay so in files of the same
    // form, from the second on to what the file left out altogether. The third is the first free one.
    uint64_t numberedFrom = 0, impliedFrom = 0, impliedTo = 0;
    std::vector<AcDbStub*> objectOrder;    // of the OBJECTS section
    std::vector<KeptSpelling> spellings;   // sorted by object
    uint64_t repairs = 0;                  // faults that reading mended
};

constexpr size_t kTableCount = size_t(TableKind::Count);

struct DbCore {
    explicit DbCore(AcDbDatabase* owner) : database(owner), handles(owner) {}
    ~DbCore();
    DbCore(const DbCore&) = delete;

    AcDbDatabase* database;
    HandleTable handles;
    ShapeTable shapes;
    HeaderVars header;
    UndoLog undo;
    FileForm form;
    AcDbStub* tables[kTableCount] = {};
    AcDbStub* namedObjects = nullptr;
    AcDbStub* modelSpace = nullptr;
    AcDbStub* currentSpace = nullptr;
    CString fileName;               // in drive form; empty for a drawing never saved
    int modified = 0;               // DBMOD bits
    bool hasLockedLayers = false;   // some layer was locked at some time; false spares every opening for write a look

    // Gives the object a handle (the next free one for 0, or when the wanted one is taken) and makes it resident.
    // The object stays open for write when `isOpen`.
    AcDbObjectId Adopt(AcDbObject* object, uint64_t handle, AcDbStub* owner, bool isOpen);
    AcDbSymbolTable* Table(TableKind kind) const;
    // The record that a name group means: of the table, or a placeholder outside it that carries the name.
    AcDbStub* RecordNamed(TableKind kind, const CString& name);
    // A record joined its table: what referred to its name before now means it. Nobody may hold the record's own stub
    // yet, save by handle.
    void ResolvePlaceholder(TableKind kind, AcDbSymbolTableRecord* record);
    // Records that names mention and no table defines; they are written nowhere, but their names are.
    NameIndex placeholderIndex[kTableCount];
};

DbCore& CoreOf(const AcDbDatabase& database);

}   // namespace KxPlat
