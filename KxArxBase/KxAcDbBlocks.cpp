// Blocks, their references and attributes.
#include "KxAcDb.h"
#include "KxMessages.h"
#include "Opened.h"
#include <memory>
#include <new>
#include <vector>

namespace KxArxBase {

namespace {

// Takes a string over that the host made.
CString Taken(ACHAR* text)
{
    CString copy(text == nullptr ? L"" : text);
    acutDelString(text);
    return copy;
}

// Calls `visit` with each attribute of a reference until it answers false.
template <class Visitor>
Acad::ErrorStatus VisitAttributes(const AcDbObjectId& ref, AcDb::OpenMode mode, Visitor visit)
{
    const Opened<AcDbBlockReference> reference(ref, AcDb::kForRead);
    if (!reference)
        return reference.status();
    const std::unique_ptr<AcDbObjectIterator> it(reference->attributeIterator());
    for (; !it->done(); it->step()) {
        Opened<AcDbAttribute> attribute(it->objectId(), mode);
        if (attribute && !visit(*attribute.get()))
            break;
    }
    return Acad::eOk;
}

// The attribute that a definition asks for, in the place of the reference; the caller owns it.
AcDbAttribute* AttributeFor(const AcDbAttributeDefinition& definition, const AcGeMatrix3d& place, const CString& text)
{
    auto* attribute = new AcDbAttribute;
    attribute->setPropertiesFrom(&definition);
    attribute->setTag(definition.tagConst());
    attribute->setTextString(text);
    attribute->setTextStyle(definition.textStyle());
    attribute->setHeight(definition.height());
    attribute->setWidthFactor(definition.widthFactor());
    attribute->setOblique(definition.oblique());
    attribute->setRotation(definition.rotation());
    attribute->setNormal(definition.normal());
    attribute->setPosition(definition.position());
    attribute->setInvisible(definition.isInvisible());
    attribute->setHorizontalMode(definition.horizontalMode());
    attribute->setVerticalMode(definition.verticalMode());
    if (!definition.isDefaultAlignment())
        attribute->setAlignmentPoint(definition.alignmentPoint());
    attribute->transformBy(place);
    attribute->adjustAlignment();
    return attribute;
}

CString ValueOf(const CStringArray& tags, const CStringArray& values, const AcDbAttributeDefinition& definition)
{
    for (int i = 0; i < tags.GetSize() && i < values.GetSize(); ++i)
        if (tags[i].CompareNoCase(definition.tagConst()) == 0)
            return values[i];
    return definition.textStringConst();
}

}   // namespace

Acad::ErrorStatus CKxAcDb::MakeBlock(const wchar_t* name, const AcDbObjectIdArray& ids, const AcGePoint3d& base,
                                     AcDbObjectId* block)
{
    if (block != nullptr)
        block->setNull();
    if (ids.isEmpty())
        return AsStatus(KxAcad::eNoObject);
    // All copies first: where one fails the drawing has not changed.
    std::vector<std::unique_ptr<AcDbEntity>> copies;
    for (const AcDbObjectId& id : ids) {
        const Opened<AcDbEntity> entity(id, AcDb::kForRead);
        if (!entity)
            return entity.status();
        AcDbEntity* copy = nullptr;
        const Acad::ErrorStatus es =
            entity->getTransformedCopy(AcGeMatrix3d::translation(AcGePoint3d::kOrigin - base), copy);
        if (es != Acad::eOk)
            return es;
        copies.emplace_back(copy);
    }
    auto record = std::make_unique<AcDbBlockTableRecord>();
    Acad::ErrorStatus es = record->setName(name == nullptr ? L"" : name);
    AcDbBlockTable* opened = nullptr;
    if (es == Acad::eOk)
        es = Reported([&] { return GetAcDb()->getBlockTable(opened, AcDb::kForWrite); });
    if (es != Acad::eOk)
        return es;
    AcDbObjectId added;
    es = Opened<AcDbBlockTable>(opened, es)->add(added, record.get());
    if (es != Acad::eOk)
        return es;
    Opened<AcDbBlockTableRecord> definition(record.release(), es);
    for (std::unique_ptr<AcDbEntity>& copy : copies) {
        es = definition->appendAcDbEntity(copy.get());
        if (es != Acad::eOk) {
            definition->erase(true);
            return es;
        }
        copy.release()->close();
    }
    if (block != nullptr)
        *block = added;
    return Acad::eOk;
}

Acad::ErrorStatus CKxAcDb::BlockRefAttribs(const wchar_t* block, const AcGePoint3d& position, AcGeScale3d scale,
                                           double rotation, const CStringArray& tags, const CStringArray& values,
                                           int color, const wchar_t* space, const wchar_t* layer,
                                           const wchar_t* linetype, AcDbObjectId* id)
{
    AcDbObjectId added;
    Acad::ErrorStatus es = BlockRef(block, position, scale, rotation, color, space, layer, linetype, &added);
    if (id != nullptr)
        *id = added;
    AcDbObjectIdArray definitions;
    if (es == Acad::eOk)
        es = BlockTableGetEntityIds(definitions, block, AcDbAttributeDefinition::desc());
    Opened<AcDbBlockReference> reference(added, AcDb::kForWrite);
    if (es != Acad::eOk || !reference)
        return es != Acad::eOk ? es : reference.status();
    for (const AcDbObjectId& each : definitions) {
        const Opened<AcDbAttributeDefinition> definition(each, AcDb::kForRead);
        if (!definition || definition->isConstant())
            continue;
        AcDbAttribute* attribute =
            AttributeFor(*definition.get(), reference->blockTransform(), ValueOf(tags, values, *definition.get()));
        AcDbObjectId attributeId;
        es = reference->appendAttribute(attributeId, attribute);
        if (es == Acad::eOk)
            attribute->close();
        else
            delete attribute;
    }
    return es;
}

Acad::ErrorStatus CKxAcDb::GetBlockRefName(const AcDbObjectId& ref, CString& name)
{
    const Opened<AcDbBlockReference> reference(ref, AcDb::kForRead);
    if (!reference)
        return reference.status();
    const Opened<AcDbBlockTableRecord> block(reference->blockTableRecord(), AcDb::kForRead);
    if (!block)
        return block.status();
    ACHAR* text = nullptr;
    const Acad::ErrorStatus es = block->getName(text);
    name = Taken(text);
    return es;
}

Acad::ErrorStatus CKxAcDb::GetBlockRefIds(const wchar_t* block, AcDbObjectIdArray& ids, int nested)
{
    ids.setLogicalLength(0);
    AcDbSymbolTableRecord* opened = nullptr;
    const Acad::ErrorStatus es =
        Reported([&] { return OpenRecWithEntyName(block, AcDbBlockTableRecord::desc(), opened, AcDb::kForRead); });
    if (es != Acad::eOk)
        return es;
    const Opened<AcDbSymbolTableRecord> record(opened, es);
    return static_cast<AcDbBlockTableRecord*>(opened)->getBlockReferenceIds(ids, nested == 0);
}

Acad::ErrorStatus CKxAcDb::GetAttribute(const AcDbObjectId& ref, const wchar_t* tag, CString& text)
{
    bool isFound = false;
    const CString wanted(tag);
    const Acad::ErrorStatus es = VisitAttributes(ref, AcDb::kForRead, [&](AcDbAttribute& attribute) {
        isFound = wanted.CompareNoCase(attribute.tagConst()) == 0;
        if (isFound)
            text = attribute.textStringConst();
        return !isFound;
    });
    return es != Acad::eOk || isFound ? es : Acad::eKeyNotFound;
}

Acad::ErrorStatus CKxAcDb::SetAttribute(const AcDbObjectId& ref, const wchar_t* tag, const wchar_t* text)
{
    bool isFound = false;
    const CString wanted(tag);
    Acad::ErrorStatus set = Acad::eOk;
    const Acad::ErrorStatus es = VisitAttributes(ref, AcDb::kForWrite, [&](AcDbAttribute& attribute) {
        isFound = wanted.CompareNoCase(attribute.tagConst()) == 0;
        if (isFound)
            set = attribute.setTextString(text);
        return !isFound;
    });
    return es != Acad::eOk ? es : isFound ? set : Acad::eKeyNotFound;
}

Acad::ErrorStatus CKxAcDb::GetAttributes(const AcDbObjectId& ref, CStringArray& tags, CStringArray& texts)
{
    tags.RemoveAll();
    texts.RemoveAll();
    return VisitAttributes(ref, AcDb::kForRead, [&](AcDbAttribute& attribute) {
        tags.Add(attribute.tagConst());
        texts.Add(attribute.textStringConst());
        return true;
    });
}

Acad::ErrorStatus CKxAcDb::AddBeside(const AcDbObjectId& sibling, AcDbEntity* entity, AcDbObjectId& id)
{
    AcDbObjectId owner;
    {
        // The sibling may just have been erased to make room.
        AcDbObject* known = nullptr;
        const Acad::ErrorStatus es = acdbOpenAcDbObject(known, sibling, AcDb::kForRead, true);
        if (es != Acad::eOk)
            return es;
        owner = known->ownerId();
        known->close();
    }
    Opened<AcDbBlockTableRecord> block(owner, AcDb::kForWrite);
    if (!block)
        return block.status();
    const Acad::ErrorStatus es = block->appendAcDbEntity(id, entity);
    if (es == Acad::eOk)
        entity->close();
    return es;
}

Acad::ErrorStatus CKxAcDb::ExplodeEntity(const AcDbObjectId& id, AcDbObjectIdArray* parts, int erase)
{
    if (parts != nullptr)
        parts->setLogicalLength(0);
    AcArray<AcRxObject*> made;
    Acad::ErrorStatus es = Acad::eOk;
    {
        const Opened<AcDbEntity> entity(id, AcDb::kForRead);
        es = entity ? entity->explode(made) : entity.status();
    }
    for (AcRxObject* each : made) {
        AcDbEntity* part = AcDbEntity::cast(each);
        AcDbObjectId added;
        if (es == Acad::eOk)
            es = AddBeside(id, part, added);
        if (added.isNull())
            delete each;
        else if (parts != nullptr)
            parts->append(added);
    }
    return es == Acad::eOk && erase != 0 ? EraseObject(id, 0) : es;
}

}   // namespace KxArxBase
