#include "TypedPoint.h"
#include "../lisp/NumberTexts.h"

namespace KxPlat {

bool PointIn(std::wstring_view text, AcGePoint2d& point)
{
    double parts[3] = {0, 0, 0};
    int count = 0;
    for (size_t start = 0; start <= text.size() && count < 3; ++count) {
        const size_t comma = std::min(text.find(L',', start), text.size());
        if (!LengthIn(text.substr(start, comma - start), parts[count]))
            return false;
        start = comma + 1;
        if (comma == text.size()) {
            ++count;
            break;
        }
        if (count == 2)
            return false;
    }
    if (count < 2)
        return false;
    point = AcGePoint2d(parts[0], parts[1]);
    return true;
}

}   // namespace KxPlat
