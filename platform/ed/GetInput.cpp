// The prompts of the C interface.
#include "../ui/HostUi.h"
#include "../win/CharTables.h"
#include "../win/Format.h"
#include "acedads.h"
#include "lisp/NumberTexts.h"
#include "Prompt.h"
#include <charconv>
#include <cmath>
#include <cwchar>

using KxPlat::InputKind;
using KxPlat::InputPiece;
using KxPlat::Prompt;
using KxPlat::TheEditor;

namespace {

const size_t kMostText = 511;   // characters that a caller's buffer takes, without the end

int Copy(const std::wstring& text, ACHAR* result)
{
    const size_t length = std::min(text.size(), kMostText);
    std::wmemcpy(result, text.c_str(), length);
    result[length] = 0;
    return text.size() > kMostText ? RTINPUTTRUNCATED : RTNORM;
}

// Asks until `read` takes a piece. `read` answers null when it did, or what is wrong.
template <class Read>
int AskWith(Prompt& prompt, Read&& read)
{
    if (TheEditor() == nullptr)
        return RTERROR;
    for (;;) {
        InputPiece piece;
        const int answer = prompt.Next(piece);
        if (answer != RTNORM)
            return answer;
        const wchar_t* fault = read(piece);
        if (fault == nullptr)
            return RTNORM;
        const int other = prompt.AsOther(piece);
        if (other == RTKWORD)
            return other;
        prompt.Refuse(piece, fault);
    }
}

bool IntegerIn(const InputPiece& piece, int& number)
{
    if (piece.type == InputPiece::Type::Value) {
        if (piece.value.restype == RTSHORT)
            number = piece.value.resval.rint;
        else if (piece.value.restype == RTLONG)
            number = piece.value.resval.rlong;
        return piece.value.restype == RTSHORT || piece.value.restype == RTLONG;
    }
    double real = 0;
    const bool isWhole = piece.text.find_first_not_of(L"+-0123456789") == std::wstring::npos;
    if (!isWhole || !KxPlat::LengthIn(piece.text, real) || real < -2147483648.0 || real > 2147483647.0)
        return false;
    number = int(real);
    return true;
}

bool RealIn(const InputPiece& piece, double& number)
{
    int whole = 0;
    if (piece.type == InputPiece::Type::Value && piece.value.restype != RTREAL && piece.value.restype != RTANG) {
        const bool isWhole = IntegerIn(piece, whole);
        number = isWhole ? whole : number;
        return isWhole;
    }
    if (piece.type == InputPiece::Type::Value) {
        number = piece.value.resval.rreal;
        return true;
    }
    return KxPlat::LengthIn(piece.text, number);
}

int AskPoint(InputKind kind, const ads_point base, const ACHAR* text, ads_point result)
{
    Prompt prompt(kind, text, base);
    const int answer = AskWith(
        prompt, [&](const InputPiece& piece) { return KxPlat::PointIn(piece, result) ? nullptr : L"Invalid point."; });
    if (answer == RTNORM)
        KxPlat::SetLastPoint(result);
    return answer;
}

// A second point where the first one was given in place of a number.
int AskSecondPoint(const ads_point first, ads_point second)
{
    return AskPoint(InputKind::Point, first, L"\nSpecify second point: ", second);
}

// A number, or two points; with a base point one point is enough.
template <class FromNumber, class FromPoints>
int AskMeasure(const ads_point base, const ACHAR* text, const wchar_t* fault, FromNumber&& fromNumber,
               FromPoints&& fromPoints)
{
    Prompt prompt(InputKind::Number, text, base);
    ads_point point = {0, 0, 0};
    bool isPoint = false;
    const int answer = AskWith(prompt, [&](const InputPiece& piece) -> const wchar_t* {
        isPoint = KxPlat::PointIn(piece, point);
        return isPoint ? nullptr : fromNumber(prompt, piece) ? nullptr : fault;
    });
    if (answer != RTNORM || !isPoint)
        return answer;
    ads_point other;
    if (base != nullptr) {
        fromPoints(base, point);
        KxPlat::SetLastPoint(point);
        return RTNORM;
    }
    const int second = AskSecondPoint(point, other);
    if (second == RTNORM)
        fromPoints(point, other);
    return second;
}

int AskAngle(const ads_point base, const ACHAR* text, ads_real* result, bool isOrientation)
{
    const double zero = isOrientation ? 0 : KxPlat::RealVar(L"ANGBASE");
    const auto fromNumber = [&](const Prompt&, const InputPiece& piece) {
        if (piece.type == InputPiece::Type::Value)
            return RealIn(piece, *result);
        if (!KxPlat::AngleIn(piece.text, KxPlat::AngleMode(KxPlat::IntegerVar(L"AUNITS")), *result))
            return false;
        if (KxPlat::IntegerVar(L"ANGDIR") != 0)
            *result = -*result;
        if (isOrientation)
            *result += KxPlat::RealVar(L"ANGBASE");
        return true;
    };
    const auto fromPoints = [&](const double* first, const double* second) {
        const double turn = std::atan2(second[Y] - first[Y], second[X] - first[X]) - zero;
        *result = turn < 0 ? turn + 2 * 3.14159265358979323846 : turn;
    };
    return AskMeasure(base, text, L"Requires valid numeric angle or two points.", fromNumber, fromPoints);
}

}   // namespace

int acedInitGet(int bits, const ACHAR* keywords)
{
    if (TheEditor() == nullptr)
        return RTERROR;
    TheEditor()->rules = {bits, keywords != nullptr ? keywords : L""};
    return RTNORM;
}

int acedGetString(int allowBlanks, const ACHAR* prompt, ACHAR* result)
{
    if (TheEditor() == nullptr || result == nullptr)
        return RTERROR;
    TheEditor()->rules = {};
    KxPlat::InputRequest request;
    request.kind = InputKind::Text;
    request.prompt = prompt != nullptr ? prompt : L"";
    const InputPiece piece =
        KxPlat::TakePiece(request, allowBlanks != 0 ? KxPlat::TextRule::Line : KxPlat::TextRule::Word);
    result[0] = 0;
    switch (piece.type) {
    case InputPiece::Type::Text:
        return Copy(piece.text, result);
    case InputPiece::Type::Value: {
        double number = 0;
        return RealIn(piece, number) ? Copy(KxPlat::Format(L"%g", number), result) : RTERROR;
    }
    default:
        return RTCAN;
    }
}

int acedGetInt(const ACHAR* text, int* result)
{
    Prompt prompt(InputKind::Number, text);
    return AskWith(prompt, [&](const InputPiece& piece) {
        int number = 0;
        if (!IntegerIn(piece, number))
            return L"Requires an integer value.";
        if (const wchar_t* fault = prompt.FaultOf(number))
            return fault;
        *result = number;
        return static_cast<const wchar_t*>(nullptr);
    });
}

int acedGetReal(const ACHAR* text, ads_real* result)
{
    Prompt prompt(InputKind::Number, text);
    return AskWith(prompt, [&](const InputPiece& piece) {
        double number = 0;
        if (!RealIn(piece, number))
            return L"Requires numeric value.";
        if (const wchar_t* fault = prompt.FaultOf(number))
            return fault;
        *result = number;
        return static_cast<const wchar_t*>(nullptr);
    });
}

int acedGetPoint(const ads_point base, const ACHAR* prompt, ads_point result)
{
    return AskPoint(InputKind::Point, base, prompt, result);
}

int acedGetCorner(const ads_point base, const ACHAR* prompt, ads_point result)
{
    return AskPoint(InputKind::Point, base, prompt, result);
}

int acedGetDist(const ads_point base, const ACHAR* text, ads_real* result)
{
    bool isFlat = TheEditor() != nullptr && (TheEditor()->rules.bits & RSG_2D) != 0;
    const auto fromNumber = [&](const Prompt& prompt, const InputPiece& piece) {
        double number = 0;
        if (!RealIn(piece, number) || prompt.FaultOf(number) != nullptr)
            return false;
        *result = number;
        return true;
    };
    const auto fromPoints = [&](const double* first, const double* second) {
        *result = std::hypot(second[X] - first[X], second[Y] - first[Y], isFlat ? 0.0 : second[Z] - first[Z]);
    };
    return AskMeasure(base, text, L"Requires numeric distance or two points.", fromNumber, fromPoints);
}

int acedGetAngle(const ads_point base, const ACHAR* prompt, ads_real* result)
{
    return AskAngle(base, prompt, result, false);
}

int acedGetOrient(const ads_point base, const ACHAR* prompt, ads_real* result)
{
    return AskAngle(base, prompt, result, true);
}

int acedGetKword(const ACHAR* text, ACHAR* result)
{
    Prompt prompt(InputKind::Keyword, text);
    const int answer = AskWith(prompt, [](const InputPiece&) { return L"Invalid option keyword."; });
    result[0] = 0;
    if (answer != RTKWORD)
        return answer;
    return Copy(TheEditor()->lastInput, result);
}

int acedGetInput(ACHAR* text)
{
    return TheEditor() != nullptr ? Copy(TheEditor()->lastInput, text) : RTERROR;
}

int acedPrompt(const ACHAR* text)
{
    KxPlat::Ui().Print(text != nullptr ? text : L"");
    return RTNORM;
}

int acutPrintf(const ACHAR* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const std::wstring text = KxPlat::FormatV(format, arguments);
    va_end(arguments);
    KxPlat::Ui().Print(text);
    return int(text.size());
}

int acedAlert(const ACHAR* text)
{
    KxPlat::Ui().ShowMessage(text != nullptr ? text : L"", L"kxcad", MB_OK);
    return RTNORM;
}

int acedUsrBrk()
{
    return KxPlat::Ui().Interrupted() ? 1 : 0;
}

int acedUpdateDisplay()
{
    KxPlat::Ui().Regenerated();
    return RTNORM;
}

int acedRedraw(const ads_name, int)
{
    KxPlat::Ui().Regenerated();
    return RTNORM;
}
