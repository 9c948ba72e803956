// Drawings that stand in another one as blocks. Such a block keeps the path of its drawing; what the drawing shows is
// read from there each time, and records that came with it are named "xref|name".
#pragma once
#include "../rx/acadstrc.h"
#include "../rx/AdeskTypes.h"
#include "AcDbObject.h"

// Makes a block that stands for the drawing, and loads it; nothing is inserted. An overlay is not seen in drawings that
// the host is itself attached to. A drawing that cannot be found leaves nothing behind: eFileNotFound.
// eDuplicateRecordName when there is a block of that name; eXRefDependent for a ring of drawings.
Acad::ErrorStatus acdbAttachXref(AcDbDatabase* host, const ACHAR* fileName, const ACHAR* blockName,
                                 AcDbObjectId& xrefBlock);
Acad::ErrorStatus acdbOverlayXref(AcDbDatabase* host, const ACHAR* fileName, const ACHAR* blockName,
                                  AcDbObjectId& xrefBlock);
// Erases the block with its insertions, its dependent records, and xrefs that came with it alone.
Acad::ErrorStatus acdbDetachXref(AcDbDatabase* host, AcDbObjectId xrefBlock);
// Insertions show nothing until the xref is loaded again.
Acad::ErrorStatus acdbUnloadXrefs(AcDbDatabase* host, const AcDbObjectIdArray& xrefBlocks, bool quiet = true);
// Reads the drawings anew. The status of the last one that failed.
Acad::ErrorStatus acdbReloadXrefs(AcDbDatabase* host, const AcDbObjectIdArray& xrefBlocks, bool quiet = true);
// Makes the xrefs, and those within them, parts of the host. Records "xref|name" become "xref$0$name", or with
// `insertBind` plain "name", where an existing record of that name takes their place. An xref without its drawing is
// refused (eXRefDependent) unless `allowUnresolved`, which leaves it as it is.
Acad::ErrorStatus acdbBindXrefs(AcDbDatabase* host, const AcDbObjectIdArray& xrefBlocks, bool insertBind,
                                bool allowUnresolved = false, bool quiet = true);
// Loads every xref of the drawing, or those alone that are not loaded yet.
Acad::ErrorStatus acdbResolveCurrentXRefs(AcDbDatabase* host, bool useThreadEngine = true, bool doNewOnly = false);
