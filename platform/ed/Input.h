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
        objects;               // AcDbStub pointers that a pointing host picked; Value with restype RTPICKS and no name
    bool isLiteral = false;    // handed over by a program: no LISP form, no "!", no transparent command
    bool isScripted = false;   // from a script: a bad answer is the session's failure
    bool isSent = false;       // by a module, to the command line
    bool isTyped = false;      // by the user, now
    bool isPause = false;      // of a program that wants the user to answer

    bool IsEnter() const { return type == Type::Text && text.empty(); }
};

// How much of a line a prompt takes. A blank ends a word, and counts as Enter where nothing stands before it.
enum class TextRule { Word, Line };

class InputSource {
public:
    virtual ~InputSource() = default;
    // False when nothing is left; the stack then drops the source.
    virtual bool Next(const InputRequest& request, TextRule rule, InputPiece& piece) = 0;
    // At a prompt that the source could not answer any more: true when it can now.
    virtual bool Refill() { return false; }
    virtual bool IsProgram() const { return false; }   // goes when the user cancels
    virtual bool Echoes() const { return true; }       // prompts and answers are shown
};

// Cuts text into pieces: words, lines, LISP forms over several lines, escapes (characters 27 and 3). At the command
// level a ";" starts a comment that ends with its line.
class TextPieces {
public:
    TextPieces() = default;
    explicit TextPieces(std::wstring_view text);
    bool Next(InputKind kind, TextRule rule, InputPiece& piece);
    bool IsDone() const { return m_at >= m_text.size(); }
    // A LISP form at its end lacks this many closing parentheses.
    int MissingParentheses() const;

private:
    void SkipComments();
    void TakeWord(InputPiece& piece);
    void TakeLine(InputPiece& piece);
    void TakeForm(InputPiece& piece);

    std::wstring m_text;   // lines end with "\n"
    size_t m_at = 0;
};

// Text as if typed: a script, a line given to the program, a string that a module sent.
class TextSource : public InputSource {
public:
    enum class Kind { Script, Sent };
    TextSource(std::wstring_view text, Kind kind, bool echoes = true) : m_pieces(text), m_kind(kind), m_echoes(echoes)
    {
    }
    bool Next(const InputRequest& request, TextRule rule, InputPiece& piece) override;
    bool IsProgram() const override { return m_kind == Kind::Sent; }
    bool Echoes() const override { return m_echoes; }

private:
    TextPieces m_pieces;
    Kind m_kind;
    bool m_echoes;
};

// A script file's text: UTF-8, with or without its mark, else the ANSI code page.
std::wstring ScriptText(std::string_view bytes);

// Arguments of acedCommand and LISP's command. RTSTR "" is Enter, RTSTR "\\" (PAUSE) asks the source below.
class ArgumentSource : public InputSource {
public:
    explicit ArgumentSource(const resbuf* arguments) : m_next(arguments) {}   // the chain stays the caller's
    bool Next(const InputRequest& request, TextRule rule, InputPiece& piece) override;
    bool IsProgram() const override { return true; }
    bool Echoes() const override { return false; }
    void Give(const resbuf* arguments) { m_next = arguments; }

private:
    const resbuf* m_next;
};

class InputStack {
public:
    InputStack();
    ~InputStack();
    InputStack(const InputStack&) = delete;

    // The stack owns what is pushed, until it is used up or removed.
    const InputSource* Push(std::unique_ptr<InputSource> source);
    void Remove(const InputSource* source);
    bool Has(const InputSource* source) const;
    // The next piece for a prompt. Shows prompt and answer where the keyboard does not do so itself. With `until`, what
    // lies below that source is left alone: the input ends with it.
    InputPiece Next(const InputRequest& request, TextRule rule, const InputSource* until = nullptr);
    // What the user's Esc does: programs and sent strings end, and the rest of a typed line.
    void DropPrograms();
    void DropAll();

    bool HasMore() const { return !m_sources.empty() || m_hasKeyboard; }
    bool HasSent() const;   // a program's piece or a sent string comes next
    bool IsKeyboardNext() const { return m_sources.empty() && m_hasKeyboard; }
    void SetEcho(bool echo) { m_echo = echo; }                    // off: pieces of scripts are not shown
    void SetKeyboard(bool isThere) { m_hasKeyboard = isThere; }   // without one, input ends when scripts end

private:
    class Keyboard;
    bool NextFrom(size_t at, const InputRequest& request, TextRule rule, InputPiece& piece);
    void Show(const InputRequest& request, const InputPiece& piece) const;

    std::vector<std::unique_ptr<InputSource>> m_sources;
    std::unique_ptr<Keyboard> m_keyboard;
    bool m_echo = true;
    bool m_hasKeyboard = true;
};

}   // namespace KxPlat
