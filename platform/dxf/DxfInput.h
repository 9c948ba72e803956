// What all sections of one file share while it is read: the walk over its groups, the objects that it makes, and what
// must wait until the last handle of the file is known.
#pragma once
#include "../db/AcDbEntity.h"
#include "../db/AcDbProxyEntity.h"
#include "../db/AcDbProxyObject.h"
#include "../db/core/ObjectReader.h"
#include "../rx/AcRxClass.h"
#include "../ui/Progress.h"
#include "../win/MappedFile.h"
#include "DxfClasses.h"
#include "DxfSource.h"

namespace KxPlat {

template <class Tags>
class DxfInput {
public:
    DxfInput(DbCore& core, MappedFile& file, Tags tags, const TextCodec& codec)
        : core(core), tags(std::move(tags)), codec(codec), source(this->tags, this->codec), m_reader(core), m_file(file)
    {
    }
    DxfInput(const DxfInput&) = delete;

    DbCore& core;
    Tags tags;
    TextCodec codec;
    DxfSource<Tags> source;
    DxfClasses classes;

    bool IsRecord(std::string_view type) { return tags.code() == 0 && tags.Text() == type; }
    // At ENDSEC, or at what can only stand behind it.
    bool IsEndOfSection()
    {
        return tags.code() == 0 && (tags.Text() == "ENDSEC" || tags.Text() == "SECTION" || tags.Text() == "EOF");
    }
    void Mend(const char* what, std::string_view detail = {})
    {
        tags.report().Mend(tags.Place(), what, std::string(detail.substr(0, 60)));
    }
    // The file has ended where it must not.
    bool Ended()
    {
        tags.report().Fail(tags.Place(),
                           tags.isCutOff() ? "the file ends within a group" : "the file ends within a section");
        return false;
    }

    // Reads the groups up to the next record into an object; `look` sees each group first. False at the end of the
    // file.
    template <class Look>
    bool Read(AcDbObject& object, Look&& look)
    {
        m_place = tags.Place();
        m_reader.Begin(object);
        bool isMore = false;
        while ((isMore = tags.Next()) && tags.code() != 0) {
            look();
            m_reader.Put(source);
        }
        m_reader.End();
        GiveBack();
        return isMore;
    }
    bool Read(AcDbObject& object)
    {
        return Read(object, [] {});
    }
    // The groups up to the next record as values.
    bool Read(GroupList& groups)
    {
        bool isMore = false;
        while ((isMore = tags.Next()) && tags.code() != 0)
            groups.push_back(source.Value(core));
        source.MoveSpellings(nullptr, core.form.spellings);
        GiveBack();
        return isMore;
    }
    bool Skip()
    {
        bool isMore = false;
        while ((isMore = tags.Next()) && tags.code() != 0) {
        }
        return isMore;
    }
    // Of the object read last.
    AcDbStub* owner() const { return m_reader.owner(); }
    uint64_t handle() const { return m_reader.handle(); }

    // Makes the object read last resident, owned by `owner`. Without a handle of its own, or with one that is taken, it
    // gets one when all handles of the file are known.
    AcDbStub* Adopt(AcDbObject* object, AcDbStub* owner);
    // The object has left its first stub for the one of a placeholder.
    void Moved(const AcDbStub* from, AcDbStub* to);
    // Gives the handle read last to a stub that was there before.
    void Number(AcDbStub* stub);
    void NumberLater(AcDbStub* stub) { m_made.push_back(stub); }
    void NumberAll();
    // Some object of the file had one.
    bool hasHandles() const { return m_hasHandles; }

    // The same for a record that the file implies but does not have.
    AcDbStub* AdoptMade(AcDbObject* object, AcDbStub* owner);

    // A new object for the record that the walk stands at. What no class has the name of becomes a proxy.
    AcDbEntity* MakeEntity(std::string_view type);
    AcDbObject* MakeObject(std::string_view type);

private:
    AcDbObject* Make(std::string_view type);
    static constexpr size_t kGiveBackStep = size_t(8) << 20;
    void GiveBack()
    {
        if (tags.Offset() - m_givenBack < kGiveBackStep)
            return;
        m_givenBack = tags.Offset();
        m_file.Drop(m_givenBack);
        m_progress.At(m_givenBack);
    }
    static AcDbStub* Settle(AcDbStub* stub, AcDbObject* object, AcDbStub* owner);
    RecordSigns Signs() const;
    void KeepSpellings(const AcDbStub* stub, AcDbStub* owner);

    ObjectReader<DxfSource<Tags>> m_reader;
    MappedFile& m_file;
    size_t m_givenBack = 0;
    Progress m_progress{L"Reading", m_file.View().size()};
    DxfPlace m_place;                      // of the record read last
    std::vector<AcDbStub*> m_renumbered;   // what came with a handle that was taken,
    std::vector<AcDbStub*> m_unnumbered;   // without a handle,
    std::vector<AcDbStub*> m_made;         // or not at all
    bool m_hasHandles = false;
};

template <class Tags>
AcDbStub* DxfInput<Tags>::Adopt(AcDbObject* object, AcDbStub* owner)
{
    const uint64_t handle = m_reader.handle();
    m_hasHandles = m_hasHandles || handle != 0;
    AcDbStub* stub = handle == 0 ? nullptr : core.handles.Get(handle);
    const bool isTaken = stub != nullptr && stub->object != nullptr;
    if (isTaken)
        tags.report().Mend(m_place, "a handle is used twice");
    if (isTaken || stub == nullptr) {
        stub = core.handles.NewUnnamed();
        (isTaken ? m_renumbered : m_unnumbered).push_back(stub);
    }
    KeepSpellings(stub, owner);
    return Settle(stub, object, owner);
}

template <class Tags>
AcDbStub* DxfInput<Tags>::AdoptMade(AcDbObject* object, AcDbStub* owner)
{
    AcDbStub* stub = core.handles.NewUnnamed();
    m_made.push_back(stub);
    return Settle(stub, object, owner);
}

template <class Tags>
AcDbStub* DxfInput<Tags>::Settle(AcDbStub* stub, AcDbObject* object, AcDbStub* owner)
{
    stub->object = object;
    ObjectAccess::Stub(*object) = stub;
    ObjectAccess::Owner(*object) = owner;
    ObjectAccess::State(*object) &= ~uint32_t(kNewObject);
    return stub;
}

template <class Tags>
void DxfInput<Tags>::Moved(const AcDbStub* from, AcDbStub* to)
{
    auto& spellings = core.form.spellings;
    for (size_t i = spellings.size(); i > 0 && spellings[i - 1].object == from; --i)
        spellings[i - 1].object = to;
    for (std::vector<AcDbStub*>* stubs : {&m_renumbered, &m_unnumbered, &m_made})
        if (!stubs->empty() && stubs->back() == from)
            stubs->back() = to;
}

template <class Tags>
void DxfInput<Tags>::Number(AcDbStub* stub)
{
    const uint64_t handle = m_reader.handle();
    const AcDbStub* taken = handle == 0 ? nullptr : core.handles.Find(handle);
    if (handle != 0 && stub->handle == 0 && (taken == nullptr || taken->object == nullptr))
        core.handles.SetHandle(stub, handle);
}

template <class Tags>
void DxfInput<Tags>::NumberAll()
{
    const auto number = [this](std::vector<AcDbStub*>& stubs, bool wasRead) {
        for (AcDbStub* stub : stubs)
            if (stub->handle == 0 && stub->object != nullptr && (ObjectAccess::Shape(*stub->object) != 0) == wasRead)
                core.handles.SetHandle(stub, core.handles.NextHandle());
    };
    number(m_renumbered, true);
    core.form.numberedFrom = core.handles.NextHandle();
    number(m_unnumbered, true);
    number(m_made, true);
    core.form.impliedFrom = core.handles.NextHandle();
    number(m_unnumbered, false);
    number(m_made, false);
}

// What the object itself cannot remember of its groups: names in another case, an owner that is not the real one.
template <class Tags>
void DxfInput<Tags>::KeepSpellings(const AcDbStub* stub, AcDbStub* owner)
{
    source.MoveSpellings(stub, core.form.spellings);
    if (m_reader.owner() != nullptr && m_reader.owner() != owner)
        core.form.spellings.push_back({stub, 330, CString(), CString(), m_reader.owner()});
}

template <class Tags>
RecordSigns DxfInput<Tags>::Signs() const
{
    RecordSigns signs;
    Tags ahead = tags;
    bool hasFlags = false;
    while (ahead.Next() && ahead.code() != 0) {
        if (ahead.code() == 100)
            signs.markers.emplace_back(ahead.Text());
        else if (ahead.code() == 70 && !hasFlags) {
            signs.flags = ahead.Integer();
            hasFlags = true;
        } else if (ahead.code() == 71)
            signs.count = ahead.Integer();
    }
    return signs;
}

template <class Tags>
AcDbObject* DxfInput<Tags>::Make(std::string_view type)
{
    const std::vector<AcRxClass*>& candidates = classes.Candidates(type);
    if (candidates.empty())
        return nullptr;
    AcRxClass* aClass = candidates.size() == 1 ? candidates[0] : classes.Choose(type, Signs());
    return static_cast<AcDbObject*>(aClass->create());
}

template <class Tags>
AcDbEntity* DxfInput<Tags>::MakeEntity(std::string_view type)
{
    std::unique_ptr<AcDbObject> made(Make(type));
    if (made != nullptr && made->isKindOf(AcDbEntity::desc()))
        return static_cast<AcDbEntity*>(made.release());
    AcDbProxyEntity* proxy = new AcDbProxyEntity;
    proxy->setDxfName(OneLine(type));
    return proxy;
}

template <class Tags>
AcDbObject* DxfInput<Tags>::MakeObject(std::string_view type)
{
    if (AcDbObject* made = Make(type))
        return made;
    AcDbProxyObject* proxy = new AcDbProxyObject;
    proxy->setDxfName(OneLine(type));
    return proxy;
}

}   // namespace KxPlat
