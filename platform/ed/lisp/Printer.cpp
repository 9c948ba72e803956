#include "Printer.h"
#include "../../win/Format.h"
#include "Builtin.h"
#include <charconv>
#include <cmath>

namespace KxPlat::Lisp {

namespace {

struct Escape {
    wchar_t character;
    const wchar_t* typed;
};

const Escape kEscapes[] = {{L'"', L"\\\""}, {L'\\', L"\\\\"}, {L'\n', L"\\n"},
                           {L'\t', L"\\t"}, {L'\r', L"\\r"},  {27, L"\\e"}};

void AppendQuoted(std::wstring& out, const std::wstring& text)
{
    out += L'"';
    for (const wchar_t character : text) {
        const wchar_t* typed = nullptr;
        for (const Escape& escape : kEscapes)
            if (escape.character == character)
                typed = escape.typed;
        if (typed != nullptr)
            out += typed;
        else if (character < L' ')
            out += Format(L"\\%03o", int(character));
        else
            out += character;
    }
    out += L'"';
}

void AppendAtom(std::wstring& out, const Value& value, PrintStyle style)
{
    switch (value.kind()) {
    case Kind::Nil:
        out += L"nil";
        break;
    case Kind::Integer:
        out += std::to_wstring(value.integer());
        break;
    case Kind::Real:
        out += PrintedReal(value.real());
        break;
    case Kind::Symbol:
        out += value.symbol()->name;
        break;
    case Kind::EntityName:
        out += PrintedName(value.id());
        break;
    case Kind::Builtin:
        out += Format(L"#<SUBR @%p %s>", static_cast<const void*>(value.builtin()), value.builtin()->name);
        break;
    case Kind::Function:
        out += Format(L"#<USUBR @%p %s>", value.address(),
                      value.function().name == nullptr ? L"-lambda-" : value.function().name->name.c_str());
        break;
    case Kind::Host:
        out += value.host()->Printed();
        break;
    case Kind::Text:
        if (style == PrintStyle::Quoted)
            AppendQuoted(out, value.text());
        else
            out += value.text();
        break;
    case Kind::Cons:
        break;
    }
}

void Append(std::wstring& out, const Value& value, PrintStyle style, size_t most)
{
    struct Open {
        const Value* rest;
        bool isFirst;
    };
    std::vector<Open> open;
    if (!value.IsCons()) {
        AppendAtom(out, value, style);
        return;
    }
    out += L'(';
    open.push_back({&value, true});
    while (!open.empty() && out.size() <= most) {
        Open& list = open.back();
        if (!list.rest->IsCons()) {
            if (!list.rest->IsNil()) {
                out += L" . ";
                AppendAtom(out, *list.rest, style);
            }
            out += L')';
            open.pop_back();
            continue;
        }
        if (!list.isFirst)
            out += L' ';
        list.isFirst = false;
        const Value& member = list.rest->cons().car;
        list.rest = &list.rest->cons().cdr;
        if (member.IsCons()) {
            out += L'(';
            open.push_back({&member, true});
        } else {
            AppendAtom(out, member, style);
        }
    }
}

}   // namespace

std::wstring Printed(const Value& value, PrintStyle style)
{
    std::wstring out;
    Append(out, value, style, std::wstring::npos - 1);
    return out;
}

std::wstring Shortened(const Value& value, size_t most)
{
    std::wstring out;
    Append(out, value, PrintStyle::Quoted, most);
    if (out.size() > most)
        out = out.substr(0, most) + L"...";
    return out;
}

std::wstring PrintedReal(double value)
{
    if (std::isnan(value))
        return L"nan";
    if (std::isinf(value))
        return value < 0 ? L"-inf" : L"inf";
    char digits[32];
    const char* end = std::to_chars(digits, digits + sizeof digits, value, std::chars_format::general, 6).ptr;
    std::wstring text(digits, digits + (end - digits));
    const size_t exponent = text.find(L'e');
    if (text.find(L'.') == std::wstring::npos)
        text.insert(exponent == std::wstring::npos ? text.size() : exponent, L".0");
    return text;
}

std::wstring PrintedName(AcDbObjectId id)
{
    return Format(L"<Entity name: %I64x>", (long long)id.asOldId());
}

}   // namespace KxPlat::Lisp
