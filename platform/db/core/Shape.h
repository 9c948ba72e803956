// Remembers in which form each object stood in its file: which groups, in which order.
// All forms of a drawing make one tree. Reading an object walks from its class's root, one step per group, and each
// step says what to do with the group; the step reached last is the object's shape. Writing an unchanged object walks
// the same steps, so that every group comes back in its place.
#pragma once
#include "Fields.h"
#include <deque>
#include <string_view>
#include <unordered_map>

namespace KxPlat {

enum class Op : uint8_t {
    Root,
    Handle,       // 5 or 105
    Owner,        // 330 of the header
    Marker,       // 100 with the text of a known section
    GroupOpen,    // 102 "{ACAD_REACTORS" or "{ACAD_XDICTIONARY"
    GroupClose,   // 102 "}"
    Reactor,      // 330 within {ACAD_REACTORS}: all that follow each other are one step
    Dictionary,   // 360 within {ACAD_XDICTIONARY}
    Int16,
    Int32,
    Int64,
    Real,   // one component of a real or point
    Text,
    Id,
    Name,
    Bytes,
    Count,   // a number that follows from a list
    List,    // all groups of one instance of a list
    Other,   // a run of groups that no field claims
    XData    // everything from 1000 on
};

struct ShapeNode {
    int16_t code = 0;
    Op op = Op::Root;
    uint8_t section = 0;
    uint16_t field = 0;      // index within the section
    uint8_t component = 0;   // of a point: 0 x, 1 y, 2 z
    TableKind table = TableKind::Count;
    uint32_t offset = 0;   // of the value from the start of the object, component included
    uint32_t parent = 0;
    uint32_t firstChild = 0;   // 0: none
    uint32_t nextSibling = 0;
    uint32_t predicted = 0;   // the child taken last
    uint32_t text = 0;        // of a marker or brace: index into the table of texts
    uint16_t depth = 0;
    bool isInBraces = false;   // of a run: within the braces of an application that no class of ours knows
    bool isMarked = false;     // a subclass marker came before: groups belong to the section of the last one
    bool isForeign = false;    // ... which is one that the class does not have: its groups belong to no field
};

class ShapeTable {
public:
    ShapeTable() { m_nodes.emplace_back(); }

    uint32_t RootOf(const ClassSchema& schema);

    // The node that `code` leads to from `node`. `text` is called for 100 and 102 only.
    template <class TextOf>
    uint32_t Step(const ClassSchema& schema, uint32_t node, int code, TextOf&& text)
    {
        const ShapeNode& from = m_nodes[node];
        if (from.predicted != 0) {
            const ShapeNode& next = m_nodes[from.predicted];
            if (next.code == code && code != 100 && code != 102 && next.op != Op::Other)
                return from.predicted;
        }
        return SlowStep(schema, node, code, code == 100 || code == 102 ? text() : std::string_view());
    }

    const ShapeNode& operator[](uint32_t node) const { return m_nodes[node]; }
    const std::string& TextOf(const ShapeNode& node) const { return m_texts[node.text]; }
    // The steps from the root to `shape`, root left out. The reference lives as long as the table.
    const std::vector<uint32_t>& PathOf(uint32_t shape);

private:
    uint32_t SlowStep(const ClassSchema& schema, uint32_t node, int code, std::string_view text);
    ShapeNode Resolve(const ClassSchema& schema, uint32_t node, int code, std::string_view text);
    bool IsTaken(uint32_t node, const ShapeNode& wanted) const;
    bool FindField(const ClassSchema& schema, uint32_t node, int section, int code, ShapeNode& found) const;
    bool FindMisplaced(const ClassSchema& schema, uint32_t node, int code, ShapeNode& found) const;
    uint32_t TextIndex(std::string_view text);

    std::vector<ShapeNode> m_nodes;
    std::vector<std::string> m_texts{std::string()};
    std::unordered_map<std::string, uint32_t> m_textIndex;
    std::vector<uint32_t> m_roots;   // by number of the schema
    std::unordered_map<uint32_t, std::vector<uint32_t>> m_paths;
};

}   // namespace KxPlat
