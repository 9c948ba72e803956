// What all objects, and all entities, have in common before their own values: extended data, reactors, layer, colour.
#pragma once
#include "ObjectDecoder.h"

namespace KxPlat {

// Where an object stands in the drawing.
struct ObjectHead {
    int mode = 0;   // of an entity: 0 its owner is stored, 1 paper space, 2 model space
    uint64_t owner = 0;
    bool isChained = false;   // it knows its neighbours
    uint64_t next = 0;
    bool hasBinaryData = false;
};

// Members and unclaimed groups that all entities share, found once from their field list.
struct EntityPlaces {
    Place paper, layer, linetype, color, lineweight, scale, invisible, rgb;
};
const EntityPlaces& PlacesOfEntities();

// From behind the handle up to the object's own values. `bodyStart` is counted in bits: in old files, where the
// references begin stands among what entities share.
class HeadReader {
public:
    HeadReader(ObjectDecoder& decoder, size_t bodyStart) : in(decoder), m_bodyStart(bodyStart) {}

    ObjectDecoder& in;
    ObjectHead head;

    void XData();
    void Entity();
    void Object();

private:
    void XDataItem(BitReader& items, GroupList& groups);
    void Graphics();
    void OldSplit();
    void Color();
    void References(int64_t reactors, bool hasDictionary);
    void EntityReferences();
    void Other(int code, GroupValue&& group) { in.PutOther(code, 1, std::move(group)); }
    void OtherId(int code, AcDbStub* stub);

    size_t m_bodyStart;
    int m_linetype = 0, m_material = 0, m_plotStyle = 0;
    bool m_isByLayer = false, m_hasBook = false, m_styles[3] = {};
    int64_t m_reactors = 0;
    bool m_hasDictionary = true;
};

// Sets the reader of references, and from R2007 on that of texts, to where they begin: `bits` behind `bodyStart`.
void SplitStreams(ObjectDecoder& in, std::string_view objects, size_t dataEnd, size_t bodyEnd);

}   // namespace KxPlat
