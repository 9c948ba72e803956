#include "AcDbAttributeDefinition.h"
#include "AcDbAttribute.h"
#include "core/Fields.h"
#include "core/Members.h"

using namespace KxPlat;

ACRX_DXF_DEFINE_MEMBERS(AcDbAttributeDefinition, AcDbText, 0, 0, 0, ATTDEF, AcDb)
ACRX_DXF_DEFINE_MEMBERS(AcDbAttribute, AcDbText, 0, 0, 0, ATTRIB, AcDb)

const ClassSchema& AcDbAttributeDefinition::fieldSchema()
{
    using Definition = AcDbAttributeDefinition;
    static const ClassSchema schema(&commonSchema(), "ATTDEF", "AcDbAttributeDefinition",
                                    {
                                        Int16(280, &Definition::m_version).since(AcDb::kDHL_1024),
                                        Text(3, &Definition::m_prompt).always(),
                                        Text(2, &Definition::m_tag).always(),
                                        Int16(70, &Definition::m_tagFlags).always(),
                                        Int16(73, &Definition::m_fieldLength),
                                        Int16(74, &Definition::m_vertical),
                                        Int16(280, &Definition::m_isLocked).since(AcDb::kDHL_1021),
                                    });
    return schema;
}

const ClassSchema& AcDbAttribute::fieldSchema()
{
    using Attribute = AcDbAttribute;
    static const ClassSchema schema(&commonSchema(), "ATTRIB", "AcDbAttribute",
                                    {
                                        Int16(280, &Attribute::m_version).since(AcDb::kDHL_1024),
                                        Text(2, &Attribute::m_tag).always(),
                                        Int16(70, &Attribute::m_tagFlags).always(),
                                        Int16(73, &Attribute::m_fieldLength),
                                        Int16(74, &Attribute::m_vertical),
                                        Int16(280, &Attribute::m_isLocked).since(AcDb::kDHL_1021),
                                    });
    return schema;
}

namespace KxPlat {

ACHAR* TaggedText::tag() const
{
    return NewString(m_tag);
}

Acad::ErrorStatus TaggedText::setTag(const ACHAR* tag)
{
    return tag == nullptr ? Acad::eInvalidInput : Assign(*this, m_tag, tag);
}

Acad::ErrorStatus TaggedText::setInvisible(bool on)
{
    return AssignBits(*this, m_tagFlags, 1, on);
}

Acad::ErrorStatus TaggedText::setFieldLength(Adesk::UInt16 length)
{
    return Assign(*this, m_fieldLength, length);
}

Acad::ErrorStatus TaggedText::setLockPositionInBlock(bool locked)
{
    return Assign(*this, m_isLocked, locked);
}

}   // namespace KxPlat

AcDbAttributeDefinition::AcDbAttributeDefinition(const AcGePoint3d& position, const ACHAR* text, const ACHAR* tag,
                                                 const ACHAR* prompt, AcDbObjectId style)
    : m_prompt(prompt)
{
    setPosition(position);
    setTextString(text);
    if (!style.isNull())
        setTextStyle(style);
    m_tag = tag;
}

ACHAR* AcDbAttributeDefinition::prompt() const
{
    return NewString(m_prompt);
}

Acad::ErrorStatus AcDbAttributeDefinition::setPrompt(const ACHAR* prompt)
{
    return prompt == nullptr ? Acad::eInvalidInput : Assign(*this, m_prompt, prompt);
}

Acad::ErrorStatus AcDbAttributeDefinition::setConstant(bool on)
{
    return AssignBits(*this, m_tagFlags, 2, on);
}

Acad::ErrorStatus AcDbAttributeDefinition::setVerifiable(bool on)
{
    return AssignBits(*this, m_tagFlags, 4, on);
}

Acad::ErrorStatus AcDbAttributeDefinition::setPreset(bool on)
{
    return AssignBits(*this, m_tagFlags, 8, on);
}

AcDbAttribute::AcDbAttribute(const AcGePoint3d& position, const ACHAR* text, const ACHAR* tag, AcDbObjectId style)
{
    setPosition(position);
    setTextString(text);
    if (!style.isNull())
        setTextStyle(style);
    m_tag = tag;
}

Acad::ErrorStatus AcDbAttribute::setAttributeFromBlock(const AcDbAttributeDefinition* definition,
                                                       const AcGeMatrix3d& transform)
{
    if (definition == nullptr)
        return Acad::eNullEntityPointer;
    Acad::ErrorStatus status = setPropertiesFrom(definition);
    if (status != Acad::eOk)
        return status;
    setNormal(definition->normal());
    setHeight(definition->height());
    setWidthFactor(definition->widthFactor());
    setRotation(definition->rotation());
    setOblique(definition->oblique());
    setThickness(definition->thickness());
    setTextStyle(definition->textStyle());
    setTag(definition->tagConst());
    setFieldLength(definition->fieldLength());
    m_tagFlags = int16_t((definition->isInvisible() ? 1 : 0) | (definition->isConstant() ? 2 : 0) |
                         (definition->isVerifiable() ? 4 : 0) | (definition->isPreset() ? 8 : 0));
    setPosition(definition->position());
    setHorizontalMode(definition->horizontalMode());
    setVerticalMode(definition->verticalMode());
    if (!definition->isDefaultAlignment())
        setAlignmentPoint(definition->alignmentPoint());
    return transformBy(transform);
}
