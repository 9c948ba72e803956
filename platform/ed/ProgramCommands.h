// Commands that a LISP program runs piece by piece: (command "LINE" p1) (command p2 ""). What a call leaves open, the
// next one answers; what the program leaves open when it has ended, the user answers.
#pragma once
#include "../rx/adsdef.h"
#include <memory>
#include <vector>

namespace KxPlat {

class Session;

class ProgramCommands {
public:
    explicit ProgramCommands(Session& session);
    ~ProgramCommands();
    ProgramCommands(const ProgramCommands&) = delete;

    // Begins commands with these pieces, or goes on with the one that waits. RTCAN when the user broke it off,
    // RTERROR when a command in it failed. The chain stays the caller's.
    int Feed(const resbuf* pieces);
    // Esc for the command that waits, if one does.
    void Cancel();
    void CancelAll();   // before the session ends

    // Around a form that stands at the prompt of a command: what it gives to (command) are answers to that command.
    class AtPrompt {
    public:
        explicit AtPrompt(ProgramCommands& commands);
        ~AtPrompt();
        // The answers are asked for next. False when there are none.
        bool Give();

    private:
        ProgramCommands& m_commands;
    };

    // Around a program. In the end the commands that it began and did not end are given to the user, after a failure
    // they are cancelled.
    class Scope {
    public:
        explicit Scope(ProgramCommands& commands);
        ~Scope();
        void Finish();

    private:
        ProgramCommands& m_commands;
        size_t m_before;
    };

private:
    struct Running;
    // Of the program that runs now, begun behind the first `before`; a command may run a program of its own.
    Running* Waiting(size_t before = 0) const;
    void End(Running& command, bool isCancelled);
    void Resume(Running& command);
    void DropEnded();

    struct Answers;

    Session& m_session;
    std::vector<std::unique_ptr<Answers>> m_answers;   // of the forms at prompts, innermost last
    std::vector<std::unique_ptr<Running>> m_running;   // innermost last
};

}   // namespace KxPlat
