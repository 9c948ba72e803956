// What all prompts share: the next piece of input with LISP forms evaluated and transparent commands run, keywords, and
// the rules of acedInitGet.
#pragma once
#include "EditorState.h"
#include "Input.h"

namespace KxPlat {

// A Value, a text, Cancel or End. Forms and "!names" that give nothing are passed over. Without a session: End.
InputPiece TakePiece(const InputRequest& request, TextRule rule);

struct Keyword {
    std::wstring local;
    std::wstring global;
    size_t shortest = 0;   // letters that suffice
};
// Of a list such as "LType eXit Yes,Y _LType Exit Yes".
std::vector<Keyword> KeywordsOf(std::wstring_view list);
// The global name; empty when the text is none of them.
std::wstring MatchKeyword(const std::vector<Keyword>& keywords, std::wstring_view text);

// One prompt under the rules of the last acedInitGet, which end with it.
class Prompt {
public:
    Prompt(InputKind kind, const ACHAR* text, const ads_point base = nullptr);

    bool Has(int bit) const { return (m_rules.bits & bit) != 0; }
    // RTNORM with a piece to be read, or the final answer: RTNONE, RTKWORD, RTCAN, RTERROR.
    int Next(InputPiece& piece, TextRule rule = TextRule::Word);
    // The piece was no good: says why, and Next() asks again.
    void Refuse(const InputPiece& piece, const wchar_t* why);
    // Text that is no good as anything else: RTKWORD where arbitrary text is allowed, else RTERROR.
    int AsOther(const InputPiece& piece);
    // Number rules: null, or what is wrong with it.
    const wchar_t* FaultOf(double number) const;

private:
    PromptRules m_rules;
    std::vector<Keyword> m_keywords;
    InputRequest m_request;
    double m_base[3] = {0, 0, 0};
};

// "10,20", "10,20,5", "@3,4", "@5<30", "5<30", "@", "*..."; false for other text. `from` is what "@" starts at.
bool ReadPoint(std::wstring_view text, const ads_point from, ads_point point);
bool PointIn(const InputPiece& piece, ads_point point);   // of a Value or a text, from the last point

// The last point entered, of the current document.
void LastPoint(ads_point point);
void SetLastPoint(const ads_point point);

// Marks the running script as failed.
void FailInput(const InputPiece& piece);

}   // namespace KxPlat
