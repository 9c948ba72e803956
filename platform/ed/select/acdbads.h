// Objects of the current drawing by name, and their data as chains of result buffers.
#pragma once
#include "../../db/AcDbObjectId.h"
#include "../../rx/acadstrc.h"
#include "../../rx/adsdef.h"

Acad::ErrorStatus acdbGetObjectId(AcDbObjectId& id, const ads_name name);
Acad::ErrorStatus acdbGetAdsName(ads_name name, AcDbObjectId id);
int acdbHandEnt(const ACHAR* handle, ads_name result);

// A new chain from group -1 on, which the caller frees; null for an erased or unknown object. With `apps` (a chain of
// RTSTR) the extended data of these applications follows a group -3.
resbuf* acdbEntGet(const ads_name entity);
resbuf* acdbEntGetX(const ads_name entity, const resbuf* apps);
// Groups that the chain leaves out stay as they are.
int acdbEntMod(const resbuf* groups);
// A null chain gives up a block or polyline that was begun.
int acdbEntMake(const resbuf* groups);
int acdbEntMakeX(const resbuf* groups, ads_name result);
int acdbEntDel(const ads_name entity);   // or brings an erased one back
int acdbEntUpd(const ads_name entity);
// The entity behind another one, parts of polylines and insertions included; null gives the first of the drawing.
int acdbEntNext(const ads_name entity, ads_name result);
int acdbEntLast(ads_name result);

// "LAYER", "LTYPE", "BLOCK", ... A new chain, or null. `setNext` lets acdbTblNext go on behind the record found.
resbuf* acdbTblSearch(const ACHAR* table, const ACHAR* name, int setNext);
resbuf* acdbTblNext(const ACHAR* table, int rewind);
int acdbTblObjName(const ACHAR* table, const ACHAR* name, ads_name result);
int acdbNamedObjDict(ads_name result);
resbuf* acdbDictSearch(const ads_name dictionary, const ACHAR* name, int setNext);
resbuf* acdbDictNext(const ads_name dictionary, int rewind);
int acdbDictAdd(const ads_name dictionary, const ACHAR* name, const ads_name object);
int acdbDictRemove(const ads_name dictionary, const ACHAR* name);
int acdbDictRename(const ads_name dictionary, const ACHAR* oldName, const ACHAR* newName);

// RTNORM also when the name is registered already.
int acdbRegApp(const ACHAR* name);
