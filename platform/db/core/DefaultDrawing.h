// What every drawing has: nine tables with their standard records, the spaces, the named object dictionary.
#pragma once
#include "DbCore.h"

class AcDbDictionary;
class AcDbSymbolTableRecord;

namespace KxPlat {

// A new empty drawing, metric, with one layout.
void BuildDefaultDrawing(DbCore& core);
// Adds what a file left out, and leaves all that it has.
void CompleteDrawing(DbCore& core);

// The table of this kind, made when missing. `handle` 0: any free one.
AcDbSymbolTable* EnsureTable(DbCore& core, TableKind kind, uint64_t handle = 0);
// A new table object of this kind, not yet in the database.
AcDbSymbolTable* NewTable(TableKind kind);
AcDbSymbolTableRecord* NewRecord(TableKind kind);
// Adopts a record into its table: handle as wanted where it is free.
AcDbStub* AttachRecord(DbCore& core, TableKind kind, AcDbSymbolTableRecord* record, uint64_t handle);
AcDbDictionary* EnsureDictionary(DbCore& core, AcDbDictionary* parent, const wchar_t* name);

}   // namespace KxPlat
