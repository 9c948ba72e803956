// Runs a function of the caller's on the database of a drawing file.
#pragma once
#include "KxHost.h"
#include "KxMfcEx/KxExport.h"

namespace KxArxBase::Db {

typedef Acad::ErrorStatus (*FileFunction)(AcDbDatabase* db, void* userData);

// Outside the editor: reads the file, calls `fn` (its answer is not used) and saves the file in version AC1024, the old
// one kept as a backup. In the editor, which must be in the application context (else eInvalidContext): opens it as a
// document, calls `fn` with the document locked, and queues `command` (may be null) as its input; the answer is fn's.
KXARX_API Acad::ErrorStatus OpenAcDbFileDoFun(const wchar_t* file, void* userData, FileFunction fn, int inEditor,
                                              const wchar_t* command);
// The same with a new drawing: saved to `file`, or in the editor a document after the template `file` (null: the plain
// one).
KXARX_API Acad::ErrorStatus NewAcDbFileDoFun(const wchar_t* file, void* userData, FileFunction fn, int inEditor,
                                             const wchar_t* command);

}   // namespace KxArxBase::Db
