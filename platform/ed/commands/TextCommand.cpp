// TEXT: lines of text one below the other.
#include "../../db/AcDbDatabase.h"
#include "../../db/AcDbText.h"
#include "../../db/AcDbTextStyleTableRecord.h"
#include "../../db/core/DbCore.h"
#include "../../db/core/Stub.h"
#include "../Prompt.h"
#include "../Session.h"
#include "EntityTools.h"
#include "HostCommands.h"
#include "Questions.h"
#include <cmath>

namespace KxPlat {

namespace {

struct JustifyRow {
    const wchar_t* keyword;
    AcDb::TextHorzMode horizontal;
    AcDb::TextVertMode vertical;
};

const JustifyRow g_justify[] = {
    {L"Left", AcDb::kTextLeft, AcDb::kTextBase},    {L"Center", AcDb::kTextCenter, AcDb::kTextBase},
    {L"Right", AcDb::kTextRight, AcDb::kTextBase},  {L"Middle", AcDb::kTextMid, AcDb::kTextBase},
    {L"TL", AcDb::kTextLeft, AcDb::kTextTop},       {L"TC", AcDb::kTextCenter, AcDb::kTextTop},
    {L"TR", AcDb::kTextRight, AcDb::kTextTop},      {L"ML", AcDb::kTextLeft, AcDb::kTextVertMid},
    {L"MC", AcDb::kTextCenter, AcDb::kTextVertMid}, {L"MR", AcDb::kTextRight, AcDb::kTextVertMid},
    {L"BL", AcDb::kTextLeft, AcDb::kTextBottom},    {L"BC", AcDb::kTextCenter, AcDb::kTextBottom},
    {L"BR", AcDb::kTextRight, AcDb::kTextBottom},
};

const wchar_t kJustifyWords[] = L"Left Center Right Middle TL TC TR ML MC MR BL BC BR";

const JustifyRow* JustifyOf(const std::wstring& keyword)
{
    for (const JustifyRow& row : g_justify) {
        if (keyword == row.keyword)
            return &row;
    }
    return nullptr;
}

struct Layout {
    AcGePoint3d start;
    const JustifyRow* justify = g_justify;
    double height = 0, rotation = 0;
};

AcDbObjectId StyleNamed(const std::wstring& name)
{
    return CoreOf(WorkingDatabase()).Table(TableKind::TextStyle)->find(name);
}

void AskStyle()
{
    const std::optional<std::wstring> name = AskLine(L"\nEnter style name <" + TextVar(L"TEXTSTYLE") + L">: ");
    if (!name || name->empty())
        return;
    const AcDbObjectId style = StyleNamed(*name);
    if (style.isNull())
        FailCommand(L"Cannot find text style \"" + *name + L"\".");
    else
        WorkingDatabase().setTextstyle(style);
}

bool AskStart(Layout& layout)
{
    for (;;) {
        const PointAnswer answer = AskPoint(L"\nSpecify start point of text or [Justify/Style]: ", nullptr,
                                            L"Justify Style Left Center Right Middle TL TC TR ML MC MR BL BC BR");
        if (answer.is(L"Style")) {
            AskStyle();
            continue;
        }
        if (answer.isPoint()) {
            layout.start = answer.point;
            return true;
        }
        const std::wstring keyword =
            answer.is(L"Justify")
                ? AskKeyword(L"\nEnter an option [Left/Center/Right/Middle/TL/TC/TR/ML/MC/MR/BL/BC/BR]: ",
                             kJustifyWords)
                : answer.keyword;
        const JustifyRow* justify = JustifyOf(keyword);
        if (justify == nullptr)
            return false;
        layout.justify = justify;
        const PointAnswer point = AskPoint(L"\nSpecify justification point of text: ");
        layout.start = point.point;
        return point.isPoint();
    }
}

// A style with a height of its own asks for none.
double HeightOfStyle()
{
    AcDbTextStyleTableRecord* style = nullptr;
    if (acdbOpenObject(style, WorkingDatabase().textstyle(), AcDb::kForRead) != Acad::eOk)
        return 0;
    const double height = style->textSize();
    style->close();
    return height;
}

bool AskLayout(Layout& layout)
{
    if (!AskStart(layout))
        return false;
    layout.height = HeightOfStyle();
    if (layout.height == 0) {
        layout.height = RealVar(L"TEXTSIZE");
        if (!AskDistance(L"\nSpecify height <" + LengthText(layout.height) + L">: ", layout.start, layout.height))
            return false;
        VarValue size;
        size.type = VarType::Real;
        size.real[0] = layout.height;
        SetVar(L"TEXTSIZE", size);
    }
    return AskAngle(L"\nSpecify rotation angle of text <0>: ", layout.start, layout.rotation);
}

void AddText(const Layout& layout, const std::wstring& words)
{
    AcDbDatabase& database = WorkingDatabase();
    auto text =
        std::make_unique<AcDbText>(layout.start, words.c_str(), database.textstyle(), layout.height, layout.rotation);
    text->setThickness(RealVar(L"THICKNESS"));
    text->setHorizontalMode(layout.justify->horizontal);
    text->setVerticalMode(layout.justify->vertical);
    if (!text->isDefaultAlignment())
        text->setAlignmentPoint(layout.start);
    text->adjustAlignment(&database);
    AddToSpace(std::move(text));
}

}   // namespace

// A program gives one line, the user as many as he likes.
void TextCommand()
{
    Layout layout;
    if (!AskLayout(layout))
        return;
    for (;;) {
        InputRequest request;
        request.kind = InputKind::Text;
        request.prompt = L"\nEnter text: ";
        const InputPiece piece = TakePiece(request, TextRule::Line);
        if (piece.type != InputPiece::Type::Text || piece.text.empty())
            return;
        AddText(layout, piece.text);
        if (piece.isLiteral)
            return;
        const double spacing = layout.height * 5 / 3;
        layout.start.x += spacing * std::sin(layout.rotation);
        layout.start.y -= spacing * std::cos(layout.rotation);
    }
}

}   // namespace KxPlat
