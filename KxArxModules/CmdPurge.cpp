// The nine purge commands: each hands one kind to the host's -PURGE, without a question for each name.
#include "KxArxBase/KxMessages.h"
#include "KxCadBaseModule.h"

namespace KxArxModules {

namespace {

// The document takes the text up once the present command has ended; two escapes end whatever runs by then.
void Purge(const wchar_t* trace, const wchar_t* kind)
{
    KxArxBase::DebugCmdMsg(L"%s", trace);
    CString text;
    text.Format(L"\x1b\x1b-PURGE\n%s\n\nN\n", kind);
    acDocManager->sendStringToExecute(acDocManager->curDocument(), text, true, false, true);
}

}   // namespace

void KxCadBaseModule::CmdCleanDatabase()
{
    Purge(L"...[清理数据库]  CmdCleanDatabase...", L"A");
}

void KxCadBaseModule::CmdCleanBlock()
{
    Purge(L"...[清理块]  CmdCleanBlock...", L"B");
}

void KxCadBaseModule::CmdCleanDimStyle()
{
    Purge(L"...[清理标注样式]  CmdCleanDimStyle...", L"D");
}

void KxCadBaseModule::CmdCleanLineStyle()
{
    Purge(L"...[清理线型]  CmdCleanLineStyle...", L"LT");
}

void KxCadBaseModule::CmdCleanPrintStyle()
{
    Purge(L"...[清理打印样式]  CmdCleanPrintStyle...", L"P");
}

void KxCadBaseModule::CmdCleanShape()
{
    Purge(L"...[清理形]  CmdCleanShape...", L"SH");
}

void KxCadBaseModule::CmdCleanTextStyle()
{
    Purge(L"...[清理文字样式]  CmdCleanTextStyle...", L"ST");
}

void KxCadBaseModule::CmdCleanMlineStyle()
{
    Purge(L"...[清理多线样式]  CmdCleanMlineStyle...", L"M");
}

// Its trace names another handler; log readers know it so.
void KxCadBaseModule::CmdCleanLayer()
{
    Purge(L"...[清理图层]  CmdCleanMlineStyle...", L"LA");
}

}   // namespace KxArxModules
