#include "ProgramCommands.h"
#include "../rx/ResBufs.h"
#include "../win/Fiber.h"
#include "Session.h"
#include <utility>

namespace KxPlat {

namespace {

enum class Mood { Feeding, LeftToUser, Cancelling };

// Pieces of the calls so far. Where they end within a command, the command waits for the next call.
class ProgramSource : public ArgumentSource {
public:
    ProgramSource() : ArgumentSource(nullptr) {}
    bool Next(const InputRequest& request, TextRule rule, InputPiece& piece) override
    {
        if (mood != Mood::Cancelling)
            return ArgumentSource::Next(request, rule, piece);
        if (request.kind == InputKind::Command)
            return false;
        piece = InputPiece();
        piece.type = InputPiece::Type::Cancel;
        piece.isLiteral = true;
        return true;
    }
    bool Refill() override
    {
        if (mood == Mood::Feeding)
            Fiber::Wait();
        return mood != Mood::LeftToUser;
    }
    bool Echoes() const override { return IntegerVar(L"CMDECHO") != 0; }

    Mood mood = Mood::Feeding;
};

}   // namespace

// What belongs to a command while it runs, and to the program while the command waits.
struct ProgramCommands::Running {
    explicit Running(Session& session)
        : session(session),
          home(Fiber::Current()),
          pieces(std::make_unique<ProgramSource>()),
          source(pieces.get()),
          fiber([this] { this->session.line().RunPieces(std::move(pieces)); })
    {
    }
    void SwapState()
    {
        const bool hasFailed = session.HasFailed();
        session.ClearFailure();
        if (std::exchange(failed, hasFailed))
            session.Fail();
        std::swap(session.state().rules, rules);
        std::swap(session.state().module, module);
    }

    Session& session;
    Fiber* home;                             // the stack of the program that began it
    std::unique_ptr<ProgramSource> pieces;   // until the command runs; then the input stack has it
    ProgramSource* source;
    PromptRules rules;
    void* module = session.state().module;
    bool failed = false;
    Fiber fiber;
};

// Pieces that outlive the call that gave them.
struct ProgramCommands::Answers : ArgumentSource {
    Answers() : ArgumentSource(nullptr) {}
    ~Answers() override
    {
        if (first != nullptr)
            acutRelRb(first);
    }
    void Append(const resbuf* pieces)
    {
        if (first == nullptr)
            first = CopyChain(pieces);
        else
            LastOf(first)->rbnext = CopyChain(pieces);
        Give(first);
    }
    const Fiber* home = Fiber::Current();
    resbuf* first = nullptr;
};

ProgramCommands::AtPrompt::AtPrompt(ProgramCommands& commands) : m_commands(commands)
{
    commands.m_answers.push_back(std::make_unique<Answers>());
}

ProgramCommands::AtPrompt::~AtPrompt()
{
    m_commands.m_answers.pop_back();
}

bool ProgramCommands::AtPrompt::Give()
{
    std::unique_ptr<Answers>& answers = m_commands.m_answers.back();
    if (answers->first == nullptr)
        return false;
    m_commands.m_session.input().Push(std::exchange(answers, std::make_unique<Answers>()));
    return true;
}

ProgramCommands::ProgramCommands(Session& session) : m_session(session) {}

ProgramCommands::~ProgramCommands() = default;

void ProgramCommands::CancelAll()
{
    while (Running* command = Waiting())
        End(*command, true);
}

ProgramCommands::Running* ProgramCommands::Waiting(size_t before) const
{
    for (size_t i = before; i < m_running.size(); ++i) {
        if (m_running[i]->home == Fiber::Current())
            return m_running[i].get();
    }
    return nullptr;
}

void ProgramCommands::Resume(Running& command)
{
    command.SwapState();
    command.fiber.Resume();
    command.SwapState();
}

void ProgramCommands::DropEnded()
{
    std::erase_if(m_running, [](const auto& command) { return command->fiber.IsDone(); });
}

int ProgramCommands::Feed(const resbuf* pieces)
{
    Running* command = Waiting();
    if (command == nullptr && !m_answers.empty() && m_answers.back()->home == Fiber::Current()) {
        m_answers.back()->Append(pieces);
        return RTNORM;
    }
    if (command == nullptr) {
        m_running.push_back(std::make_unique<Running>(m_session));
        command = m_running.back().get();
    }
    m_session.line().ClearCancelled();
    command->source->Give(pieces);
    Resume(*command);
    const bool failed = command->failed;
    command->failed = false;
    DropEnded();
    return m_session.line().WasCancelled() ? RTCAN : failed ? RTERROR : RTNORM;
}

void ProgramCommands::Cancel()
{
    Running* command = Waiting();
    if (command != nullptr)
        End(*command, true);
}

void ProgramCommands::End(Running& command, bool isCancelled)
{
    command.source->mood = isCancelled ? Mood::Cancelling : Mood::LeftToUser;
    Resume(command);
    if (command.failed && !isCancelled)
        m_session.Fail();
    DropEnded();
}

ProgramCommands::Scope::Scope(ProgramCommands& commands) : m_commands(commands), m_before(commands.m_running.size()) {}

void ProgramCommands::Scope::Finish()
{
    while (Running* command = m_commands.Waiting(m_before))
        m_commands.End(*command, false);
}

ProgramCommands::Scope::~Scope()
{
    while (Running* command = m_commands.Waiting(m_before))
        m_commands.End(*command, true);
}

}   // namespace KxPlat
