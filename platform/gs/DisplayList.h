// What the entities of one block have drawn, in the axes of the block. Colours and layers stay as the entities state
// them, so that a change of layers needs no new list.
#pragma once
#include "../db/AcDbObjectId.h"
#include "../ge/AcGeMatrix3d.h"
#include "../gi/DrawNotes.h"
#include <cstdint>
#include <map>
#include <string>
#include <tuple>
#include <vector>

namespace KxPlat {

class FontChain;

// Colours beside 0xRRGGBB.
constexpr uint32_t kColorByLayer = 0xC0000000;
constexpr uint32_t kColorByBlock = 0xC1000000;
constexpr uint32_t kColorIndexed = 0xC3000000;   // with the index in the low byte
constexpr uint32_t kColorBackground = 0xC8000000;

// Blocks within blocks; deeper ones are not drawn.
constexpr size_t kDeepestBlock = 64;

// How something is drawn, before layers and block references have their say.
struct Look {
    uint32_t color = kColorByLayer;
    AcDbStub* layer = nullptr;
    AcDbStub* linetype = nullptr;   // null: ByLayer
    int16_t lineWeight = -1;        // as entities hold it: -1 ByLayer, -2 ByBlock, -3 default
    float linetypeScale = 1;

    auto Key() const { return std::tie(color, layer, linetype, lineWeight, linetypeScale); }
    bool operator<(const Look& other) const { return Key() < other.Key(); }
};

enum class ItemKind : uint8_t {
    Strip,        // `count` points from `first`, joined by lines; one point is a dot
    Fill,         // `count` contours from `first`, even-odd
    Edge,         // a strip that is the edge of faces
    Face,         // `count` points from `first`: a plane face that hides what lies behind it
    SmoothFace,   // the same, and as many normals behind them
    Arc,          // arcs[first]
    Text,         // texts[first]
    Block         // blocks[first]
};

struct Item {
    ItemKind kind;
    uint32_t look;
    uint32_t first;
    uint32_t count;
};

struct Contour {
    uint32_t first;
    uint32_t count;
};

// center + cos(t) * x + sin(t) * y for t from `start` over `sweep`.
struct ArcItem {
    AcGePoint3d center;
    AcGeVector3d x, y;
    double start = 0, sweep = 0;
};

// Glyphs along `x`; both axes are as long as the text is high, the width factor and the slant in them.
struct TextItem {
    std::wstring text;   // as shown
    const FontChain* fonts = nullptr;
    std::wstring family;   // of the font, where it is known
    AcGePoint3d origin;
    AcGeVector3d x, y;
    double tracking = 1;
    bool isVertical = false, isUnderlined = false, isOverlined = false;
};

struct BlockItem {
    AcDbObjectId block;
    AcGeMatrix3d toOwner;
};

// The items of one entity, and the box around them; an empty box (min above max) has no bounds.
struct EntitySpan {
    AcDbStub* entity;
    uint32_t firstItem, itemCount;
    float min[3], max[3];
};

struct DisplayList {
    std::vector<AcGePoint3d> points;
    std::vector<Contour> contours;
    std::vector<ArcItem> arcs;
    std::vector<TextItem> texts;
    std::vector<BlockItem> blocks;
    std::vector<Item> items;
    std::vector<Look> looks;
    std::vector<EntitySpan> entities;               // in drawing order
    uint64_t notes[size_t(DrawNote::Count)] = {};   // how often what was left out or simplified

    void Note(DrawNote note) { ++notes[size_t(note)]; }
};

}   // namespace KxPlat
