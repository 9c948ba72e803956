#include "DwgCodePages.h"
#include "../win/CodePage.h"

namespace KxPlat {

namespace {

const DwgCodePage kPages[] = {
    {30, 1252, L"ANSI_1252"},  {28, 1250, L"ANSI_1250"},  {29, 1251, L"ANSI_1251"}, {32, 1253, L"ANSI_1253"},
    {33, 1254, L"ANSI_1254"},  {34, 1255, L"ANSI_1255"},  {35, 1256, L"ANSI_1256"}, {36, 1257, L"ANSI_1257"},
    {44, 1258, L"ANSI_1258"},  {37, 874, L"ANSI_874"},    {38, 932, L"ANSI_932"},   {39, 936, L"ANSI_936"},
    {40, 949, L"ANSI_949"},    {41, 950, L"ANSI_950"},    {42, 1361, L"ANSI_1361"}, {1, 20127, L"ascii"},
    {2, 28591, L"iso8859-1"},  {3, 28592, L"iso8859-2"},  {4, 28593, L"iso8859-3"}, {5, 28594, L"iso8859-4"},
    {6, 28595, L"iso8859-5"},  {7, 28596, L"iso8859-6"},  {8, 28597, L"iso8859-7"}, {9, 28598, L"iso8859-8"},
    {10, 28599, L"iso8859-9"}, {11, 437, L"dos437"},      {12, 850, L"dos850"},     {13, 852, L"dos852"},
    {14, 855, L"dos855"},      {15, 857, L"dos857"},      {16, 860, L"dos860"},     {17, 861, L"dos861"},
    {18, 863, L"dos863"},      {19, 864, L"dos864"},      {20, 865, L"dos865"},     {21, 869, L"dos869"},
    {22, 932, L"dos932"},      {23, 10000, L"mac-roman"}, {24, 950, L"big5"},       {25, 949, L"ksc5601"},
    {26, 1361, L"johab"},      {27, 866, L"dos866"},      {31, 936, L"gb2312"},
};

}   // namespace

const DwgCodePage& CodePageOfNumber(int number)
{
    for (const DwgCodePage& page : kPages)
        if (page.number == number && IsCodePage(page.windows))
            return page;
    return kPages[0];
}

const DwgCodePage& CodePageNamed(std::wstring_view name)
{
    const unsigned windows = CodePageOf(ToUtf8(name));
    for (const DwgCodePage& page : kPages)
        if (page.windows == windows)
            return page;
    return kPages[0];
}

}   // namespace KxPlat
