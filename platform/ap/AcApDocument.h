// One open drawing: its database, its name, its locks. Documents belong to the document manager.
#pragma once
#include "../rx/AcRxObject.h"
#include "AcApDocLockMode.h"
#include <memory>

class AcApDocManager;
class AcApDocument;
class AcDbDatabase;
class AcEdInputPointManager;

namespace KxPlat {
class DocumentList;
struct DocumentState;
DocumentState& StateOf(AcApDocument& document);
}   // namespace KxPlat

class AcApDocument : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcApDocument);

    enum SaveFormat {
        kR12_dxf = 1,
        kR13_dwg = 4,
        kR13_dxf = 5,
        kR14_dwg = 8,
        kR14_dxf = 9,
        k2000_dwg = 12,
        k2000_dxf = 13,
        k2000_Template = 14,
        k2000_Standard = 15,
        k2004_dwg = 24,
        k2004_dxf = 25,
        k2004_Template = 26,
        k2004_Standard = 27,
        k2007_dwg = 36,
        k2007_dxf = 37,
        k2007_Template = 38,
        k2007_Standard = 39,
        k2010_dwg = 48,
        k2010_dxf = 49,
        k2010_Template = 50,
        k2010_Standard = 51,
        k2013_dwg = 60,
        k2013_dxf = 61,
        k2013_Template = 62,
        k2013_Standard = 63,
        kUnknown = -1
    };

    ~AcApDocument() override;
    AcApDocument(const AcApDocument&) = delete;
    AcApDocument& operator=(const AcApDocument&) = delete;

    // The path in drive form; for a drawing never saved only a name such as "Drawing1.dwg".
    const ACHAR* fileName() const;
    const ACHAR* docTitle() const;
    AcDbDatabase* database() const;
    AcEdInputPointManager* inputPointManager() const;

    // The strongest lock on the document, kNotLocked for none. All locks are those of the code that runs now, so that
    // without `includeMyLocks` there never is any.
    AcAp::DocLockMode lockMode(bool includeMyLocks = false) const;
    AcAp::DocLockMode myLockMode() const;
    bool isQuiescent() const;   // no command runs in it
    bool isReadOnly() const;
    bool isNamedDrawing() const;

    // The format that a plain save of the drawing writes.
    SaveFormat formatForSave() const;

private:
    friend class KxPlat::DocumentList;
    friend KxPlat::DocumentState& KxPlat::StateOf(AcApDocument& document);
    explicit AcApDocument(std::unique_ptr<KxPlat::DocumentState> state);

    std::unique_ptr<KxPlat::DocumentState> m_state;
};

// Walks the open documents in the order in which they were opened. The caller deletes it.
class AcApDocumentIterator {
public:
    virtual ~AcApDocumentIterator() = default;
    virtual bool done() const = 0;
    virtual void step() = 0;
    virtual AcApDocument* document() = 0;
};
