// The frame around each command.
#include "../db/AcDbDatabase.h"
#include "../db/core/DbCore.h"
#include "../db/core/Stub.h"
#include "../mfc/Escaped.h"
#include "../win/Format.h"
#include "CommandLine.h"
#include "select/DocumentSelection.h"
#include "Session.h"
#include <algorithm>

namespace KxPlat {

namespace {

struct LockRow {
    Adesk::Int32 flag;
    AcAp::DocLockMode mode;
};

// By the first flag that is set; a command without any of them writes.
const LockRow g_locks[] = {{ACRX_CMD_SESSION, AcAp::kNone},
                           {ACRX_CMD_NOINTERNALLOCK, AcAp::kNone},
                           {ACRX_CMD_DOCREADLOCK, AcAp::kRead},
                           {ACRX_CMD_DOCEXCLUSIVELOCK, AcAp::kXWrite}};

AcAp::DocLockMode LockFor(Adesk::Int32 flags)
{
    for (const LockRow& row : g_locks) {
        if ((flags & row.flag) != 0)
            return row.mode;
    }
    return AcAp::kWrite;
}

bool IsOpen(const AcApDocument* document)
{
    return std::find(OpenDocuments().begin(), OpenDocuments().end(), document) != OpenDocuments().end();
}

// What surrounds a command, set up and taken down again on every way out. A session command may close the document.
class Frame {
public:
    Frame(AcApDocument* document, RunningCommand command)
        : m_document(document),
          m_command(std::move(command)),
          m_openObjects(OpenObjectCount()),
          m_isInDocument(document != nullptr && (m_command.flags & ACRX_CMD_SESSION) == 0)
    {
        EditorState& editor = *TheEditor();
        m_outerModule = std::exchange(editor.module, m_command.module);
        Mark(editor.running.empty());
        editor.running.push_back(m_command);
        if (!m_isInDocument)
            return;
        DocumentState& state = StateOf(*document);
        ++state.commandDepth;
        m_locks = state.locks.size();
        const AcAp::DocLockMode mode = LockFor(m_command.flags);
        if (mode != AcAp::kNone)
            acDocManager->lockDocument(document, mode, m_command.globalName.c_str());
    }
    ~Frame()
    {
        EditorState& editor = *TheEditor();
        editor.running.pop_back();
        editor.module = m_outerModule;
        editor.rules = {};
        if (editor.running.empty())
            editor.meter.reset();
        if (!m_isInDocument || !IsOpen(m_document))
            return;
        DocumentState& state = StateOf(*m_document);
        --state.commandDepth;
        while (state.locks.size() > m_locks)
            acDocManager->unlockDocument(m_document);
    }
    Frame(const Frame&) = delete;

    // Objects that the command left open.
    bool IsBalanced() const
    {
        const long left = OpenObjectCount() - m_openObjects;
        if (left == 0 || (m_document != nullptr && !IsOpen(m_document)))
            return true;
        Ui().Complain(m_command.globalName + Format(L": left %ld objects open", left));
        return false;
    }

private:
    // Each command of the user's is one step of undo.
    void Mark(bool isOutermost) const
    {
        if (m_document == nullptr || !isOutermost)
            return;
        if ((m_command.flags & ACRX_CMD_NO_UNDO_MARKER) == 0)
            CoreOf(*m_document->database()).undo.Begin(m_command.globalName.c_str());
        if ((m_command.flags & (ACRX_CMD_USEPICKSET | ACRX_CMD_TRANSPARENT | ACRX_CMD_SESSION)) == 0)
            ClearPickFirst(*m_document);
    }

    AcApDocument* m_document;
    RunningCommand m_command;
    long m_openObjects;
    bool m_isInDocument;
    size_t m_locks = 0;
    void* m_outerModule = nullptr;
};

// No exception of a command gets any further.
template <class Work>
bool Framed(AcApDocument* document, RunningCommand command, Work&& work)
{
    const std::wstring name = command.globalName;
    const Frame frame(document, std::move(command));
    bool isGood = false;
    try {
        isGood = work();
    } catch (...) {
        Ui().Print(L"\n" + name + L": " + EscapedException());
    }
    return frame.IsBalanced() && isGood;
}

}   // namespace

bool RunCommand(const AcEdCommand& command, bool isTransparent)
{
    const AcRxFunctionPtr function = command.functionAddr();
    if (function == nullptr)
        return false;
    RunningCommand running{command.globalName(), command.commandFlags(), isTransparent, ModuleOf(command)};
    Session& session = *Session::Current();
    const bool hadFailed = session.HasFailed();
    session.ClearFailure();
    const bool isGood = Framed(acDocManager->curDocument(), std::move(running), [&] {
        function();
        return true;
    });
    const bool failed = !isGood || session.HasFailed();
    if (hadFailed)
        session.Fail();
    return !failed;
}

bool RunLispCommand(AcApDocument& document, const std::wstring& name)
{
    return Framed(&document, {name, ACRX_CMD_MODAL, false, nullptr},
                  [&] { return TheLispHook() != nullptr && TheLispHook()->RunCommand(document, name); });
}

}   // namespace KxPlat
