// The purge of a whole database: every named definition that nothing refers to.
#pragma once
#include "KxHost.h"
#include "KxMfcEx/KxExport.h"

namespace KxArxBase::Db {

// Repeats until nothing more is free, since a purged block frees what it used.
KXARX_API Acad::ErrorStatus PurgeDatabase(AcDbDatabase* db);

}   // namespace KxArxBase::Db
