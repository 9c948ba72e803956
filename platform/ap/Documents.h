// What the platform knows of documents besides the documented calls: parts that other layers hang on them, their input
// queues, opening with a full report, and what modules must be told.
#pragma once
#include "../db/AcDb.h"
#include "../db/core/FileFormats.h"
#include "AcApDocManager.h"
#include <functional>
#include <map>
#include <string>
#include <typeindex>
#include <vector>

namespace KxPlat {

// Something that lives as long as a document: its LISP variables, its input points, its selection.
struct DocumentPart {
    virtual ~DocumentPart() = default;
};

struct QueuedText {
    std::wstring text;
    bool activate = true;
    bool echo = true;
};

struct DocumentState {
    std::unique_ptr<AcDbDatabase> database;
    std::wstring fileName;
    std::wstring title;
    bool isReadOnly = false;
    bool isNamed = false;
    int commandDepth = 0;
    AcDb::AcDbDwgVersion saveVersion = AcDb::kDHL_CURRENT;   // of a plain save; kDHL_CURRENT: that of the file
    std::vector<AcAp::DocLockMode> locks;
    std::vector<QueuedText> queue;
    std::map<std::type_index, std::unique_ptr<DocumentPart>> parts;
};
// The part of this type; made on first asking.
template <class Part>
Part& PartOf(AcApDocument& document)
{
    std::unique_ptr<DocumentPart>& part = StateOf(document).parts[std::type_index(typeid(Part))];
    if (part == nullptr)
        part = std::make_unique<Part>();
    return static_cast<Part&>(*part);
}

// Adds a document around a database and makes it the active one. An empty name becomes "DrawingN.dwg".
AcApDocument* AddDocument(std::unique_ptr<AcDbDatabase> database, const std::wstring& fileName);
// Reads a drawing; on failure `why` says in one line what is wrong with it ("line 12, group 40: ...").
Acad::ErrorStatus OpenDrawing(const std::wstring& path, AcApDocument*& document, std::wstring& why);
// A new drawing, after the template when one is named.
Acad::ErrorStatus NewDrawing(const std::wstring& templatePath, AcApDocument*& document, std::wstring& why);
// By the extension of `path`; kDHL_CURRENT keeps the version that the drawing was last saved in.
Acad::ErrorStatus SaveDrawing(AcApDocument& document, const std::wstring& path, AcDb::AcDbDwgVersion version,
                              std::wstring& why);
// The document takes another name: that of the file which it was saved to.
void RenameDocument(AcApDocument& document, const std::wstring& path);
const std::vector<AcApDocument*>& OpenDocuments();   // in the order of opening
// Makes another document the one that runs and that input goes to; null for none.
void MakeCurrent(AcApDocument* document);
void CloseAllDocuments();
HINSTANCE ResourceHandle();   // the one pushed last; null for the host's own

// Told after a document was added and before it goes; the editor passes it on to modules. One listener.
struct DocumentListener {
    std::function<void(AcApDocument&)> added;
    std::function<void(AcApDocument&)> closing;
};
void SetDocumentListener(DocumentListener listener);

}   // namespace KxPlat
