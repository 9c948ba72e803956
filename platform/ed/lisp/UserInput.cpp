// Questions to the user. Enter answers nil, a keyword its name, Esc ends the program.
#include "../acedads.h"
#include "../Prompt.h"
#include "HostValues.h"
#include "Interpreter.h"

namespace KxPlat::Lisp {

namespace {

[[noreturn]] void Cancelled()
{
    throw Failure(L"Function cancelled", Failure::Kind::Cancelled);
}

// What every question shares: an optional base point and an optional prompt, in that order.
struct Question {
    ads_point base = {0, 0, 0};
    bool hasBase = false;
    const wchar_t* prompt = nullptr;

    explicit Question(const Arguments& arguments)
    {
        for (const Value& argument : arguments) {
            if (argument.IsNil())
                continue;
            if (argument.IsCons()) {
                const Point point = PointOf(argument);
                base[X] = point.x;
                base[Y] = point.y;
                base[Z] = point.z;
                hasBase = true;
            } else {
                prompt = TextOf(argument).c_str();
            }
        }
    }
    const ads_real* from() const { return hasBase ? base : nullptr; }
};

// nil for Enter, the keyword for a keyword; otherwise `made`.
Value Answer(int answer, Value made)
{
    constexpr size_t kLongestInput = 512;
    ACHAR keyword[kLongestInput];
    switch (answer) {
    case RTNORM:
        return made;
    case RTNONE:
        return Value();
    case RTKWORD:
        return acedGetInput(keyword) == RTNORM ? Value(static_cast<const wchar_t*>(keyword)) : Value();
    default:
        Cancelled();
    }
}

Value PointValue(const ads_point point)
{
    return ListOf(double(point[X]), double(point[Y]), double(point[Z]));
}

Value InitGet(Interpreter&, const Arguments& arguments)
{
    int bits = 0;
    const wchar_t* keywords = nullptr;
    for (const Value& argument : arguments) {
        if (argument.IsText())
            keywords = argument.text().c_str();
        else if (argument)
            bits = IntegerOf(argument);
    }
    acedInitGet(bits, keywords);
    return Value();
}

Value GetPoint(Interpreter&, const Arguments& arguments)
{
    const Question question(arguments);
    ads_point point;
    const int answer = acedGetPoint(question.from(), question.prompt, point);
    return Answer(answer, answer == RTNORM ? PointValue(point) : Value());
}

Value GetCorner(Interpreter&, const Arguments& arguments)
{
    const Question question(arguments);
    if (!question.hasBase)
        Fail(L"bad point argument");
    ads_point point;
    const int answer = acedGetCorner(question.base, question.prompt, point);
    return Answer(answer, answer == RTNORM ? PointValue(point) : Value());
}

template <int (*Get)(const ads_point, const ACHAR*, ads_real*)>
Value GetMeasure(Interpreter&, const Arguments& arguments)
{
    const Question question(arguments);
    ads_real result = 0;
    const int answer = Get(question.from(), question.prompt, &result);
    return Answer(answer, Value(double(result)));
}

Value GetReal(Interpreter&, const Arguments& arguments)
{
    ads_real result = 0;
    const int answer = acedGetReal(Question(arguments).prompt, &result);
    return Answer(answer, Value(double(result)));
}

Value GetInteger(Interpreter&, const Arguments& arguments)
{
    int result = 0;
    const int answer = acedGetInt(Question(arguments).prompt, &result);
    return Answer(answer, Value(int32_t(result)));
}

Value GetText(Interpreter&, const Arguments& arguments)
{
    constexpr size_t kLongestInput = 512;
    const bool allowsBlanks = arguments.count > 0 && !arguments[0].IsText() && bool(arguments[0]);
    const wchar_t* prompt = nullptr;
    for (const Value& argument : arguments)
        if (argument.IsText())
            prompt = argument.text().c_str();
    ACHAR result[kLongestInput] = {};
    const int answer = acedGetString(allowsBlanks, prompt, result);
    // Enter is an empty text here.
    return answer == RTNONE ? Value(L"") : Answer(answer, Value(static_cast<const wchar_t*>(result)));
}

Value GetKeyword(Interpreter&, const Arguments& arguments)
{
    constexpr size_t kLongestInput = 512;
    ACHAR result[kLongestInput] = {};
    const int answer = acedGetKword(Question(arguments).prompt, result);
    return Answer(answer, Value(static_cast<const wchar_t*>(result)));
}

// The entity and the point at which it was picked; nil when nothing was.
Value EntSel(Interpreter&, const Arguments& arguments)
{
    ads_name entity;
    ads_point point = {0, 0, 0};
    const int answer = acedEntSel(Question(arguments).prompt, entity, point);
    if (answer == RTERROR)
        return Value();
    return Answer(answer, answer == RTNORM ? ListOf(EntityNameValue(entity), PointValue(point)) : Value());
}

// A picked entity within others: its place in the world, and what it lies in.
struct Nested {
    ads_name entity = {0, 0};
    ads_point point = {0, 0, 0};
    ads_matrix place = {};
    resbuf* containers = nullptr;
    int answer;

    explicit Nested(const Question& question)
    {
        ads_point_set(question.base, point);
        answer = acedNEntSelP(question.prompt, entity, point, question.hasBase, place, &containers);
    }
    ~Nested() { acutRelRb(containers); }
    Nested(const Nested&) = delete;

    bool IsInside() const { return containers != nullptr; }
    Value Containers() const
    {
        ListBuilder list;
        for (const resbuf* at = containers; at != nullptr; at = at->rbnext)
            list.Add(EntityNameValue(at->resval.rlname));
        return list.Take();
    }
};

Value NestedAnswer(const Nested& nested, const Value& matrix)
{
    if (nested.answer == RTERROR)
        return Value();
    if (nested.answer != RTNORM)
        return Answer(nested.answer, Value());
    return nested.IsInside()
               ? ListOf(EntityNameValue(nested.entity), PointValue(nested.point), matrix, nested.Containers())
               : ListOf(EntityNameValue(nested.entity), PointValue(nested.point));
}

// (nentsel [prompt]): the matrix is three axes and the origin.
Value NestedEntSel(Interpreter&, const Arguments& arguments)
{
    Question question(arguments);
    question.hasBase = false;
    const Nested nested(question);
    ListBuilder matrix;
    for (int column = 0; column < 4; ++column)
        matrix.Add(
            ListOf(double(nested.place[0][column]), double(nested.place[1][column]), double(nested.place[2][column])));
    return NestedAnswer(nested, matrix.Take());
}

// (nentselp [prompt] [point]): with a point nobody is asked. The matrix has four rows of four numbers.
Value NestedEntSelPoint(Interpreter&, const Arguments& arguments)
{
    const Nested nested{Question(arguments)};
    ListBuilder matrix;
    for (const auto& row : nested.place)
        matrix.Add(ListOf(double(row[0]), double(row[1]), double(row[2]), double(row[3])));
    return NestedAnswer(nested, matrix.Take());
}

// (grread [track [bits [cursor]]]): (2 code) for a key, (3 point) for a picked point. Of a line that is typed the first
// key counts; an empty one is Enter.
Value ReadInput(Interpreter&, const Arguments&)
{
    constexpr int32_t kKey = 2, kPick = 3, kEnter = 13;
    InputRequest request;
    request.kind = InputKind::Point;
    const InputPiece piece = TakePiece(request, TextRule::Word);
    if (piece.type == InputPiece::Type::Cancel || piece.type == InputPiece::Type::End)
        Cancelled();
    ads_point point;
    if (PointIn(piece, point))
        return ListOf(kPick, PointValue(point));
    return ListOf(kKey, piece.text.empty() ? kEnter : int32_t(piece.text[0]));
}

// (getfiled title name extensions flags); bit 1 asks for a file to be written.
Value GetFileName(Interpreter&, const Arguments& arguments)
{
    resbuf result = {};
    const int answer = acedGetFileD(TextOf(arguments[0]).c_str(), TextOf(arguments[1]).c_str(),
                                    TextOf(arguments[2]).c_str(), IntegerOf(arguments[3]), &result);
    if (answer != RTNORM || result.restype != RTSTR)
        return Value();
    Value name(static_cast<const wchar_t*>(result.resval.rstring));
    acutDelString(result.resval.rstring);
    return name;
}

const Builtin kRows[] = {
    {L"INITGET", InitGet, 0, 2},
    {L"GETPOINT", GetPoint, 0, 2},
    {L"GETCORNER", GetCorner, 1, 2},
    {L"GETDIST", GetMeasure<acedGetDist>, 0, 2},
    {L"GETANGLE", GetMeasure<acedGetAngle>, 0, 2},
    {L"GETORIENT", GetMeasure<acedGetOrient>, 0, 2},
    {L"GETREAL", GetReal, 0, 1},
    {L"GETINT", GetInteger, 0, 1},
    {L"GETSTRING", GetText, 0, 2},
    {L"GETKWORD", GetKeyword, 0, 1},
    {L"ENTSEL", EntSel, 0, 1},
    {L"NENTSEL", NestedEntSel, 0, 1},
    {L"NENTSELP", NestedEntSelPoint, 0, 2},
    {L"GRREAD", ReadInput, 0, 3},
    {L"GETFILED", GetFileName, 4, 4},
};

}   // namespace

const BuiltinTable kUserInput = TableOf(kRows);

}   // namespace KxPlat::Lisp
