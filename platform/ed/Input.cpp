#include "Input.h"
#include "../win/CodePage.h"
#include "../win/Format.h"
#include <algorithm>

namespace KxPlat {

// --- sources ---

bool TextSource::Next(const InputRequest& request, TextRule rule, InputPiece& piece)
{
    if (!m_pieces.Next(request.kind, rule, piece))
        return false;
    piece.isScripted = m_kind == Kind::Script;
    piece.isSent = m_kind == Kind::Sent;
    return true;
}

std::wstring ScriptText(std::string_view bytes)
{
    if (bytes.substr(0, 3) == "\xEF\xBB\xBF")
        bytes.remove_prefix(3);
    return IsUtf8(bytes) ? FromUtf8(bytes) : Decode(AnsiCodePage(), bytes);
}

bool ArgumentSource::Next(const InputRequest&, TextRule, InputPiece& piece)
{
    if (m_next == nullptr)
        return false;
    const resbuf& argument = *m_next;
    m_next = argument.rbnext;
    piece = InputPiece();
    piece.isLiteral = true;
    if (argument.restype == RTSTR) {
        piece.type = InputPiece::Type::Text;
        piece.text = argument.resval.rstring != nullptr ? argument.resval.rstring : L"";
        piece.isPause = piece.text == L"\\";
        if (piece.text == L"\x1b" || piece.text == L"\x03")
            piece.type = InputPiece::Type::Cancel;
    } else {
        piece.type = InputPiece::Type::Value;
        piece.value = argument;
        piece.value.rbnext = nullptr;
    }
    return true;
}

// The user at the bottom of the stack. A line may hold several pieces.
class InputStack::Keyboard {
public:
    // `isFresh`: the host has shown the prompt, and the user saw what he typed.
    bool Next(const InputRequest& request, TextRule rule, InputPiece& piece, bool& isFresh)
    {
        isFresh = false;
        while (!m_pieces.Next(request.kind, rule, piece)) {
            isFresh = true;
            InputEvent event = Ui().Ask(request);
            if (event.type == InputEvent::Type::Text)
                Read(std::move(event.text), rule);
            else
                return FromEvent(event, piece);
        }
        piece.isTyped = true;
        return true;
    }
    void Clear() { m_pieces = TextPieces(); }

private:
    // A form may go on over further lines.
    void Read(std::wstring line, TextRule rule)
    {
        if (rule == TextRule::Word)
            line.erase(line.find_last_not_of(L" \t") + 1);
        std::wstring text = line + L"\n";
        m_pieces = TextPieces(text);
        while (rule == TextRule::Word && m_pieces.MissingParentheses() > 0) {
            InputRequest more;
            more.prompt = L"\n(_> ";
            const InputEvent event = Ui().Ask(more);
            if (event.type != InputEvent::Type::Text) {
                m_pieces = TextPieces(L"\x1b");
                return;
            }
            text += event.text + L"\n";
            m_pieces = TextPieces(text);
        }
    }

    static bool FromEvent(const InputEvent& event, InputPiece& piece)
    {
        piece = InputPiece();
        piece.isTyped = true;
        switch (event.type) {
        case InputEvent::Type::Cancel:
            piece.type = InputPiece::Type::Cancel;
            return true;
        case InputEvent::Type::Point:
            piece.type = InputPiece::Type::Value;
            piece.value.restype = RT3DPOINT;
            std::copy_n(event.point, 3, piece.value.resval.rpoint);
            return true;
        case InputEvent::Type::Objects:
            piece.type = InputPiece::Type::Value;
            piece.value.restype = RTPICKS;
            std::copy_n(event.point, 3, piece.value.resval.rpoint);
            piece.objects = event.objects;
            return true;
        default:
            return false;
        }
    }

    TextPieces m_pieces;
};

// --- the stack ---

namespace {

// A value as the user would have typed it; empty for names.
std::wstring TextOf(const resbuf& value)
{
    switch (value.restype) {
    case RTSHORT:
        return Format(L"%d", int(value.resval.rint));
    case RTLONG:
        return Format(L"%d", int(value.resval.rlong));
    case RTREAL:
        return Format(L"%g", value.resval.rreal);
    case RTPOINT:
        return Format(L"%g,%g", value.resval.rpoint[X], value.resval.rpoint[Y]);
    case RT3DPOINT:
        return Format(L"%g,%g,%g", value.resval.rpoint[X], value.resval.rpoint[Y], value.resval.rpoint[Z]);
    default:
        return {};
    }
}

}   // namespace

InputStack::InputStack() : m_keyboard(std::make_unique<Keyboard>()) {}

InputStack::~InputStack() = default;

const InputSource* InputStack::Push(std::unique_ptr<InputSource> source)
{
    m_sources.push_back(std::move(source));
    return m_sources.back().get();
}

void InputStack::Remove(const InputSource* source)
{
    std::erase_if(m_sources, [&](const auto& held) { return held.get() == source; });
}

bool InputStack::Has(const InputSource* source) const
{
    return std::any_of(m_sources.begin(), m_sources.end(), [&](const auto& held) { return held.get() == source; });
}

InputPiece InputStack::Next(const InputRequest& request, TextRule rule, const InputSource* until)
{
    InputPiece piece;
    while (until == nullptr || Has(until)) {
        if (m_sources.empty()) {
            bool isFresh = false;
            if (!m_hasKeyboard || !m_keyboard->Next(request, rule, piece, isFresh))
                break;
            if (!isFresh)
                Show(request, piece);
            return piece;
        }
        if (NextFrom(m_sources.size() - 1, request, rule, piece))
            return piece;
        std::unique_ptr<InputSource> spent = std::move(m_sources.back());
        m_sources.pop_back();
        if (request.kind != InputKind::Command && spent->Refill())
            m_sources.push_back(std::move(spent));
    }
    return InputPiece();
}

// A program that pauses leaves this one piece to whatever lies below it.
bool InputStack::NextFrom(size_t at, const InputRequest& request, TextRule rule, InputPiece& piece)
{
    if (!m_sources[at]->Next(request, rule, piece))
        return false;
    if (!piece.isPause) {
        if (m_sources[at]->Echoes())
            Show(request, piece);
        return true;
    }
    while (at-- > 0) {
        if (NextFrom(at, request, rule, piece))
            return true;
    }
    bool isFresh = false;
    piece = InputPiece();
    if (m_hasKeyboard)
        m_keyboard->Next(request, rule, piece, isFresh);
    return true;
}

void InputStack::Show(const InputRequest& request, const InputPiece& piece) const
{
    const bool isShown = piece.type == InputPiece::Type::Text || piece.type == InputPiece::Type::Value;
    if (m_echo && isShown)
        Ui().PrintAnswer(request.prompt + (piece.type == InputPiece::Type::Text ? piece.text : TextOf(piece.value)));
}

bool InputStack::HasSent() const
{
    return !m_sources.empty() && m_sources.back()->IsProgram();
}

void InputStack::DropPrograms()
{
    std::erase_if(m_sources, [](const auto& source) { return source->IsProgram(); });
    m_keyboard->Clear();
}

void InputStack::DropAll()
{
    m_sources.clear();
    m_keyboard->Clear();
}

}   // namespace KxPlat
