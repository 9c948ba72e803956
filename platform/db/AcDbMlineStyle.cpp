#include "AcDbMlineStyle.h"
#include "../ge/EntityAxes.h"
#include "core/Fields.h"
#include "core/GroupListField.h"
#include "core/Members.h"
#include "core/StoredColor.h"
#include <algorithm>

using namespace KxPlat;

ACRX_DXF_DEFINE_MEMBERS(AcDbMlineStyle, AcDbObject, 0, 0, 0, MLINESTYLE, AcDb)

namespace {

class Elements : public GroupListField<AcDbMlineStyle> {
public:
    using GroupListField::GroupListField;
    bool Starts(int code) const override { return code == 49; }
};

}   // namespace

const ClassSchema& AcDbMlineStyle::fieldSchema()
{
    using Style = AcDbMlineStyle;
    static const Elements elements(&Style::m_elements, {49, 62, 420, 6});
    static const ClassSchema schema(
        &AcDbObject::fieldSchema(), "MLINESTYLE", "AcDbMlineStyle",
        {
            Text(2, &Style::m_name).always(),
            Int16(70, &Style::m_flags).always(),
            Text(3, &Style::m_description).always(),
            Int16(62, &Style::m_fillColor, 256).always(),
            Int32(420, &Style::m_fillTrueColor, kNoTrueColor),
            Real(51, &Style::m_startAngle, 90).always(),
            Real(52, &Style::m_endAngle, 90).always(),
            Count(71, [](const AcDbObject& o) { return static_cast<const Style&>(o).numElements(); }),
            List(&elements),
        });
    return schema;
}

Acad::ErrorStatus AcDbMlineStyle::setName(const ACHAR* name)
{
    return name == nullptr || *name == 0 ? Acad::eInvalidInput : Assign(*this, m_name, name);
}

Acad::ErrorStatus AcDbMlineStyle::setDescription(const ACHAR* description)
{
    return Assign(*this, m_description, description == nullptr ? L"" : description);
}

int AcDbMlineStyle::numElements() const
{
    return int(std::count_if(m_elements.begin(), m_elements.end(), [](const GroupValue& g) { return g.code == 49; }));
}

Acad::ErrorStatus AcDbMlineStyle::getElementAt(int index, double& offset, AcCmColor& color) const
{
    int at = -1;
    bool isFound = false;
    for (const GroupValue& group : m_elements) {
        at += group.code == 49;
        if (at != index)
            continue;
        isFound = true;
        if (group.code == 49)
            offset = group.real();
        else if (group.code == 62)
            color.setColorIndex(Adesk::UInt16(group.integer()));
    }
    return isFound ? Acad::eOk : Acad::eInvalidIndex;
}

Acad::ErrorStatus AcDbMlineStyle::addElement(int& index, double offset, const AcCmColor& color, const ACHAR* linetype)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    index = 0;
    auto place = m_elements.begin();
    for (; place != m_elements.end() && !(place->code == 49 && place->real() < offset); ++place)
        index += place->code == 49;
    const GroupList element = {
        {49, 1, false, offset}, {62, 1, false, int64_t(color.colorIndex())}, {6, 1, false, CString(linetype)}};
    m_elements.insert(place, element.begin(), element.end());
    return Acad::eOk;
}

double AcDbMlineStyle::startAngle() const
{
    return Radians(m_startAngle);
}

double AcDbMlineStyle::endAngle() const
{
    return Radians(m_endAngle);
}

void AcDbMlineStyle::range(double& highest, double& lowest) const
{
    highest = lowest = 0;
    bool isFirst = true;
    for (const GroupValue& group : m_elements) {
        if (group.code != 49)
            continue;
        highest = isFirst ? group.real() : std::max(highest, group.real());
        lowest = isFirst ? group.real() : std::min(lowest, group.real());
        isFirst = false;
    }
}
