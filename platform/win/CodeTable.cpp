#include "CodeTable.h"
#include <map>
#include <memory>

namespace KxPlat {
namespace {

struct Range {
    unsigned first, last;
};

struct LeadRow {
    unsigned codePage;
    std::vector<Range> lead;
};

const std::vector<LeadRow>& LeadRows()
{
    static const std::vector<LeadRow> rows = {
        {932, {{0x81, 0x9F}, {0xE0, 0xFC}}},
        {936, {{0x81, 0xFE}}},
        {949, {{0x81, 0xFE}}},
        {950, {{0x81, 0xFE}}},
        {1361, {{0x84, 0xD3}, {0xD8, 0xDE}, {0xE0, 0xF9}}},
    };
    return rows;
}

// The user-defined areas of 936, numbered through the private use area in this order.
struct PrivateArea {
    unsigned firstLead, lastLead, firstTrail, lastTrail;
};
const PrivateArea kPrivateAreas936[] = {{0xAA, 0xAF, 0xA1, 0xFE}, {0xF8, 0xFE, 0xA1, 0xFE}, {0xA1, 0xA7, 0x40, 0xA0}};

void AddPrivateAreas(CodeTable& table)
{
    uint16_t next = 0xE000;
    for (const PrivateArea& area : kPrivateAreas936) {
        for (unsigned lead = area.firstLead; lead <= area.lastLead; ++lead) {
            for (unsigned trail = area.firstTrail; trail <= area.lastTrail; ++trail) {
                if (trail == 0x7F)
                    continue;
                table.pairs[lead * 256 + trail] = next++;
            }
        }
    }
}

// Windows gives every byte of a one-byte page a character: the control of the same number where nothing else stands.
void AddControls(CodeTable& table)
{
    for (unsigned byte = 0x80; byte < 0x100; ++byte) {
        if (!table.lead[byte] && table.single[byte] == kNoChar)
            table.single[byte] = static_cast<uint16_t>(byte);
    }
}

void AddReverse(CodeTable& table)
{
    table.back.assign(0x10000, 0);
    // Some characters of 932 stand in it twice or more; the second choice are the ones of rows 0xED and 0xEE.
    const auto isSecondChoice = [&](unsigned lead) { return table.codePage == 932 && (lead == 0xED || lead == 0xEE); };
    for (bool second : {false, true}) {
        for (unsigned bytes = 0; bytes < table.pairs.size(); ++bytes) {
            const uint16_t character = table.pairs[bytes];
            if (character != kNoChar && table.back[character] == 0 && isSecondChoice(bytes >> 8) == second)
                table.back[character] = static_cast<uint16_t>(bytes);
        }
    }
    for (unsigned byte = 0; byte < 256; ++byte) {
        if (table.single[byte] != kNoChar)
            table.back[table.single[byte]] = static_cast<uint16_t>(byte);
    }
}

std::unique_ptr<CodeTable> MakeTable(unsigned codePage)
{
    auto table = std::make_unique<CodeTable>();
    table->codePage = codePage;
    for (const LeadRow& row : LeadRows()) {
        if (row.codePage != codePage)
            continue;
        for (const Range& range : row.lead) {
            for (unsigned byte = range.first; byte <= range.last; ++byte)
                table->lead[byte] = true;
        }
        table->pairs.assign(0x10000, kNoChar);
    }
    if (!FillFromSystem(*table))
        return nullptr;
    if (codePage == 936) {
        table->single[0x80] = 0x20AC;
        table->single[0xFF] = 0xF8F5;
        AddPrivateAreas(*table);
    }
    if (table->pairs.empty())
        AddControls(*table);
    AddReverse(*table);
    return table;
}

}   // namespace

const CodeTable* FindCodeTable(unsigned codePage)
{
    static std::map<unsigned, std::unique_ptr<CodeTable>> tables;
    const auto found = tables.find(codePage);
    if (found != tables.end())
        return found->second.get();
    return tables.emplace(codePage, MakeTable(codePage)).first->second.get();
}

}   // namespace KxPlat
