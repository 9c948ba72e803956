#include "ObjectHead.h"
#include "../db/AcDbEntity.h"
#include "../win/CodePage.h"
#include "DwgCodePages.h"
#include "DwgTexts.h"
#include "DwgTypes.h"
#include "HeaderRoots.h"

namespace KxPlat {

namespace {

constexpr int kEntitySection = 1;
constexpr size_t kGraphicsChunk = 127;

Place EntityPlace(const ClassSchema& schema, int code)
{
    PlaceWanted wanted;
    wanted.code = code;
    wanted.section = kEntitySection;
    return FindPlace(&schema, true, wanted);
}

}   // namespace

const EntityPlaces& PlacesOfEntities()
{
    static const EntityPlaces places = [] {
        const ClassSchema& schema = AcDbEntity::fieldSchema();
        EntityPlaces all;
        const std::pair<Place*, int> codes[] = {{&all.paper, 67},     {&all.layer, 8},        {&all.linetype, 6},
                                                {&all.color, 62},     {&all.lineweight, 370}, {&all.scale, 48},
                                                {&all.invisible, 60}, {&all.rgb, 420}};
        for (const auto& row : codes)
            *row.first = EntityPlace(schema, row.second);
        return all;
    }();
    return places;
}

void SplitStreams(ObjectDecoder& in, std::string_view objects, size_t dataEnd, size_t bodyEnd)
{
    in.texts = BitReader();
    in.hasTexts = false;
    in.handles = BitReader(objects, dataEnd, bodyEnd);
    if (dataEnd > bodyEnd || dataEnd < in.data.Position())
        return in.data.Break();
    if (!HasStringStream(in.version)) {
        in.data.EndAt(dataEnd);
        return;
    }
    size_t end = dataEnd - 1;
    BitReader last(objects, end, bodyEnd);
    if (last.B()) {
        const size_t start = in.data.Position();
        const auto lengthAt = [&](size_t behind) -> size_t {
            return behind < start + 16 ? 0 : size_t(BitReader(objects, behind - 16, bodyEnd).RS());
        };
        size_t length = lengthAt(end);
        end -= 16;
        if ((length & 0x8000) != 0) {
            length = (length & 0x7FFF) | lengthAt(end) << 15;
            end -= 16;
        }
        if (end < start || length > end - start)
            return in.data.Break();
        in.hasTexts = true;
        in.texts = BitReader(objects, end - length, end);
        end -= length;
    }
    in.data.EndAt(end);
}

// --- extended data ---

void HeadReader::XDataItem(BitReader& items, GroupList& groups)
{
    const int kind = items.RC();
    GroupValue group;
    group.code = int16_t(1000 + kind);
    const auto real = [&](int code) {
        GroupValue one;
        one.code = int16_t(code);
        one.value = items.RD();
        groups.push_back(std::move(one));
    };
    if (kind >= 10 && kind <= 15) {
        for (int i = 0; i < 3; ++i)
            real(1000 + kind + 10 * i);
        return;
    }
    if (kind >= 40 && kind <= 42)
        return real(1000 + kind);
    std::string bytes;
    switch (kind) {
    case 0:
        if (HasStringStream(in.version)) {
            std::u16string units(std::min<size_t>(items.RS(), items.Left() / 16), 0);
            for (char16_t& unit : units)
                unit = items.RS();
            group.value = WithCarets(CString(FromUtf16(units).c_str()));
        } else {
            const size_t length = items.RC();
            const int page = items.BigRS();
            items.Bytes(length, bytes);
            while (!bytes.empty() && bytes.back() == 0)
                bytes.pop_back();
            const TextCodec own(CodePageOfNumber(page).windows);
            group.value = WithCarets((page == 0 ? in.input.codec : own).Decode(bytes));
        }
        break;
    case 2:
        group.value = CString(items.RC() == 0 ? L"{" : L"}");
        break;
    case 3:
    case 5: {
        uint64_t handle = uint64_t(__builtin_bswap32(items.RL())) << 32;
        handle |= __builtin_bswap32(items.RL());
        if (kind == 3)
            group.value = in.input.NameOf(handle);
        else
            group.value = AcDbObjectId(in.input.StubOf(handle));
        break;
    }
    case 4:
        items.Bytes(items.RC(), bytes);
        group.value = std::make_shared<const std::string>(bytes);
        break;
    case 1:
    case 70:
        group.value = int64_t(int16_t(items.RS()));
        break;
    case 71:
        group.value = int64_t(int32_t(items.RL()));
        break;
    default:
        return items.Break();
    }
    groups.push_back(std::move(group));
}

void HeadReader::XData()
{
    std::string bytes;
    while (const size_t size = in.data.BS()) {
        const uint64_t application = in.data.H().From(in.handle);
        bytes.clear();
        in.data.Bytes(size, bytes);
        if (in.data.isBroken())
            return;
        GroupList groups;
        BitReader items(bytes);
        while (items.Left() > 0)
            XDataItem(items, groups);
        GroupValue name;
        name.code = 1001;
        name.value = in.input.NameOf(application);
        if (items.isBroken()) {
            // Data in a form of another program's own: kept as it is.
            groups.clear();
            GroupValue whole;
            whole.code = 1004;
            whole.value = std::make_shared<const std::string>(bytes);
            groups.push_back(std::move(whole));
            in.input.report.Mend("extended data in an unknown form");
        }
        GroupList& xData = ObjectAccess::Make(*in.object).xData;
        xData.push_back(std::move(name));
        std::move(groups.begin(), groups.end(), std::back_inserter(xData));
    }
}

// --- entities ---

void HeadReader::Graphics()
{
    if (!in.data.B())
        return;
    const uint64_t size = in.version >= kR2010 ? in.data.BLL() : in.data.RL();
    if (size > in.data.Left() / 8)
        return in.data.Break();
    std::string bytes;
    in.data.Bytes(size_t(size), bytes);
    GroupValue length;
    length.value = int64_t(size);
    Other(in.version >= kR2010 ? 160 : 92, std::move(length));
    for (size_t at = 0; at < bytes.size(); at += kGraphicsChunk) {
        GroupValue chunk;
        chunk.value = std::make_shared<const std::string>(bytes.substr(at, kGraphicsChunk));
        Other(310, std::move(chunk));
    }
}

void HeadReader::OldSplit()
{
    const size_t bits = in.data.RL();
    SplitStreams(in, in.input.file.objects, m_bodyStart + bits, in.data.End());
}

void HeadReader::Color()
{
    const EntityPlaces& places = PlacesOfEntities();
    const int stored = in.data.BS();
    if (in.version <= kR2000) {
        in.PutInteger(places.color, int16_t(stored));
        return;
    }
    in.PutInteger(places.color, stored & 0x1FF);
    GroupValue transparency;
    if ((stored & 0x2000) != 0)
        transparency.value = int64_t(in.data.BL());
    m_hasBook = (stored & 0x4000) != 0;
    if (!m_hasBook && (stored & 0x8000) != 0) {
        const uint32_t rgb = in.data.BL() & 0xFFFFFF;
        in.PutInteger(places.rgb, rgb);
        if ((stored & 0x1FF) == 0)
            in.PutInteger(places.color, IndexOfRgb(rgb));
    }
    // Memory says how with 2 in the highest byte, files with 3.
    const int64_t value = transparency.integer();
    if (value != 0) {
        transparency.value = value >> 24 == 3 ? (value & 0xFFFFFF) | 0x02000000 : value;
        Other(440, std::move(transparency));
    }
}

void HeadReader::OtherId(int code, AcDbStub* stub)
{
    if (stub == nullptr)
        return;
    GroupValue group;
    group.value = AcDbObjectId(stub);
    Other(code, std::move(group));
}

void HeadReader::Entity()
{
    const EntityPlaces& places = PlacesOfEntities();
    BitReader& data = in.data;
    const DwgVersion version = in.version;
    Graphics();
    if (version <= kR14)
        OldSplit();
    head.mode = data.BB();
    m_reactors = data.BL();
    if (version <= kR14)
        m_isByLayer = data.B();
    if (version >= kR2004)
        m_hasDictionary = !data.B();
    bool hasLinks = false;
    if (version <= kR2000) {
        hasLinks = !data.B();
        head.isChained = true;
    }
    if (version >= kR2013)
        head.hasBinaryData = data.B();
    Color();
    in.At<double>(places.scale.offset) = data.BD();
    if (version >= kR2000)
        m_linetype = data.BB();
    int shadow = 0;
    if (version >= kR2007) {
        m_material = data.BB();
        shadow = data.RC();
    }
    if (version >= kR2000)
        m_plotStyle = data.BB();
    if (version >= kR2010)
        for (bool& style : m_styles)
            style = data.B();
    in.At<int16_t>(places.invisible.offset) = int16_t(data.BS() & 1);
    if (version >= kR2000)
        in.At<int16_t>(places.lineweight.offset) = LineWeightOf(data.RC());
    in.At<int16_t>(places.paper.offset) = head.mode == 1;
    if (shadow != 0) {
        GroupValue group;
        group.value = int64_t(shadow);
        Other(284, std::move(group));
    }
    if (head.mode == 0)
        head.owner = in.Handle();
    References(m_reactors, m_hasDictionary);
    if (version <= kR14)
        in.At<AcDbObjectId>(places.layer.offset) = in.Ref();
    if (version <= kR14 && !m_isByLayer) {
        const uint64_t linetype = in.Handle();
        if (linetype != in.input.file.roots.byLayer)
            in.At<AcDbObjectId>(places.linetype.offset) = in.input.StubOf(linetype);
    }
    if (hasLinks) {
        in.Handle();
        head.next = in.Handle();
    } else if (head.isChained)
        head.next = in.handle + 1;
    if (version >= kR2000)
        EntityReferences();
}

void HeadReader::EntityReferences()
{
    const EntityPlaces& places = PlacesOfEntities();
    const DwgRoots& roots = in.input.file.roots;
    if (m_hasBook) {
        // The colour of a book stands in an object of its own.
        const uint64_t book = in.Handle();
        if (const AcDbObject* color = in.input.Need(book))
            if (const Annex* annex = ObjectAccess::Find(*color))
                for (const GroupValue& group : annex->others) {
                    if (group.code == 62)
                        in.PutInteger(places.color, group.integer());
                    else if (group.code == 420)
                        in.PutInteger(places.rgb, group.integer());
                    else if (group.code == 430)
                        Other(430, GroupValue(group));
                }
    }
    in.At<AcDbObjectId>(places.layer.offset) = in.Ref();
    AcDbStub* linetype = nullptr;
    if (m_linetype == 1)
        linetype = in.input.StubOf(roots.byBlock);
    else if (m_linetype == 2)
        linetype = in.input.StubOf(roots.continuous);
    else if (m_linetype == 3)
        linetype = in.Ref();
    in.At<AcDbObjectId>(places.linetype.offset) = linetype;
    if (m_material == 3)
        OtherId(347, in.Ref());
    if (m_plotStyle == 3)
        OtherId(390, in.Ref());
    for (bool style : m_styles)
        if (style)
            OtherId(348, in.Ref());
}

void HeadReader::References(int64_t reactors, bool hasDictionary)
{
    if (!in.IsCount(reactors))
        return;
    for (int64_t i = 0; i < reactors && !in.handles.isBroken(); ++i)
        if (AcDbStub* stub = in.Ref())
            ObjectAccess::Make(*in.object).reactors.push_back(stub);
    if (hasDictionary)
        if (AcDbStub* stub = in.Ref())
            ObjectAccess::Make(*in.object).extensionDictionary = stub;
}

void HeadReader::Object()
{
    if (in.version <= kR14)
        OldSplit();
    m_reactors = in.data.BL();
    if (in.version >= kR2004)
        m_hasDictionary = !in.data.B();
    if (in.version >= kR2013)
        head.hasBinaryData = in.data.B();
    head.owner = in.Handle();
    References(m_reactors, m_hasDictionary);
}

}   // namespace KxPlat
