#include "PlotOptions.h"
#include "win/CharTables.h"
#include "win/CodePage.h"
#include <charconv>
#include <iterator>

namespace KxConsole {

namespace {

struct Paper {
    const wchar_t* name;
    double width, height;   // millimetres
};

constexpr Paper kPapers[] = {{L"a0", 1189, 841}, {L"a1", 841, 594},         {L"a2", 594, 420},       {L"a3", 420, 297},
                             {L"a4", 297, 210},  {L"letter", 279.4, 215.9}, {L"legal", 355.6, 215.9}};

bool ReadNumber(const char*& at, const char* end, double& number)
{
    const std::from_chars_result result = std::from_chars(at, end, number);
    at = result.ptr;
    return result.ec == std::errc() && number > 0;
}

}   // namespace

std::string SetPlotPaper(PlotOptions& options, const std::string& value)
{
    for (const Paper& paper : kPapers)
        if (KxPlat::EqualNoCase(KxPlat::FromUtf8(value), paper.name)) {
            options.settings.paperWidth = paper.width;
            options.settings.paperHeight = paper.height;
            return {};
        }
    const char *at = value.data(), *end = at + value.size();
    double width = 0, height = 0;
    if (!ReadNumber(at, end, width) || at == end || *at != 'x' || !ReadNumber(++at, end, height) || at != end)
        return "a paper such as A3, or WIDTHxHEIGHT in millimetres, is needed";
    options.settings.paperWidth = width;
    options.settings.paperHeight = height;
    options.settings.keepsPaper = true;
    return {};
}

std::string SetPlotResolution(PlotOptions& options, const std::string& value)
{
    const char *at = value.data(), *end = at + value.size();
    double dots = 0;
    if (!ReadNumber(at, end, dots) || at != end || dots > 4800)
        return "dots per inch, a number up to 4800, are needed";
    options.settings.dotsPerInch = dots;
    return {};
}

std::string SetPlotBackground(PlotOptions& options, const std::string& value)
{
    if (value == "white" || value == "black") {
        options.settings.background = value == "white" ? 0xFFFFFF : 0x000000;
        return {};
    }
    uint32_t rgb = 0;
    const char* end = value.data() + value.size();
    if (value.size() != 7 || value[0] != '#' || std::from_chars(value.data() + 1, end, rgb, 16).ptr != end)
        return "white, black or #RRGGBB is needed";
    options.settings.background = rgb;
    return {};
}

}   // namespace KxConsole
