#include "DrawingState.h"
#include "db/AcDbDatabase.h"
#include "win/Files.h"
#include "win/Processes.h"
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <set>
#include <sstream>

namespace KxTest {

namespace {

const std::set<std::string> g_timeVariables = {"$TDUPDATE",   "$TDUUPDATE", "$TDINDWG",
                                               "$TDUSRTIMER", "$HANDSEED",  "$FINGERPRINTGUID"};
const int g_examples = 3;
const size_t g_longest = 80;   // bytes of a value that is shown

std::string Trimmed(const std::string& line)
{
    const size_t first = line.find_first_not_of(" \t\r");
    return first == std::string::npos ? "" : line.substr(first, line.find_last_not_of("\r") - first + 1);
}

// Reals of group codes. Their last digits are the compiler's affair.
bool IsReal(int code)
{
    return (code >= 10 && code < 60) || (code >= 110 && code < 150) || (code >= 210 && code < 240) ||
           (code >= 460 && code < 470) || (code >= 1010 && code < 1060);
}

std::string Rounded(const std::string& value)
{
    constexpr double kNothing = 1e-10;
    char* end = nullptr;
    const double number = std::strtod(value.c_str(), &end);
    if (value.empty() || *end != 0)
        return value;
    char text[32];
    std::snprintf(text, sizeof text, "%.10g", std::fabs(number) < kNothing ? 0.0 : number);
    return text;
}

// A record ends where the next begins; those of the header begin with their name.
struct Collector {
    DrawingState state;
    Record record;
    std::string handle;

    void Finish()
    {
        if (!handle.empty() && g_timeVariables.count(handle) == 0)
            state[handle] = std::move(record);
        record = Record();
        handle.clear();
    }
    void Take(int code, const std::string& value)
    {
        if (code == 0 || code == 9) {
            Finish();
            record.type = value;
            handle = code == 9 ? value : "";
            return;
        }
        if (handle.empty() && (code == 5 || (code == 105 && record.type == "DIMSTYLE")))
            handle = value;
        record.groups.emplace_back(code, IsReal(code) ? Rounded(value) : value);
    }
};

using Values = std::map<int, std::string>;

// The values of each code, in file order.
Values ByCode(const Record& record)
{
    Values values;
    for (const auto& [code, value] : record.groups)
        values[code] += (values.count(code) != 0 ? "," : "") + value;
    return values;
}

std::string Shown(const Values& values, int code)
{
    const auto found = values.find(code);
    if (found == values.end())
        return "none";
    return found->second.size() > g_longest ? found->second.substr(0, g_longest) + "..." : found->second;
}

struct Kind {
    int count = 0;
    std::vector<std::string> examples;
};

class Report {
public:
    void Add(const std::string& kind, const std::string& example)
    {
        Kind& entry = m_kinds[kind];
        if (++entry.count <= g_examples)
            entry.examples.push_back(example);
    }
    void AddChange(const std::string& handle, const Record& before, const Record& after)
    {
        const Values old = ByCode(before), now = ByCode(after);
        std::set<int> codes;
        for (const Values* values : {&old, &now})
            for (const auto& pair : *values)
                codes.insert(pair.first);
        std::string kind = "changed " + after.type + " in", example = handle + ":";
        for (int code : codes) {
            const auto was = old.find(code), is = now.find(code);
            if (was != old.end() && is != now.end() && was->second == is->second)
                continue;
            kind += " " + std::to_string(code);
            example += " " + std::to_string(code) + " " + Shown(old, code) + " -> " + Shown(now, code) + ";";
        }
        Add(kind, example);
    }
    std::string Text() const
    {
        std::string text;
        for (const auto& [kind, entry] : m_kinds) {
            text += std::to_string(entry.count) + " " + kind + "\n";
            for (const std::string& example : entry.examples)
                text += "    " + example + "\n";
        }
        return text.empty() ? "(none)\n" : text;
    }

private:
    std::map<std::string, Kind> m_kinds;
};

}   // namespace

DrawingState StateOf(AcDbDatabase& database)
{
    const std::string path = testing::TempDir() + "kx-state-" + std::to_string(GetCurrentProcessId()) + ".dxf";
    EXPECT_EQ(database.dxfOut(KxPlat::DrivePath(path).c_str()), Acad::eOk);
    std::ifstream file(path, std::ios::binary);
    Collector collector;
    for (std::string code, value; std::getline(file, code) && std::getline(file, value);)
        collector.Take(std::stoi(code), Trimmed(value));
    collector.Finish();
    std::remove(path.c_str());
    EXPECT_FALSE(collector.state.empty());
    return std::move(collector.state);
}

std::string Changes(const DrawingState& before, const DrawingState& after)
{
    Report report;
    for (const auto& [handle, record] : before) {
        const auto found = after.find(handle);
        if (found == after.end())
            report.Add("gone " + record.type, handle);
        else if (!(found->second == record))
            report.AddChange(handle, record, found->second);
    }
    for (const auto& [handle, record] : after) {
        if (before.count(handle) == 0)
            report.Add("new " + record.type, handle);
    }
    return report.Text();
}

}   // namespace KxTest
