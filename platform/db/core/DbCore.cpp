#include "DbCore.h"
#include "../AcDbDatabase.h"
#include "../AcDbSymbolTable.h"
#include "ObjectAccess.h"

namespace KxPlat {

// Everything that a database holds goes with it, opened or not; what a careless caller left open no longer counts.
DbCore::~DbCore()
{
    undo.SetOff(true);
    undo.Clear();
    handles.ForEach([](AcDbStub& stub) {
        CountOpenObjects(-long(stub.readers) - long(stub.writing) - long(stub.notifying));
        AcDbObject* object = stub.object;
        stub.object = nullptr;
        delete object;
    });
}

AcDbObjectId DbCore::Adopt(AcDbObject* object, uint64_t handle, AcDbStub* owner, bool isOpen)
{
    AcDbStub* stub = nullptr;
    if (handle != 0) {
        stub = handles.Get(handle);
        if (stub->object != nullptr) {
            stub = nullptr;
            ++form.repairs;
        }
    }
    if (stub == nullptr)
        stub = handles.Get(handles.NextHandle());
    stub->object = object;
    stub->erased = false;
    ObjectAccess::Stub(*object) = stub;
    ObjectAccess::Owner(*object) = owner;
    if (isOpen) {
        stub->writing = true;
        CountOpenObjects(1);
        undo.Added(stub);
        modified |= 1;
    } else {
        ObjectAccess::State(*object) &= ~uint32_t(kNewObject);
    }
    return stub;
}

AcDbSymbolTable* DbCore::Table(TableKind kind) const
{
    AcDbStub* stub = tables[size_t(kind)];
    return stub == nullptr ? nullptr : static_cast<AcDbSymbolTable*>(stub->object);
}

AcDbStub* DbCore::RecordNamed(TableKind kind, const CString& name)
{
    const std::wstring_view text(name, size_t(name.GetLength()));
    AcDbSymbolTable* table = Table(kind);
    if (AcDbStub* found = table->find(text))
        return found;
    NameIndex& index = placeholderIndex[size_t(kind)];
    if (AcDbStub* found = index.Find(text, [](const AcDbStub*) { return true; }))
        return found;
    AcDbSymbolTableRecord* record = static_cast<AcDbSymbolTableRecord*>(table->recordClass()->create());
    record->takeName(name);
    ObjectAccess::State(*record) = kPlaceholder;
    AcDbStub* stub = handles.NewUnnamed();
    stub->object = record;
    ObjectAccess::Stub(*record) = stub;
    index.Add(name, stub);
    return stub;
}

void DbCore::ResolvePlaceholder(TableKind kind, AcDbSymbolTableRecord* record)
{
    const CString& name = record->nameText();
    NameIndex& index = placeholderIndex[size_t(kind)];
    AcDbStub* waiting =
        index.Find(std::wstring_view(name, size_t(name.GetLength())), [](const AcDbStub*) { return true; });
    if (waiting == nullptr)
        return;
    // Who referred to the name holds the placeholder's stub: the record moves there and keeps its handle.
    index.Remove(name, waiting);
    AcDbStub* own = ObjectAccess::Stub(*record);
    delete waiting->object;
    waiting->object = record;
    ObjectAccess::Stub(*record) = waiting;
    own->object = nullptr;
    if (own->handle != 0)   // else it is given one later
        handles.SetHandle(waiting, own->handle);
}

}   // namespace KxPlat
