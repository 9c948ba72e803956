#include "UndoLog.h"
#include "Fields.h"
#include "ObjectAccess.h"
#include "RecordNames.h"
#include <cstring>

namespace KxPlat {

UndoLog::UndoLog() = default;
UndoLog::~UndoLog() = default;

void UndoLog::Begin(const CString& command)
{
    ++m_serial;
    m_nextCommand = command;
}

// More than a view could use piece by piece is not kept.
constexpr size_t kMostTouched = 200000;

void UndoLog::NoteTouched(AcDbStub* stub)
{
    if (stub == nullptr || (m_told < TouchedCount() && !m_touched.empty() && m_touched.back() == stub))
        return;
    if (m_touched.size() >= kMostTouched) {
        m_touchedBefore += m_touched.size();
        m_touched.clear();
    }
    m_touched.push_back(stub);
}

bool UndoLog::TouchedSince(uint64_t& position, std::vector<AcDbStub*>& touched)
{
    const bool isKnown = position >= m_touchedBefore && position <= TouchedCount();
    if (isKnown)
        touched.assign(m_touched.begin() + std::ptrdiff_t(position - m_touchedBefore), m_touched.end());
    position = m_told = TouchedCount();
    return isKnown;
}

UndoLog::Step& UndoLog::Open()
{
    if (m_openSerial != m_serial) {
        m_openSerial = m_serial;
        m_done.push_back({m_nextCommand, {}});
        m_undone.clear();
    }
    return m_done.back();
}

void UndoLog::Changing(AcDbObject& object)
{
    AcDbStub* stub = ObjectAccess::Stub(object);
    Touch(stub);
    if (m_isOff || stub == nullptr || stub->recordedIn == m_serial)
        return;
    stub->recordedIn = m_serial;
    Change change;
    change.stub = stub;
    change.before.reset(static_cast<AcDbObject*>(object.isA()->create()));
    if (change.before == nullptr)
        return;
    CopyFields(*change.before, object);
    Open().changes.push_back(std::move(change));
}

// Not marked as recorded: a later change of other members still needs its copy.
void UndoLog::Record(AcDbObject& object, const void* member, uint8_t size)
{
    AcDbStub* stub = ObjectAccess::Stub(object);
    Touch(stub);
    if (m_isOff || stub == nullptr || stub->recordedIn == m_serial)
        return;
    std::vector<Change>& changes = Open().changes;
    Change& change = changes.emplace_back();
    change.stub = stub;
    change.member.offset = uint16_t(static_cast<const char*>(member) - reinterpret_cast<const char*>(&object));
    change.member.size = size;
    std::memcpy(&change.member.bits, member, size);
}

void UndoLog::Erasing(AcDbStub* stub)
{
    Touch(stub);
    if (m_isOff)
        return;
    Change change;
    change.stub = stub;
    change.wasErased = stub->erased;
    Open().changes.push_back(std::move(change));
}

// Taking an addition back erases the object; bringing it back unerases it.
void UndoLog::Added(AcDbStub* stub)
{
    Touch(stub);
    if (m_isOff)
        return;
    Change change;
    change.stub = stub;
    change.wasErased = true;
    stub->recordedIn = m_serial;
    Open().changes.push_back(std::move(change));
}

void UndoLog::ChangingHeader(const HeaderVars& vars, std::string_view name)
{
    if (m_isOff)
        return;
    const HeaderVar* var = vars.Find(name);
    Change change;
    change.header = std::make_unique<HeaderChange>();
    change.header->wasThere = var != nullptr;
    change.header->before = var != nullptr ? *var : HeaderVar{std::string(name), {}};
    Open().changes.push_back(std::move(change));
}

void UndoLog::SwapHeader(HeaderChange& change, HeaderVars& vars)
{
    const HeaderVar* now = vars.Find(change.before.name);
    HeaderChange present{now != nullptr ? *now : HeaderVar{change.before.name, {}}, now != nullptr};
    if (change.wasThere)
        vars.Get(change.before.name).groups = change.before.groups;
    else
        vars.Remove(change.before.name);
    change = std::move(present);
}

namespace {

void SwapMember(AcDbObject& object, MemberBits& kept)
{
    char* member = reinterpret_cast<char*>(&object) + kept.offset;
    uint32_t present = 0;
    std::memcpy(&present, member, kept.size);
    std::memcpy(member, &kept.bits, kept.size);
    kept.bits = present;
    ObjectAccess::State(object) |= kChangedSinceRead;
}

}   // namespace

void UndoLog::Swap(Change& change, HeaderVars& vars)
{
    if (change.header != nullptr) {
        SwapHeader(*change.header, vars);
        return;
    }
    Touch(change.stub);
    if (change.member.size != 0) {
        SwapMember(*change.stub->object, change.member);
        return;
    }
    if (change.before == nullptr) {
        const bool isErased = change.stub->erased;
        change.stub->erased = change.wasErased;
        change.wasErased = isErased;
        return;
    }
    AcDbObject& object = *change.stub->object;
    std::unique_ptr<AcDbObject> present(static_cast<AcDbObject*>(object.isA()->create()));
    CopyFields(*present, object);
    const CString oldName = RecordNameOf(object);
    CopyFields(object, *change.before);
    ObjectAccess::State(object) |= kChangedSinceRead;
    if (oldName != RecordNameOf(object))
        RecordRenamed(object, oldName);
    change.before = std::move(present);
}

bool UndoLog::Undo(HeaderVars& vars, CString& command)
{
    if (m_done.empty())
        return false;
    Step step = std::move(m_done.back());
    m_done.pop_back();
    for (size_t i = step.changes.size(); i-- > 0;)
        Swap(step.changes[i], vars);
    command = step.command;
    m_undone.push_back(std::move(step));
    ++m_serial;
    return true;
}

bool UndoLog::Redo(HeaderVars& vars, CString& command)
{
    if (m_undone.empty())
        return false;
    Step step = std::move(m_undone.back());
    m_undone.pop_back();
    for (Change& change : step.changes)
        Swap(change, vars);
    command = step.command;
    m_done.push_back(std::move(step));
    ++m_serial;
    return true;
}

void UndoLog::Clear()
{
    m_done.clear();
    m_undone.clear();
    m_openSerial = 0;
}

}   // namespace KxPlat
