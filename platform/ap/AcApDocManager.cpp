#include "AcApDocManager.h"
#include "../ui/HostUi.h"
#include "DocumentList.h"
#include <algorithm>

using KxPlat::DocumentList;
using KxPlat::Documents;
using KxPlat::StateOf;

ACRX_NO_CONS_DEFINE_MEMBERS(AcApDocManager, AcRxObject)
ACRX_NO_CONS_DEFINE_MEMBERS(AcApDocManagerReactor, AcRxObject)

namespace {

class Walk : public AcApDocumentIterator {
public:
    Walk() : m_documents(Documents().All()) {}
    bool done() const override { return m_at >= m_documents.size(); }
    void step() override { m_at += !done(); }
    AcApDocument* document() override { return done() ? nullptr : m_documents[m_at]; }

private:
    const std::vector<AcApDocument*> m_documents;
    size_t m_at = 0;
};

// What a change of a document's locks looks like to reactors.
class LockChange {
public:
    LockChange(AcApDocument* document, const ACHAR* command)
        : m_document(document), m_command(command != nullptr ? command : L""), m_before(document->myLockMode())
    {
    }
    void Announce(AcAp::DocLockMode next) const
    {
        Documents().Tell([&](AcApDocManagerReactor& reactor) {
            reactor.documentLockModeWillChange(m_document, m_before, next, m_document->lockMode(), m_command);
        });
    }
    void Done() const
    {
        Documents().Tell([&](AcApDocManagerReactor& reactor) {
            reactor.documentLockModeChanged(m_document, m_before, m_document->myLockMode(), m_document->lockMode(),
                                            m_command);
        });
    }

private:
    AcApDocument* m_document;
    const ACHAR* m_command;
    AcAp::DocLockMode m_before;
};

}   // namespace

AcApDocManager* acDocManagerPtr()
{
    static AcApDocManager manager;
    return &manager;
}

AcApDocument* AcApDocManager::curDocument() const
{
    return Documents().Current();
}

AcApDocument* AcApDocManager::mdiActiveDocument() const
{
    return Documents().Current();
}

AcApDocument* AcApDocManager::document(const AcDbDatabase* database) const
{
    for (AcApDocument* document : Documents().All()) {
        if (document->database() == database)
            return document;
    }
    return nullptr;
}

AcApDocumentIterator* AcApDocManager::newAcApDocumentIterator()
{
    return new Walk;
}

int AcApDocManager::documentCount() const
{
    return int(Documents().All().size());
}

bool AcApDocManager::isApplicationContext() const
{
    return std::all_of(Documents().All().begin(), Documents().All().end(),
                       [](const AcApDocument* document) { return document->isQuiescent(); });
}

Acad::ErrorStatus AcApDocManager::lockDocument(AcApDocument* document, AcAp::DocLockMode mode,
                                               const ACHAR* globalCmdName, const ACHAR*, bool)
{
    if (!Documents().Has(document))
        return Acad::eNoDocument;
    if (mode == AcAp::kNone || mode == AcAp::kNotLocked)
        return Acad::eInvalidInput;
    const LockChange change(document, globalCmdName);
    change.Announce(mode);
    StateOf(*document).locks.push_back(mode);
    change.Done();
    return Acad::eOk;
}

Acad::ErrorStatus AcApDocManager::unlockDocument(AcApDocument* document)
{
    if (!Documents().Has(document))
        return Acad::eNoDocument;
    std::vector<AcAp::DocLockMode>& locks = StateOf(*document).locks;
    if (locks.empty())
        return Acad::eLockViolation;
    const LockChange change(document, nullptr);
    change.Announce(locks.size() > 1 ? locks[locks.size() - 2] : AcAp::kNotLocked);
    locks.pop_back();
    change.Done();
    return Acad::eOk;
}

Acad::ErrorStatus AcApDocManager::setCurDocument(AcApDocument* document, AcAp::DocLockMode mode, bool)
{
    if (!Documents().Has(document))
        return Acad::eNoDocument;
    Documents().MakeCurrent(document);
    return mode == AcAp::kNone ? Acad::eOk : lockDocument(document, mode);
}

Acad::ErrorStatus AcApDocManager::activateDocument(AcApDocument* document, bool)
{
    if (!Documents().Has(document))
        return Acad::eNoDocument;
    if (document != curDocument() && !isApplicationContext())
        return Acad::eDocumentSwitchDisabled;
    Documents().MakeCurrent(document);
    return Acad::eOk;
}

Acad::ErrorStatus AcApDocManager::sendStringToExecute(AcApDocument* document, const ACHAR* text, bool activate, bool,
                                                      bool echo)
{
    if (!Documents().Has(document))
        return Acad::eNoDocument;
    if (text == nullptr)
        return Acad::eInvalidInput;
    StateOf(*document).queue.push_back({text, activate, echo});
    return Acad::eOk;
}

Acad::ErrorStatus AcApDocManager::appContextNewDocument(const ACHAR* templateName)
{
    if (!isApplicationContext())
        return Acad::eInvalidContext;
    AcApDocument* document = nullptr;
    std::wstring why;
    return KxPlat::NewDrawing(templateName != nullptr ? templateName : L"", document, why);
}

Acad::ErrorStatus AcApDocManager::appContextOpenDocument(const ACHAR* fileName)
{
    if (!isApplicationContext())
        return Acad::eInvalidContext;
    if (fileName == nullptr)
        return Acad::eInvalidInput;
    AcApDocument* document = nullptr;
    std::wstring why;
    return KxPlat::OpenDrawing(fileName, document, why);
}

Acad::ErrorStatus AcApDocManager::newDocument()
{
    return appContextNewDocument(nullptr);
}

Acad::ErrorStatus AcApDocManager::openDocument()
{
    std::wstring path;
    if (!KxPlat::Ui().AskFileName({L"Select File", L"", L"dwg;dxf", false}, path))
        return Acad::eUserBreak;
    return appContextOpenDocument(path.c_str());
}

Acad::ErrorStatus AcApDocManager::closeDocument(AcApDocument* document)
{
    if (!Documents().Has(document))
        return Acad::eNoDocument;
    if (!document->isQuiescent())
        return Acad::eTargetDocNotQuiescent;
    Documents().Close(document);
    return Acad::eOk;
}

void AcApDocManager::addReactor(AcApDocManagerReactor* reactor)
{
    removeReactor(reactor);
    Documents().reactors.push_back(reactor);
}

void AcApDocManager::removeReactor(AcApDocManagerReactor* reactor)
{
    std::erase(Documents().reactors, reactor);
}

void AcApDocManager::pushResourceHandle(HINSTANCE resources)
{
    Documents().resources.push_back(resources);
}

void AcApDocManager::pushAcadResourceHandle()
{
    pushResourceHandle(nullptr);   // the program's
}

void AcApDocManager::popResourceHandle()
{
    if (!Documents().resources.empty())
        Documents().resources.pop_back();
}
