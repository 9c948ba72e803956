#include "Prompt.h"
#include "../ap/Documents.h"
#include "../win/CharTables.h"
#include "acedads.h"
#include "CommandLine.h"
#include "lisp/NumberTexts.h"
#include "Session.h"
#include <algorithm>
#include <cmath>

namespace KxPlat {

namespace {

// A form in place of an answer. False: ask again.
bool Evaluate(InputPiece& piece)
{
    LispHook* lisp = TheLispHook();
    AcApDocument* document = acDocManager->curDocument();
    resbuf* value = nullptr;
    ProgramCommands::AtPrompt answers(Session::Current()->programs());
    if (lisp == nullptr || document == nullptr || !lisp->Evaluate(*document, piece.text, value)) {
        FailInput(piece);
        return false;
    }
    if (answers.Give()) {
        acutRelRb(value);
        return false;
    }
    bool isAnswer = value != nullptr && value->restype != RTNIL && value->restype != RTVOID;
    if (isAnswer && value->restype == RTSTR) {
        piece.text = value->resval.rstring;
        piece.isLiteral = true;
    } else if (isAnswer) {
        piece.type = InputPiece::Type::Value;
        piece.value = *value;
        piece.value.rbnext = nullptr;
    } else {
        Ui().Print(L"\nnil");
    }
    acutRelRb(value);
    return isAnswer;
}

// ">>" before prompts of transparent commands, as the user knows them.
std::wstring Shown(const std::wstring& prompt)
{
    if (TheEditor()->TransparentDepth() == 0)
        return prompt;
    const bool startsLine = !prompt.empty() && prompt[0] == L'\n';
    return startsLine ? L"\n>>" + prompt.substr(1) : L">>" + prompt;
}

}   // namespace

void FailInput(const InputPiece& piece)
{
    if (piece.isScripted || piece.isLiteral)
        Session::Current()->Fail();
}

InputPiece TakePiece(const InputRequest& request, TextRule rule)
{
    Session* session = Session::Current();
    if (session == nullptr)
        return InputPiece();
    InputRequest shown = request;
    shown.prompt = Shown(request.prompt);
    for (;;) {
        InputPiece piece = session->input().Next(shown, rule);
        session->state().isAnsweredByProgram = piece.isLiteral;
        if (piece.type == InputPiece::Type::Cancel) {
            session->line().Cancelled(piece);
            return piece;
        }
        if (piece.type == InputPiece::Type::End && !session->options().hasKeyboard)
            session->Fail();
        if (piece.type != InputPiece::Type::Text || piece.isLiteral || rule == TextRule::Line || piece.text.empty())
            return piece;
        const wchar_t first = piece.text[0];
        if (first == L'(' || (first == L'!' && piece.text.size() > 1)) {
            if (Evaluate(piece))
                return piece;
        } else if (first == L'\'' && piece.text.size() > 1 && request.kind != InputKind::Text) {
            session->line().RunTransparent(piece);
        } else {
            return piece;
        }
    }
}

// --- keywords ---

namespace {

// Capitals, and what has no case, must be typed; where small letters come first, as in "eXit", all up to the last
// capital or the capitals alone.
Keyword KeywordOf(std::wstring_view word)
{
    const size_t comma = word.find(L',');
    Keyword keyword;
    if (comma != std::wstring_view::npos) {
        keyword.local = word.substr(0, comma);
        keyword.shortest = word.size() - comma - 1;
        return keyword;
    }
    keyword.local = word;
    size_t last = 0;
    for (size_t i = 0; i < word.size(); ++i) {
        if (!IsLower(word[i]))
            last = i + 1;
    }
    keyword.shortest = last != 0 ? last : word.size();
    return keyword;
}

std::wstring CapitalsOf(std::wstring_view word)
{
    std::wstring capitals;
    for (const wchar_t character : word) {
        if (!IsLower(character))
            capitals += character;
    }
    return capitals;
}

bool Matches(const Keyword& keyword, const std::wstring& name, std::wstring_view text)
{
    if (text.size() >= keyword.shortest && StartsWithNoCase(name, text))
        return true;
    const std::wstring capitals = CapitalsOf(name);
    return !capitals.empty() && capitals.size() < name.size() && EqualNoCase(capitals, text);
}

std::vector<std::wstring> WordsOf(std::wstring_view list)
{
    std::vector<std::wstring> words;
    std::wstring word;
    for (const wchar_t character : list) {
        if (character != L' ') {
            word += character;
        } else if (!word.empty()) {
            words.push_back(word);
            word.clear();
        }
    }
    if (!word.empty())
        words.push_back(word);
    return words;
}

}   // namespace

std::vector<Keyword> KeywordsOf(std::wstring_view list)
{
    std::vector<Keyword> keywords;
    size_t global = 0;
    bool isGlobal = false;
    for (std::wstring word : WordsOf(list)) {
        if (!isGlobal && word[0] == L'_') {
            isGlobal = true;
            word.erase(0, 1);
        }
        if (!isGlobal) {
            keywords.push_back(KeywordOf(word));
            keywords.back().global = keywords.back().local;
        } else if (global < keywords.size()) {
            keywords[global++].global = KeywordOf(word).local;
        }
    }
    return keywords;
}

std::wstring MatchKeyword(const std::vector<Keyword>& keywords, std::wstring_view text)
{
    const bool isGlobal = !text.empty() && text[0] == L'_';
    if (isGlobal)
        text.remove_prefix(1);
    if (text.empty())
        return {};
    for (const Keyword& keyword : keywords) {
        if (EqualNoCase(text, isGlobal ? keyword.global : keyword.local))
            return keyword.global;
    }
    for (const Keyword& keyword : keywords) {
        Keyword rule = isGlobal ? KeywordOf(keyword.global) : keyword;
        if (Matches(rule, isGlobal ? keyword.global : keyword.local, text))
            return keyword.global;
    }
    return {};
}

// --- one prompt ---

Prompt::Prompt(InputKind kind, const ACHAR* text, const ads_point base)
{
    if (EditorState* editor = TheEditor())
        m_rules = std::exchange(editor->rules, PromptRules());
    m_keywords = KeywordsOf(m_rules.keywords);
    m_request.kind = kind;
    m_request.prompt = text != nullptr ? text : L"";
    for (const Keyword& keyword : m_keywords)
        m_request.keywords.push_back(keyword.local);
    if (base != nullptr) {
        std::copy_n(base, 3, m_base);
        m_request.basePoint = m_base;
    }
}

int Prompt::Next(InputPiece& piece, TextRule rule)
{
    for (;;) {
        piece = TakePiece(m_request, rule);
        switch (piece.type) {
        case InputPiece::Type::Cancel:
            return RTCAN;
        case InputPiece::Type::End:
            return RTCAN;
        case InputPiece::Type::Value:
            return RTNORM;
        case InputPiece::Type::Text:
            break;
        }
        TheEditor()->lastInput = piece.text;
        if (!piece.IsEnter()) {
            const std::wstring keyword = MatchKeyword(m_keywords, piece.text);
            if (keyword.empty())
                return RTNORM;
            TheEditor()->lastInput = keyword;
            return RTKWORD;
        }
        if (!Has(RSG_NONULL))
            return RTNONE;
        Refuse(piece, L"Requires an answer.");
    }
}

void Prompt::Refuse(const InputPiece& piece, const wchar_t* why)
{
    Ui().Print(std::wstring(L"\n") + why);
    FailInput(piece);
}

int Prompt::AsOther(const InputPiece& piece)
{
    if (!Has(RSG_OTHER) || piece.type != InputPiece::Type::Text)
        return RTERROR;
    TheEditor()->lastInput = piece.text;
    return RTKWORD;
}

const wchar_t* Prompt::FaultOf(double number) const
{
    if (Has(RSG_NONEG) && number < 0)
        return Has(RSG_NOZERO) ? L"Value must be positive and nonzero." : L"Value must be positive.";
    if (Has(RSG_NOZERO) && number == 0)
        return L"Value must be nonzero.";
    return nullptr;
}

// --- points ---

namespace {

bool ReadCoordinates(std::wstring_view text, ads_point point)
{
    double read[3] = {0, 0, RealVar(L"ELEVATION")};
    int count = 0;
    for (; count < 3; ++count) {
        const size_t comma = std::min(text.find(L','), text.size());
        if (!LengthIn(text.substr(0, comma), read[count]))
            return false;
        if (comma == text.size())
            break;
        text.remove_prefix(comma + 1);
    }
    if (count != 1 && count != 2)
        return false;
    std::copy_n(read, 3, point);
    return true;
}

bool ReadPolar(std::wstring_view text, ads_point point)
{
    const size_t mark = text.find(L'<');
    double distance = 0, angle = 0;
    if (mark == std::wstring_view::npos || !LengthIn(text.substr(0, mark), distance) ||
        !AngleIn(text.substr(mark + 1), AngleMode(IntegerVar(L"AUNITS")), angle))
        return false;
    const double turn = RealVar(L"ANGBASE") + (IntegerVar(L"ANGDIR") != 0 ? -angle : angle);
    point[X] = distance * std::cos(turn);
    point[Y] = distance * std::sin(turn);
    point[Z] = RealVar(L"ELEVATION");
    return true;
}

}   // namespace

// The world is the only coordinate system, so "*" in front changes nothing.
bool ReadPoint(std::wstring_view text, const ads_point from, ads_point point)
{
    const bool isRelative = !text.empty() && text[0] == L'@';
    if (isRelative)
        text.remove_prefix(1);
    if (!text.empty() && (text[0] == L'*' || text[0] == L'#'))
        text.remove_prefix(1);
    ads_point read = {0, 0, 0};
    if (!(isRelative && text.empty()) && !ReadPolar(text, read) && !ReadCoordinates(text, read))
        return false;
    if (isRelative) {
        const double level = text.empty() || std::count(text.begin(), text.end(), L',') < 2 ? 0 : read[Z];
        read[X] += from[X];
        read[Y] += from[Y];
        read[Z] = from[Z] + level;
    }
    ads_point_set(read, point);
    return true;
}

bool PointIn(const InputPiece& piece, ads_point point)
{
    if (piece.type == InputPiece::Type::Value) {
        if (piece.value.restype != RTPOINT && piece.value.restype != RT3DPOINT)
            return false;
        ads_point_set(piece.value.resval.rpoint, point);
        if (piece.value.restype == RTPOINT)
            point[Z] = RealVar(L"ELEVATION");
        return true;
    }
    ads_point from;
    LastPoint(from);
    return piece.type == InputPiece::Type::Text && ReadPoint(piece.text, from, point);
}

void LastPoint(ads_point point)
{
    VarValue value;
    GetVar(L"LASTPOINT", value);
    std::copy_n(value.real, 3, point);
}

void SetLastPoint(const ads_point point)
{
    VarValue value;
    value.type = VarType::Point3;
    std::copy_n(point, 3, value.real);
    SetVar(L"LASTPOINT", value);
}

}   // namespace KxPlat
