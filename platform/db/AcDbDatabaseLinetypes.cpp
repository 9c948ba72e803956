// Linetype definition files: "*NAME,description", then "A,dash,gap,..." in the next line; ";;" begins a comment.
#include "../win/CharTables.h"
#include "../win/CodePage.h"
#include "../win/Files.h"
#include "AcDbDatabase.h"
#include "AcDbLinetypeTableRecord.h"
#include "core/DbCore.h"
#include "core/DefaultDrawing.h"
#include "core/Wildcard.h"
#include <cmath>
#include <sstream>

using namespace KxPlat;

namespace {

struct Definition {
    CString name;
    CString comments;
    std::vector<double> dashes;
};

std::vector<Definition> Parse(const std::wstring& text)
{
    std::vector<Definition> all;
    std::wistringstream lines(text);
    for (std::wstring line; std::getline(lines, line);) {
        while (!line.empty() && IsSpace(line.back()))
            line.pop_back();
        if (line.empty() || line[0] == L';')
            continue;
        if (line[0] == L'*') {
            const size_t comma = line.find(L',');
            Definition definition;
            definition.name = CString(line.substr(1, comma == std::wstring::npos ? comma : comma - 1).c_str()).Trim();
            definition.comments =
                comma == std::wstring::npos ? CString() : CString(line.substr(comma + 1).c_str()).Trim();
            all.push_back(definition);
        } else if (!all.empty() && (line[0] == L'A' || line[0] == L'a')) {
            // Texts and shapes in brackets are left out: the dashes around them stay.
            std::wistringstream parts(line.substr(1));
            bool isInBrackets = false;
            for (std::wstring part; std::getline(parts, part, L',');) {
                isInBrackets = isInBrackets || part.find(L'[') != std::wstring::npos;
                wchar_t* end = nullptr;
                const double dash = std::wcstod(part.c_str(), &end);
                if (!isInBrackets && end != part.c_str() && std::isfinite(dash) && all.back().dashes.size() < 12)
                    all.back().dashes.push_back(dash);
                if (part.find(L']') != std::wstring::npos)
                    isInBrackets = false;
            }
        }
    }
    return all;
}

void AddLinetype(DbCore& core, const Definition& definition)
{
    AcDbLinetypeTableRecord* record = new AcDbLinetypeTableRecord;
    record->takeName(definition.name);
    record->setComments(definition.comments);
    record->setNumDashes(int(definition.dashes.size()));
    double length = 0;
    for (size_t i = 0; i < definition.dashes.size(); ++i) {
        record->setDashLengthAt(int(i), definition.dashes[i]);
        length += std::abs(definition.dashes[i]);
    }
    record->setPatternLength(length);
    AcDbSymbolTable* table = core.Table(TableKind::Linetype);
    const AcDbObjectId id = core.Adopt(record, 0, table->objectId(), true);
    table->attach(id);
    record->close();
}

}   // namespace

Acad::ErrorStatus AcDbDatabase::loadLineTypeFile(const ACHAR* linetypeName, const ACHAR* fileName)
{
    if (linetypeName == nullptr || fileName == nullptr)
        return Acad::eInvalidInput;
    ACHAR path[1024];
    if (acdbHostApplicationServices()->findFile(path, 1024, fileName, this) != Acad::eOk)
        return Acad::eFileNotFound;
    int error = 0;
    const std::string bytes = ReadWholeFile(HostPath(path), error);
    if (error != 0)
        return Acad::eFileAccessErr;
    const std::wstring text = IsUtf8(bytes) ? FromUtf8(bytes) : Decode(AnsiCodePage(), bytes);
    Acad::ErrorStatus status = Acad::eUndefinedLineType;
    for (const Definition& definition : Parse(text)) {
        const std::wstring_view name(definition.name, size_t(definition.name.GetLength()));
        if (!WildcardMatch(name, linetypeName))
            continue;
        const bool isThere = m_core->Table(TableKind::Linetype)->find(name) != nullptr;
        if (!isThere)
            AddLinetype(*m_core, definition);
        if (status != Acad::eOk)
            status = isThere ? Acad::eDuplicateRecordName : Acad::eOk;
    }
    return status;
}
