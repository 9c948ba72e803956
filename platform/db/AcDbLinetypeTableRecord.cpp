#include "AcDbLinetypeTableRecord.h"
#include "AcDbDatabase.h"
#include "core/Fields.h"
#include "core/GroupListField.h"

using namespace KxPlat;

ACRX_DXF_DEFINE_MEMBERS(AcDbLinetypeTableRecord, AcDbSymbolTableRecord, 0, 0, 0, LTYPE, AcDb)
ACRX_CONS_DEFINE_MEMBERS(AcDbLinetypeTable, AcDbSymbolTable, 1)

const ClassSchema& AcDbLinetypeTableRecord::fieldSchema()
{
    using Linetype = AcDbLinetypeTableRecord;
    static const GroupListField<Linetype> pattern(&Linetype::m_pattern, {49, 74, 75, 340, 46, 50, 44, 45, 9});
    static const ClassSchema schema(
        &AcDbSymbolTableRecord::fieldSchema(), "LTYPE", "AcDbLinetypeTableRecord",
        {
            Text(2, &Linetype::m_name).always(),
            Int16(70, &Linetype::m_flags).always(),
            Text(3, &Linetype::m_comments).always(),
            Int16(72, &Linetype::m_alignment, 65).always(),
            Count(73, [](const AcDbObject& o) { return static_cast<const Linetype&>(o).numDashes(); }),
            Real(40, &Linetype::m_length).always(),
            List(&pattern),
        });
    return schema;
}

const ClassSchema& AcDbLinetypeTable::fieldSchema()
{
    static const ClassSchema schema(&AcDbSymbolTable::fieldSchema(), "TABLE", nullptr, {});
    return schema;
}

ACHAR* AcDbLinetypeTableRecord::comments() const
{
    ACHAR* text = nullptr;
    acutNewString(m_comments, text);
    return text;
}

Acad::ErrorStatus AcDbLinetypeTableRecord::comments(ACHAR*& text) const
{
    text = comments();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLinetypeTableRecord::setComments(const ACHAR* text)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status == Acad::eOk)
        m_comments = text;
    return status;
}

Acad::ErrorStatus AcDbLinetypeTableRecord::setPatternLength(double length)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status == Acad::eOk)
        m_length = length;
    return status;
}

int AcDbLinetypeTableRecord::numDashes() const
{
    int count = 0;
    for (const GroupValue& group : m_pattern)
        count += group.code == 49;
    return count;
}

GroupValue* AcDbLinetypeTableRecord::dash(int index)
{
    for (GroupValue& group : m_pattern)
        if (group.code == 49 && index-- == 0)
            return &group;
    return nullptr;
}

// A simple pattern of `count` dots; setDashLengthAt gives them their lengths.
Acad::ErrorStatus AcDbLinetypeTableRecord::setNumDashes(int count)
{
    if (count < 0 || count > 12)
        return Acad::eInvalidInput;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    m_pattern.clear();
    for (int i = 0; i < count; ++i) {
        m_pattern.push_back({49, 0, false, 0.0});
        m_pattern.push_back({74, 0, false, int64_t(0)});
    }
    return Acad::eOk;
}

double AcDbLinetypeTableRecord::dashLengthAt(int index) const
{
    const GroupValue* found = const_cast<AcDbLinetypeTableRecord*>(this)->dash(index);
    return found == nullptr ? 0 : found->real();
}

Acad::ErrorStatus AcDbLinetypeTableRecord::setDashLengthAt(int index, double length)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    GroupValue* found = dash(index);
    if (found == nullptr)
        return Acad::eInvalidIndex;
    found->value = length;
    return Acad::eOk;
}

// ByBlock, ByLayer and Continuous belong to every drawing.
bool AcDbLinetypeTableRecord::isErasable() const
{
    return m_name.CompareNoCase(L"ByBlock") != 0 && m_name.CompareNoCase(L"ByLayer") != 0 &&
           m_name.CompareNoCase(L"Continuous") != 0;
}
