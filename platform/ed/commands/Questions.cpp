#include "Questions.h"
#include "../Prompt.h"
#include "../Session.h"

namespace KxPlat {

std::optional<std::wstring> AskLine(const std::wstring& prompt)
{
    InputRequest request;
    request.kind = InputKind::Text;
    request.prompt = prompt;
    const InputPiece piece = TakePiece(request, TextRule::Line);
    if (piece.type != InputPiece::Type::Text)
        return std::nullopt;
    std::wstring text = piece.text;
    text.erase(0, text.find_first_not_of(L" \t"));
    text.erase(text.find_last_not_of(L" \t") + 1);
    if (text.size() >= 2 && text.front() == L'"' && text.back() == L'"')
        text = text.substr(1, text.size() - 2);
    return text;
}

bool AskYesNo(const std::wstring& question, bool byDefault)
{
    acedInitGet(0, L"Yes No");
    ACHAR answer[512] = L"";
    const int result = acedGetKword((question + (byDefault ? L" <Y>: " : L" <N>: ")).c_str(), answer);
    if (result == RTNORM)
        return answer[0] == L'Y';
    return result == RTNONE && byDefault;
}

std::optional<std::wstring> AskFile(const std::wstring& prompt, const std::wstring& title, const std::wstring& initial,
                                    const std::wstring& extensions, bool forSave)
{
    std::wstring path;
    if (Session::Current()->input().IsKeyboardNext() && IntegerVar(L"FILEDIA") != 0) {
        const bool isChosen = Ui().AskFileName({title, initial, extensions, forSave}, path);
        return isChosen && !path.empty() ? std::optional(path) : std::nullopt;
    }
    const std::optional<std::wstring> answer =
        AskLine(initial.empty() ? prompt + L": " : prompt + L" <" + initial + L">: ");
    if (!answer)
        return std::nullopt;
    path = answer->empty() ? initial : *answer;
    return path.empty() ? std::nullopt : std::optional(path);
}

void FailCommand(const std::wstring& text)
{
    Ui().Print(L"\n" + text);
    Session::Current()->Fail();
}

}   // namespace KxPlat
