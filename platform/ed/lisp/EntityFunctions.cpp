// Entities, symbol tables and dictionaries for programs.
#include "../../db/AcDbBlockTableRecord.h"
#include "../../db/AcDbDatabase.h"
#include "../../db/AcDbDictionary.h"
#include "../../db/AcDbHostApplicationServices.h"
#include "../../db/core/Stub.h"
#include "../acedads.h"
#include "../select/EntityGroups.h"
#include "Chain.h"
#include "HostValues.h"
#include "Interpreter.h"

namespace KxPlat::Lisp {

namespace {

AcDbObjectId IdOf(const Value& value)
{
    if (!value.IsEntityName())
        BadArgument(L"lentityp", value);
    return value.id();
}

Value EntGet(Interpreter&, const Arguments& arguments)
{
    const AcDbObjectId id = IdOf(arguments[0]);
    std::vector<std::wstring> apps;
    for (const Value& app : Members(ListIn(arguments.Get(1))))
        apps.push_back(TextOf(app));
    return ValueOfGroups(GroupsForPrograms(id, apps));
}

Value EntMod(Interpreter&, const Arguments& arguments)
{
    const Chain chain(GroupChainOf(arguments[0]));
    return acdbEntMod(chain.get()) == RTNORM ? arguments[0] : Value();
}

// The name of a block that is complete now, as ENDBLK is answered.
Value MadeBlock(const ads_name name)
{
    AcDbObjectId id;
    if (acdbGetObjectId(id, name) != Acad::eOk || !id.isResident())
        return Value();
    const auto* block = AcDbBlockTableRecord::cast(static_cast<AcDbStub*>(id)->object);
    return block == nullptr ? Value() : Value(std::wstring_view(block->nameText()));
}

bool IsEndOfBlock(const Value& list)
{
    for (const Value& group : Members(list))
        if (group.IsCons() && IsEq(group.car(), Value(int32_t(0))) && group.cdr().IsText())
            return group.cdr().text() == L"ENDBLK";
    return false;
}

Value EntMake(Interpreter&, const Arguments& arguments)
{
    if (arguments.count == 0) {
        acdbEntMake(nullptr);
        return Value();
    }
    const Chain chain(GroupChainOf(arguments[0]));
    ads_name made;
    if (acdbEntMakeX(chain.get(), made) != RTNORM)
        return Value();
    return IsEndOfBlock(arguments[0]) ? MadeBlock(made) : arguments[0];
}

Value EntMakeX(Interpreter&, const Arguments& arguments)
{
    const Chain chain(arguments.count == 0 ? nullptr : GroupChainOf(arguments[0]));
    ads_name made;
    return acdbEntMakeX(chain.get(), made) == RTNORM ? EntityNameValue(made) : Value();
}

Value EntDel(Interpreter&, const Arguments& arguments)
{
    ads_name name;
    EntityNameOf(arguments[0], name);
    return acdbEntDel(name) == RTNORM ? arguments[0] : Value();
}

Value EntUpdate(Interpreter&, const Arguments& arguments)
{
    ads_name name;
    EntityNameOf(arguments[0], name);
    return acdbEntUpd(name) == RTNORM ? arguments[0] : Value();
}

Value EntNext(Interpreter&, const Arguments& arguments)
{
    ads_name from = {0, 0}, next;
    if (arguments.Get(0))
        EntityNameOf(arguments[0], from);
    return acdbEntNext(from, next) == RTNORM ? EntityNameValue(next) : Value();
}

Value EntLast(Interpreter&, const Arguments&)
{
    ads_name last;
    return acdbEntLast(last) == RTNORM ? EntityNameValue(last) : Value();
}

Value HandleToEntity(Interpreter&, const Arguments& arguments)
{
    ads_name name;
    return acdbHandEnt(TextOf(arguments[0]).c_str(), name) == RTNORM ? EntityNameValue(name) : Value();
}

Value TableSearch(Interpreter&, const Arguments& arguments)
{
    const Chain chain(
        acdbTblSearch(TextOf(arguments[0]).c_str(), TextOf(arguments[1]).c_str(), bool(arguments.Get(2))));
    return ValueOfGroupChain(chain.get());
}

Value TableNext(Interpreter&, const Arguments& arguments)
{
    const Chain chain(acdbTblNext(TextOf(arguments[0]).c_str(), bool(arguments.Get(1))));
    return ValueOfGroupChain(chain.get());
}

Value TableObjectName(Interpreter&, const Arguments& arguments)
{
    ads_name name;
    return acdbTblObjName(TextOf(arguments[0]).c_str(), TextOf(arguments[1]).c_str(), name) == RTNORM
               ? EntityNameValue(name)
               : Value();
}

Value NamedObjects(Interpreter&, const Arguments&)
{
    ads_name name;
    return acdbNamedObjDict(name) == RTNORM ? EntityNameValue(name) : Value();
}

// By entget, which keeps flat points flat.
Value GroupsOfResult(const Chain& chain)
{
    return chain.get() == nullptr || chain.get()->restype != -1
               ? Value()
               : ValueOfGroups(GroupsForPrograms(EntityNameValue(chain.get()->resval.rlname).id()));
}

Value DictSearch(Interpreter&, const Arguments& arguments)
{
    ads_name name;
    EntityNameOf(arguments[0], name);
    return GroupsOfResult(Chain(acdbDictSearch(name, TextOf(arguments[1]).c_str(), bool(arguments.Get(2)))));
}

Value DictNext(Interpreter&, const Arguments& arguments)
{
    ads_name name;
    EntityNameOf(arguments[0], name);
    return GroupsOfResult(Chain(acdbDictNext(name, bool(arguments.Get(1)))));
}

Value DictAdd(Interpreter&, const Arguments& arguments)
{
    ads_name dictionary, object;
    EntityNameOf(arguments[0], dictionary);
    EntityNameOf(arguments[2], object);
    return acdbDictAdd(dictionary, TextOf(arguments[1]).c_str(), object) == RTNORM ? arguments[2] : Value();
}

Value DictRemove(Interpreter&, const Arguments& arguments)
{
    ads_name dictionary;
    EntityNameOf(arguments[0], dictionary);
    const Chain entry(acdbDictSearch(dictionary, TextOf(arguments[1]).c_str(), 0));
    if (entry.get() == nullptr || acdbDictRemove(dictionary, TextOf(arguments[1]).c_str()) != RTNORM)
        return Value();
    return EntityNameValue(entry.get()->resval.rlname);
}

Value DictRename(Interpreter&, const Arguments& arguments)
{
    ads_name dictionary;
    EntityNameOf(arguments[0], dictionary);
    return acdbDictRename(dictionary, TextOf(arguments[1]).c_str(), TextOf(arguments[2]).c_str()) == RTNORM
               ? arguments[2]
               : Value();
}

Value RegisterApp(Interpreter&, const Arguments& arguments)
{
    const std::wstring& name = TextOf(arguments[0]);
    ads_name there;
    if (acdbTblObjName(L"APPID", name.c_str(), there) == RTNORM)
        return Value();
    return acdbRegApp(name.c_str()) == RTNORM ? arguments[0] : Value();
}

// (snvalid name [flag]): with flag 1 a "|" may stand within.
Value IsNameValid(Interpreter& lisp, const Arguments& arguments)
{
    constexpr size_t kLongestName = 255;
    const std::wstring& name = TextOf(arguments[0]);
    const bool allowsBar = arguments.Get(1) && IntegerOf(arguments[1]) == 1;
    const bool isFramed = !name.empty() && (name.front() == L' ' || name.back() == L' ');
    const size_t bad = name.find_first_of(allowsBar ? L"<>/\\\":;?*,=`" : L"<>/\\\":;?*|,=`");
    return lisp.Truth(!name.empty() && name.size() <= kLongestName && !isFramed && bad == std::wstring::npos);
}

// Of paper space only, as the host lists them.
Value Layouts(Interpreter&, const Arguments&)
{
    AcDbDatabase* database = acdbHostApplicationServices()->workingDatabase();
    AcDbDictionary* layouts = nullptr;
    ListBuilder names;
    if (database == nullptr || database->getLayoutDictionary(layouts) != Acad::eOk)
        return {};
    for (const AcDbDictionary::Entry& entry : layouts->entries()) {
        if (!entry.id.isErased() && entry.name.CompareNoCase(L"Model") != 0)
            names.Add(Value(entry.name.GetString()));
    }
    layouts->close();
    return names.Take();
}

const Builtin kRows[] = {
    {L"ENTGET", EntGet, 1, 2},
    {L"ENTMOD", EntMod, 1, 1},
    {L"ENTMAKE", EntMake, 0, 1},
    {L"ENTMAKEX", EntMakeX, 0, 1},
    {L"ENTDEL", EntDel, 1, 1},
    {L"ENTUPD", EntUpdate, 1, 1},
    {L"ENTNEXT", EntNext, 0, 1},
    {L"ENTLAST", EntLast, 0, 0},
    {L"HANDENT", HandleToEntity, 1, 1},
    {L"TBLSEARCH", TableSearch, 2, 3},
    {L"TBLNEXT", TableNext, 1, 2},
    {L"TBLOBJNAME", TableObjectName, 2, 2},
    {L"NAMEDOBJDICT", NamedObjects, 0, 0},
    {L"DICTSEARCH", DictSearch, 2, 3},
    {L"DICTNEXT", DictNext, 1, 2},
    {L"DICTADD", DictAdd, 3, 3},
    {L"DICTREMOVE", DictRemove, 2, 2},
    {L"DICTRENAME", DictRename, 3, 3},
    {L"REGAPP", RegisterApp, 1, 1},
    {L"SNVALID", IsNameValid, 1, 2},
    {L"LAYOUTLIST", Layouts, 0, 0},
};

}   // namespace

const BuiltinTable kEntities = TableOf(kRows);

}   // namespace KxPlat::Lisp
