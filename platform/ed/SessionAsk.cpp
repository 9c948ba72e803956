#include "SessionAsk.h"
#include "Session.h"

namespace KxPlat {

InputEvent AskSession(const InputRequest& request)
{
    if (Session::Current() == nullptr)
        return Ui().Ask(request);
    const InputPiece piece = Session::Current()->input().Next(request, TextRule::Line);
    InputEvent event;
    switch (piece.type) {
    case InputPiece::Type::Text:
        event.type = InputEvent::Type::Text;
        event.text = piece.text;
        break;
    case InputPiece::Type::End:
        event.type = InputEvent::Type::End;
        break;
    default:   // Esc, or a value of a program that no dialog understands
        event.type = InputEvent::Type::Cancel;
        break;
    }
    return event;
}

}   // namespace KxPlat
