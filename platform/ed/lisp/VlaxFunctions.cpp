// The object model's functions, and named data of programs in the drawing.
#include "../../ap/Documents.h"
#include "../../db/AcDbDatabase.h"
#include "../../db/AcDbEntity.h"
#include "../../db/AcDbSymbolTableRecord.h"
#include "../../db/core/DbCore.h"
#include "../../win/CharTables.h"
#include "../select/acdbads.h"
#include "Chain.h"
#include "HostValues.h"
#include "Interpreter.h"
#include "Printer.h"
#include "Reader.h"
#include "VlaObjects.h"

namespace KxPlat::Lisp {

namespace {

std::wstring NameOf(const Value& value)
{
    return value.IsSymbol() ? value.symbol()->name : TextOf(value);
}

Value ToObject(Interpreter&, const Arguments& arguments)
{
    if (!arguments[0].IsEntityName())
        BadArgument(L"lentityp", arguments[0]);
    return new VlaObject(arguments[0].id());
}

Value ToEntityName(Interpreter&, const Arguments& arguments)
{
    const VlaObject& object = VlaObjectOf(arguments[0]);
    return object.thing().empty() ? Value(object.id()) : Value();
}

Value TheApplication(Interpreter&, const Arguments&)
{
    return new VlaObject(std::wstring(L"Application"));
}

Value GetProperty(Interpreter& lisp, const Arguments& arguments)
{
    return PropertyOf(lisp, arguments[0], NameOf(arguments[1]));
}

Value PutProperty(Interpreter& lisp, const Arguments& arguments)
{
    SetProperty(lisp, arguments[0], NameOf(arguments[1]), arguments[2]);
    return {};
}

Value IsAvailable(Interpreter& lisp, const Arguments& arguments)
{
    return lisp.Truth(HasProperty(lisp, arguments[0], NameOf(arguments[1]), bool(arguments.Get(2))));
}

Value IsErased(Interpreter& lisp, const Arguments& arguments)
{
    const VlaObject& object = VlaObjectOf(arguments[0]);
    return lisp.Truth(object.thing().empty() && object.id().isErased());
}

Value DeleteObject(Interpreter&, const Arguments& arguments)
{
    AcDbObject* object = nullptr;
    if (acdbOpenObject(object, VlaObjectOf(arguments[0]).id(), AcDb::kForWrite) != Acad::eOk)
        Fail(L"Automation Error. The object cannot be changed");
    const Acad::ErrorStatus status = object->erase();
    object->close();
    if (status != Acad::eOk)
        Fail(L"Automation Error. The object cannot be erased");
    return {};
}

Value ItemOf(Interpreter&, const Arguments& arguments)
{
    const std::vector<Value> members = MembersOfCollection(arguments[0]);
    if (arguments[1].IsInteger()) {
        if (arguments[1].integer() < 0 || size_t(arguments[1].integer()) >= members.size())
            Fail(L"Automation Error. Invalid index");
        return members[size_t(arguments[1].integer())];
    }
    for (const Value& member : members) {
        const AcDbStub* stub = VlaObjectOf(member).id();
        const auto* record = AcDbSymbolTableRecord::cast(stub->object);
        if (record != nullptr && EqualNoCase(record->nameText().GetString(), TextOf(arguments[1])))
            return member;
    }
    Fail(L"Automation Error. Key not found");
}

// (vlax-for name collection forms)
Value ForEach(Interpreter& lisp, const Value& operands)
{
    if (!operands.car().IsSymbol())
        Fail(L"syntax error");
    Symbol* variable = operands.car().symbol();
    const std::vector<Value> members = MembersOfCollection(lisp.Eval(operands.cdr().car()));
    struct Restored {
        explicit Restored(Symbol* which) : symbol(which), value(which->value) {}
        ~Restored() { symbol->value = value; }
        Symbol* symbol;
        Value value;
    } const restored(variable);
    Value result;
    for (const Value& member : members) {
        lisp.Step();
        variable->value = member;
        result = lisp.EvalAll(operands.cdr().cdr());
    }
    return result;
}

// Marks join what follows into one step back. Commands are whole steps already.
Value BeginStep(Interpreter&, const Arguments&)
{
    AcApDocument* document = acDocManager->curDocument();
    if (document != nullptr)
        CoreOf(*document->database()).undo.Begin(L"LISP");
    return {};
}

Value Ignored(Interpreter&, const Arguments&)
{
    return {};
}

// Variants, arrays and points are the lists themselves here.
Value Itself(Interpreter&, const Arguments& arguments)
{
    return arguments[0];
}

Value ToPoint(Interpreter&, const Arguments& arguments)
{
    if (arguments.count == 1)
        return ValueOf(PointOf(arguments[0]));
    return ListOf(NumberOf(arguments[0]), NumberOf(arguments[1]),
                  NumberOf(arguments.Get(2) ? arguments[2] : Value(0.0)));
}

// --- named data: an extension record of a dictionary, or of the drawing ---

constexpr int kTextCode = 1;
constexpr size_t kPiece = 250;   // characters that one group of the oldest files holds

// The dictionary of an object or of the drawing's root that holds the program's data; made on demand.
bool DataHome(const Value& where, bool makes, ads_name home)
{
    if (where.IsText()) {
        ads_name root;
        return acdbNamedObjDict(root) == RTNORM && (ads_name_set(root, home), true);
    }
    const AcDbObjectId id = where.IsEntityName() ? where.id() : VlaObjectOf(where).id();
    AcDbObject* object = nullptr;
    if (acdbOpenObject(object, id, makes ? AcDb::kForWrite : AcDb::kForRead) != Acad::eOk)
        return false;
    if (makes && object->extensionDictionary().isNull())
        object->createExtensionDictionary();
    const AcDbObjectId dictionary = object->extensionDictionary();
    object->close();
    return !dictionary.isNull() && acdbGetAdsName(home, dictionary) == Acad::eOk;
}

std::wstring KeyOf(const Value& where, const Value& key)
{
    return L"KXLDATA-" + (where.IsText() ? where.text() + L"-" : std::wstring()) + TextOf(key);
}

Value RecordFor(const std::wstring& text)
{
    ListBuilder record;
    record.Add(Pair(Value(int32_t(0)), Value(L"XRECORD")));
    record.Add(Pair(Value(int32_t(100)), Value(L"AcDbXrecord")));
    for (size_t at = 0; at < text.size(); at += kPiece)
        record.Add(Pair(Value(int32_t(kTextCode)), Value(text.substr(at, kPiece))));
    return record.Take();
}

// (vlax-ldata-put where key value): any value that can be read back as it prints.
Value PutData(Interpreter&, const Arguments& arguments)
{
    ads_name home, made;
    const std::wstring key = KeyOf(arguments[0], arguments[1]);
    if (!DataHome(arguments[0], true, home))
        Fail(L"the data has no place there");
    const Chain old(acdbDictSearch(home, key.c_str(), 0));
    if (old.get() != nullptr)
        acdbDictRemove(home, key.c_str());
    const Chain record(GroupChainOf(RecordFor(Printed(arguments[2]))));
    if (acdbEntMakeX(record.get(), made) != RTNORM || acdbDictAdd(home, key.c_str(), made) != RTNORM)
        Fail(L"the data cannot be stored");
    return arguments[2];
}

Value GetData(Interpreter& lisp, const Arguments& arguments)
{
    ads_name home;
    const Value& byDefault = arguments.Get(2);
    if (!DataHome(arguments[0], false, home))
        return byDefault;
    const Chain record(acdbDictSearch(home, KeyOf(arguments[0], arguments[1]).c_str(), 0));
    std::wstring text;
    for (const resbuf* at = record.get(); at != nullptr; at = at->rbnext) {
        if (at->restype == kTextCode && at->resval.rstring != nullptr)
            text += at->resval.rstring;
    }
    Value value;
    return Reader(lisp, text).Read(value) ? value : byDefault;
}

Value DeleteData(Interpreter& lisp, const Arguments& arguments)
{
    ads_name home;
    return lisp.Truth(DataHome(arguments[0], false, home) &&
                      acdbDictRemove(home, KeyOf(arguments[0], arguments[1]).c_str()) == RTNORM);
}

Value ListData(Interpreter& lisp, const Arguments& arguments)
{
    ads_name home;
    ListBuilder list;
    if (!DataHome(arguments[0], false, home))
        return {};
    const std::wstring prefix = KeyOf(arguments[0], Value(L""));
    const Chain dictionary(acdbEntGet(home));
    for (const resbuf* at = dictionary.get(); at != nullptr; at = at->rbnext) {
        if (at->restype != 3 || !StartsWithNoCase(at->resval.rstring, prefix))
            continue;
        const Value key(std::wstring(at->resval.rstring).substr(prefix.size()));
        const Value asked[] = {arguments[0], key};
        list.Add(Pair(key, GetData(lisp, {asked, 2})));
    }
    return list.Take();
}

const Builtin kRows[] = {
    {L"VLAX-ENAME->VLA-OBJECT", ToObject, 1, 1},
    {L"VLAX-VLA-OBJECT->ENAME", ToEntityName, 1, 1},
    {L"VLAX-GET-ACAD-OBJECT", TheApplication, 0, 0},
    {L"VLAX-GET-PROPERTY", GetProperty, 2, 2},
    {L"VLAX-PUT-PROPERTY", PutProperty, 3, 3},
    {L"VLAX-GET", GetProperty, 2, 2},
    {L"VLAX-PUT", PutProperty, 3, 3},
    {L"VLAX-PROPERTY-AVAILABLE-P", IsAvailable, 2, 3},
    {L"VLAX-ERASED-P", IsErased, 1, 1},
    {L"VLAX-FOR", nullptr, 2, -1, ForEach},
    {L"VLAX-RELEASE-OBJECT", Ignored, 1, 1},
    {L"VLAX-VARIANT-VALUE", Itself, 1, 1},
    {L"VLAX-SAFEARRAY->LIST", Itself, 1, 1},
    {L"VLAX-MAKE-VARIANT", Itself, 1, 2},
    {L"VLAX-3D-POINT", ToPoint, 1, 3},
    {L"VLA-ITEM", ItemOf, 2, 2},
    {L"VLA-DELETE", DeleteObject, 1, 1},
    {L"VLA-UPDATE", Ignored, 1, 1},
    {L"VLA-REGEN", Ignored, 1, 2},
    {L"VLA-STARTUNDOMARK", BeginStep, 1, 1},
    {L"VLA-ENDUNDOMARK", Ignored, 1, 1},
    {L"VLAX-LDATA-PUT", PutData, 3, 4},
    {L"VLAX-LDATA-GET", GetData, 2, 4},
    {L"VLAX-LDATA-DELETE", DeleteData, 2, 3},
    {L"VLAX-LDATA-LIST", ListData, 1, 2},
};

}   // namespace

const BuiltinTable kObjects = TableOf(kRows);

}   // namespace KxPlat::Lisp
