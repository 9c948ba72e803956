// The one stack of input sources. Every prompt takes its next piece from the top: arguments of acedCommand, LISP's
// (command ...), queued strings, scripts, and at the bottom the keyboard, which is HostUi::Ask.
#pragma once
#include "../rx/adsdef.h"
#include "../ui/HostUi.h"
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace KxPlat {

// What a prompt got.
struct InputPiece {
    enum class Type {
        Text,     // typed, or as good as typed; empty text is Enter
        Value,    // one result buffer: a point, a number, an entity name, a selection set
        Cancel,   // Esc
        End       // no source has anything left
    };
    Type type = Type::End;
    std::wstring text;
    resbuf value = {};   // for Value; a text in it is not used, RTSTR comes as Text
    std::vector<void*>
        objects;              // AcDbStub pointers that a pointing host picked; Value with restype RTPICKS and no name
    bool isLiteral = false;   // handed over by a program: no LISP form, no "!", no transparent command

    bool IsEnter() const { return type == Type::Text && text.empty(); }
};

// How much of a line a prompt takes. A blank ends a word, and counts as Enter where nothing stands before it.
enum class TextRule { Word, Line };

class InputSource {
public:
    virtual ~InputSource() = default;
    // False when nothing is left; the stack then drops the source.
    virtual bool Next(const InputRequest& request, TextRule rule, InputPiece& piece) = 0;
    virtual bool IsScript() const { return false; }     // a failure under it is the session's failure
    virtual bool IsKeyboard() const { return false; }   // shows its prompts itself
    virtual bool IsProgram() const { return false; }    // arguments of acedCommand: nothing is echoed
    virtual bool Echoes() const { return true; }
};

// Cuts text into pieces: words, lines, LISP forms over several lines, escapes (characters 27 and 3).
class TextPieces {
public:
    explicit TextPieces(std::wstring text) : m_text(std::move(text)) {}
    bool IsDone() const { return m_at >= m_text.size(); }
    // At the command level of a script, lines that begin with ";" are passed over.
    bool Next(InputKind kind, TextRule rule, bool hasComments, InputPiece& piece);
    // The number of the line that the next piece stands on, from 1.
    int Line() const { return m_line; }

private:
    void SkipComments();
    void TakeForm(InputPiece& piece);
    wchar_t Take();
    void PassLineEnd();

    std::wstring m_text;
    size_t m_at = 0;
    int m_line = 1;
};

// Text as if typed: a script, a queued string, a line of -c.
class TextSource : public InputSource {
public:
    enum class Kind { Script, Typed, Queued };
    TextSource(std::wstring text, Kind kind, bool echo = true) : m_pieces(std::move(text)), m_kind(kind), m_echo(echo)
    {
    }
    bool Next(const InputRequest& request, TextRule rule, InputPiece& piece) override;
    bool IsScript() const override { return m_kind != Kind::Queued; }
    bool Echoes() const override { return m_echo; }

private:
    TextPieces m_pieces;
    Kind m_kind;
    bool m_echo;
};

// Arguments of acedCommand and LISP's command. RTSTR "" is Enter, RTSTR "\\" (PAUSE) asks the source below.
class ArgumentSource : public InputSource {
public:
    explicit ArgumentSource(const resbuf* arguments) : m_next(arguments) {}   // the chain stays the caller's
    bool Next(const InputRequest& request, TextRule rule, InputPiece& piece) override;
    bool IsProgram() const override { return true; }
    bool IsDone() const { return m_next == nullptr; }

private:
    const resbuf* m_next;
};

class InputStack {
public:
    InputStack();
    InputStack(const InputStack&) = delete;

    // The stack owns what is pushed, until it is used up or removed.
    InputSource* Push(std::unique_ptr<InputSource> source);
    void Remove(const InputSource* source);
    // The next piece for a prompt. Shows prompt and answer where the keyboard does not do so itself.
    InputPiece Next(const InputRequest& request, TextRule rule);
    // Esc: drops what programs and queues still hold. Scripts stay.
    void DropPrograms();

    bool IsScripted() const;   // the next piece comes from a script
    size_t Depth() const { return m_sources.size(); }
    void SetEcho(bool echo) { m_echo = echo; }                    // off: pieces of scripts are not shown
    void SetKeyboard(bool isThere) { m_hasKeyboard = isThere; }   // without one, input ends when scripts end

private:
    class Keyboard;
    void Show(const InputSource& source, const InputRequest& request, const InputPiece& piece) const;

    std::vector<std::unique_ptr<InputSource>> m_sources;
    std::unique_ptr<Keyboard> m_keyboard;
    bool m_echo = true;
    bool m_hasKeyboard = true;

public:
    ~InputStack();
};

}   // namespace KxPlat
