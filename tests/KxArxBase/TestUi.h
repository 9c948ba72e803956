// A host that remembers what it was told, for as long as it lives.
#pragma once
#include "ui/HostUi.h"
#include <string>

class TestUi : public KxPlat::HostUi {
public:
    TestUi() { KxPlat::SetUi(this); }
    ~TestUi() override { KxPlat::SetUi(nullptr); }

    void Print(std::wstring_view text) override { printed += text; }
    int ShowMessage(std::wstring_view text, std::wstring_view, unsigned type) override
    {
        shown = text;
        shownType = type;
        return answer;
    }
    // What was printed since the last call.
    std::wstring Taken()
    {
        std::wstring taken;
        taken.swap(printed);
        return taken;
    }

    std::wstring printed;
    std::wstring shown;
    unsigned shownType = 0;
    int answer = 1;
};
