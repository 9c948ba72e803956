#include "DocumentList.h"
#include "../db/AcDbDatabase.h"
#include "../db/AcDbHostApplicationServices.h"
#include <algorithm>

namespace KxPlat {

DocumentList& Documents()
{
    static DocumentList documents;
    return documents;
}

AcApDocument* DocumentList::Add(std::unique_ptr<DocumentState> state)
{
    auto* document = new AcApDocument(std::move(state));
    m_documents.push_back(document);
    Tell([&](AcApDocManagerReactor& reactor) { reactor.documentCreateStarted(document); });
    MakeCurrent(document);
    Tell([&](AcApDocManagerReactor& reactor) { reactor.documentCreated(document); });
    if (listener.added)
        listener.added(*document);
    return document;
}

// Modules are told while the document still is the current one.
void DocumentList::Close(AcApDocument* document)
{
    AcApDocument* next = m_current != document ? m_current : nullptr;
    MakeCurrent(document);
    if (listener.closing)
        listener.closing(*document);
    Tell([&](AcApDocManagerReactor& reactor) { reactor.documentToBeDestroyed(document); });
    m_documents.erase(std::find(m_documents.begin(), m_documents.end(), document));
    if (next == nullptr && !m_documents.empty())
        next = m_documents.back();
    const std::wstring name = document->fileName();
    MakeCurrent(next);
    StateOf(*document).parts.clear();
    delete document;
    Tell([&](AcApDocManagerReactor& reactor) { reactor.documentDestroyed(name.c_str()); });
}

void DocumentList::CloseAll()
{
    while (!m_documents.empty())
        Close(m_documents.back());
    m_lastNumber = 0;
}

void DocumentList::MakeCurrent(AcApDocument* document)
{
    if (document == m_current)
        return;
    if (m_current != nullptr)
        Tell([&](AcApDocManagerReactor& reactor) { reactor.documentToBeDeactivated(m_current); });
    if (document != nullptr)
        Tell([&](AcApDocManagerReactor& reactor) { reactor.documentToBeActivated(document); });
    m_current = document;
    acdbHostApplicationServices()->setWorkingDatabase(document != nullptr ? document->database() : nullptr);
    if (document == nullptr)
        return;
    Tell([&](AcApDocManagerReactor& reactor) { reactor.documentBecameCurrent(document); });
    Tell([&](AcApDocManagerReactor& reactor) { reactor.documentActivated(document); });
}

bool DocumentList::Has(const AcApDocument* document) const
{
    return std::find(m_documents.begin(), m_documents.end(), document) != m_documents.end();
}

std::wstring DocumentList::NewName()
{
    return L"Drawing" + std::to_wstring(++m_lastNumber) + L".dwg";
}

}   // namespace KxPlat
