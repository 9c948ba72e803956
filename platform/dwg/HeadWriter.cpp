#include "HeadWriter.h"
#include "../db/AcDbBlockTableRecord.h"
#include "../win/CodePage.h"
#include "DwgTexts.h"
#include "HeaderRoots.h"
#include "ObjectHead.h"

namespace KxPlat {

namespace {

constexpr size_t kLongestData = 0xFFFF;

AcDbStub* RecordOf(const ObjectEncoder& out, TableKind kind, const CString& name)
{
    return out.output.core.Table(kind)->find({name.GetString(), size_t(name.GetLength())});
}

void BigHandle(BitWriter& items, uint64_t handle)
{
    items.RL(__builtin_bswap32(uint32_t(handle >> 32)));
    items.RL(__builtin_bswap32(uint32_t(handle)));
}

void XDataText(ObjectEncoder& out, BitWriter& items, const CString& text)
{
    if (HasStringStream(out.version)) {
        const CString plain = WithoutCarets(text);
        const std::u16string units = ToUtf16({plain.GetString(), size_t(plain.GetLength())});
        items.RS(int(units.size()));
        for (char16_t unit : units)
            items.RS(unit);
        return;
    }
    constexpr size_t kLongest = 255;
    const std::string bytes = BytesOf(text, out.output.codec).substr(0, kLongest);
    items.RC(int(bytes.size()));
    items.BigRS(NumberOfCodePage(out.output.codec.codePage()));
    items.Bytes(bytes);
}

void XDataItem(ObjectEncoder& out, BitWriter& items, const GroupList& groups, size_t at)
{
    const GroupValue& group = groups[at];
    const int kind = group.code - 1000;
    // The second and third part of a point stand with the first.
    const bool isPart = kind >= 20 && kind < 40;
    if (isPart || kind < 0 || kind > 71)
        return;
    items.RC(kind);
    if (kind >= 10 && kind < 20) {
        for (size_t i = 0; i < 3; ++i)
            items.RD(at + i < groups.size() && groups[at + i].code == group.code + 10 * int(i) ? groups[at + i].real()
                                                                                               : 0.0);
        return;
    }
    if (kind >= 40 && kind < 60)
        return items.RD(group.real());
    switch (kind) {
    case 0:
        return XDataText(out, items, group.text());
    case 2:
        return items.RC(group.text() == L"{" ? 0 : 1);
    case 3:
        return BigHandle(items, out.output.HandleOf(RecordOf(out, TableKind::Layer, group.text())));
    case 4: {
        const Bytes* bytes = std::get_if<Bytes>(&group.value);
        const std::string_view view =
            bytes == nullptr || *bytes == nullptr ? std::string_view() : std::string_view(**bytes).substr(0, 255);
        items.RC(int(view.size()));
        return items.Bytes(view);
    }
    case 5:
        return BigHandle(items, out.output.HandleOf(group.id()));
    case 71:
        return items.RL(uint32_t(group.integer()));
    default:
        return items.RS(int(group.integer()));
    }
}

}   // namespace

// Each application's data in one piece.
void WriteXData(ObjectEncoder& out)
{
    const Annex* annex = ObjectAccess::Find(*out.object);
    if (annex != nullptr) {
        const GroupList& groups = annex->xData;
        for (size_t at = 0; at < groups.size();) {
            const AcDbStub* application =
                groups[at].code == 1001 ? RecordOf(out, TableKind::RegApp, groups[at].text()) : nullptr;
            BitWriter items;
            for (++at; at < groups.size() && groups[at].code != 1001; ++at)
                XDataItem(out, items, groups, at);
            if (out.output.HandleOf(application) == 0 || items.bytes().size() > kLongestData || items.Position() == 0)
                continue;
            out.data.BS(int(items.bytes().size()));
            out.data.H(5, out.output.HandleOf(application));
            out.data.Bytes(items.bytes());
        }
    }
    out.data.BS(0);
}

namespace {

// The groups of an entity that no field claims and that all entities may have.
struct CommonGroups {
    const GroupValue* book = nullptr;   // 430
    const GroupValue* transparency = nullptr;
    const GroupValue* material = nullptr;
    const GroupValue* plotStyle = nullptr;
    const GroupValue* visualStyle = nullptr;
    int shadow = 0;
    std::string graphics;

    explicit CommonGroups(const AcDbObject& entity)
    {
        const Annex* annex = ObjectAccess::Find(entity);
        if (annex == nullptr)
            return;
        for (const GroupValue& group : annex->others) {
            if (group.code == 100)
                return;
            if (group.section == 1)
                Take(group);
        }
    }

private:
    void Take(const GroupValue& group)
    {
        switch (group.code) {
        case 430:
            book = &group;
            break;
        case 440:
            transparency = &group;
            break;
        case 347:
            material = &group;
            break;
        case 390:
            plotStyle = &group;
            break;
        case 348:
            visualStyle = &group;
            break;
        case 284:
            shadow = int(group.integer());
            break;
        case 310:
            if (const Bytes* bytes = std::get_if<Bytes>(&group.value))
                graphics += *bytes == nullptr ? std::string() : **bytes;
            break;
        default:
            break;
        }
    }
};

std::vector<const AcDbStub*> Reactors(const ObjectEncoder& out)
{
    std::vector<const AcDbStub*> live;
    if (const Annex* annex = ObjectAccess::Find(*out.object))
        for (const AcDbStub* stub : annex->reactors)
            if (out.output.HandleOf(stub) != 0)
                live.push_back(stub);
    return live;
}

const AcDbStub* DictionaryOf(const ObjectEncoder& out)
{
    const Annex* annex = ObjectAccess::Find(*out.object);
    const AcDbStub* stub = annex == nullptr ? AcDbObjectId() : annex->extensionDictionary;
    return out.output.HandleOf(stub) == 0 ? nullptr : stub;
}

void Graphics(ObjectEncoder& out, const std::string& bytes)
{
    out.data.B(!bytes.empty());
    if (bytes.empty())
        return;
    out.version >= kR2010 ? out.data.BLL(bytes.size()) : out.data.RL(uint32_t(bytes.size()));
    out.data.Bytes(bytes);
}

// The object of the colour's book, when the colour goes by it.
const AcDbStub* EntityColor(ObjectEncoder& out, const CommonGroups& common)
{
    const EntityPlaces& places = PlacesOfEntities();
    const int index = out.At<int16_t>(places.color.offset);
    if (out.version <= kR2000) {
        out.data.BS(index);
        return nullptr;
    }
    const int32_t rgb = out.At<int32_t>(places.rgb.offset);
    const AcDbStub* book = nullptr;
    if (common.book != nullptr) {
        const auto place = out.output.books.find(ToUtf8(common.book->text().GetString()));
        book = place == out.output.books.end() || out.output.HandleOf(place->second) == 0 ? nullptr : place->second;
    }
    const bool hasRgb = rgb != INT32_MIN && book == nullptr;
    const int64_t transparency = common.transparency == nullptr ? 0 : common.transparency->integer();
    out.data.BS((index & 0x1FF) | (hasRgb ? 0x8000 : 0) | (book != nullptr ? 0xC000 : 0) |
                (transparency != 0 ? 0x2000 : 0));
    if (transparency != 0)
        out.data.BL(uint32_t(transparency >> 24 == 2 ? (transparency & 0xFFFFFF) | 0x03000000 : transparency));
    if (hasRgb)
        out.data.BL(0xC2000000u | (uint32_t(rgb) & 0xFFFFFF));
    return book;
}

void References(ObjectEncoder& out, const std::vector<const AcDbStub*>& reactors, const AcDbStub* dictionary)
{
    for (const AcDbStub* reactor : reactors)
        out.Ref(4, reactor);
    if (out.version <= kR2000 || dictionary != nullptr)
        out.Ref(3, dictionary);
}

}   // namespace

void WriteEntityHead(ObjectEncoder& out, const Neighbours& neighbours, bool hasBinaryData)
{
    const EntityPlaces& places = PlacesOfEntities();
    const CommonGroups common(*out.object);
    const DwgRoots& roots = out.output.roots;
    BitWriter& data = out.data;
    Graphics(out, common.graphics);
    const uint64_t owner = out.output.HandleOf(ObjectAccess::Owner(*out.object));
    const int mode = owner == roots.modelSpace ? 2 : owner == roots.paperSpace ? 1 : 0;
    data.BB(mode);
    const std::vector<const AcDbStub*> reactors = Reactors(out);
    const AcDbStub* dictionary = DictionaryOf(out);
    data.BL(uint32_t(reactors.size()));
    const uint64_t before = neighbours.before == nullptr ? 0 : neighbours.before->handle;
    const uint64_t behind = neighbours.behind == nullptr ? 0 : neighbours.behind->handle;
    const bool isImplied = before == out.handle - 1 && behind == out.handle + 1;
    data.B(out.version >= kR2004 ? dictionary == nullptr : isImplied);
    if (out.version >= kR2013)
        data.B(hasBinaryData);
    const AcDbStub* book = EntityColor(out, common);
    data.BD(out.At<double>(places.scale.offset));
    const uint64_t linetype = out.output.HandleOf(out.At<AcDbObjectId>(places.linetype.offset));
    const int linetypeFlag = linetype == 0 || linetype == roots.byLayer ? 0
                             : linetype == roots.byBlock                ? 1
                             : linetype == roots.continuous             ? 2
                                                                        : 3;
    data.BB(linetypeFlag);
    const auto given = [&](const GroupValue* group) {
        return group != nullptr && out.output.HandleOf(group->id()) != 0 ? 3 : 0;
    };
    if (out.version >= kR2007) {
        data.BB(given(common.material));
        data.RC(common.shadow);
    }
    data.BB(given(common.plotStyle));
    const bool hasVisualStyle = out.version >= kR2010 && given(common.visualStyle) == 3;
    if (out.version >= kR2010) {
        data.B(hasVisualStyle);
        data.BB(0);
    }
    data.BS(out.At<int16_t>(places.invisible.offset) & 1);
    data.RC(NumberOfLineWeight(out.At<int16_t>(places.lineweight.offset)));

    if (mode == 0)
        out.handles.H(4, owner);
    References(out, reactors, dictionary);
    if (out.version <= kR2000 && !isImplied) {
        out.handles.H(4, before);
        out.handles.H(4, behind);
    }
    if (book != nullptr)
        out.Ref(5, book);
    const uint64_t layer = out.output.HandleOf(out.At<AcDbObjectId>(places.layer.offset));
    out.handles.H(5, layer != 0 ? layer : out.output.layerZero);
    if (linetypeFlag == 3)
        out.handles.H(5, linetype);
    if (out.version >= kR2007 && given(common.material) == 3)
        out.Ref(5, common.material->id());
    if (given(common.plotStyle) == 3)
        out.Ref(5, common.plotStyle->id());
    if (hasVisualStyle)
        out.Ref(5, common.visualStyle->id());
}

void WriteObjectHead(ObjectEncoder& out, const AcDbStub* owner, bool hasBinaryData)
{
    const std::vector<const AcDbStub*> reactors = Reactors(out);
    const AcDbStub* dictionary = DictionaryOf(out);
    out.data.BL(uint32_t(reactors.size()));
    if (out.version >= kR2004)
        out.data.B(dictionary == nullptr);
    if (out.version >= kR2013)
        out.data.B(hasBinaryData);
    out.Ref(4, owner);
    References(out, reactors, dictionary);
}

}   // namespace KxPlat
