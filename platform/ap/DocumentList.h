// The documents themselves; the document manager and ap/Documents.h work on it.
#pragma once
#include "../mfc/Escaped.h"
#include "Documents.h"

namespace KxPlat {

class DocumentList {
public:
    AcApDocument* Add(std::unique_ptr<DocumentState> state);
    void Close(AcApDocument* document);
    void CloseAll();
    void MakeCurrent(AcApDocument* document);

    const std::vector<AcApDocument*>& All() const { return m_documents; }
    bool Has(const AcApDocument* document) const;
    AcApDocument* Current() const { return m_current; }
    std::wstring NewName();   // "Drawing1.dwg", "Drawing2.dwg", ...

    // Tells each reactor, also when one of them takes itself away.
    template <class Work>
    void Tell(Work&& work)
    {
        const std::vector<AcApDocManagerReactor*> told = reactors;
        for (AcApDocManagerReactor* reactor : told)
            Guarded(L"a reactor of the documents", true, [&] { return work(*reactor), true; });
    }

    std::vector<AcApDocManagerReactor*> reactors;
    std::vector<HINSTANCE> resources;
    DocumentListener listener;

private:
    std::vector<AcApDocument*> m_documents;   // owned
    AcApDocument* m_current = nullptr;
    int m_lastNumber = 0;
};

DocumentList& Documents();

}   // namespace KxPlat
