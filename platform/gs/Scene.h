// A drawing as graphics see it: the display lists of its blocks, and the layers and linetypes of the moment.
#pragma once
#include "DisplayList.h"
#include <memory>
#include <string>
#include <unordered_map>
#include <unordered_set>

class AcDbDatabase;

namespace KxPlat {

class SpatialIndex;

struct SceneLayer {
    uint32_t rgb = 0xFFFFFF;
    bool isForeground = true;   // colour 7: black on light, white on dark
    bool isOff = false;
    bool isFrozen = false;
    bool isPlottable = true;
    int16_t lineWeight = -3;
    AcDbStub* linetype = nullptr;
    bool isDefpoints = false;   // where dimensions keep the points that they measure
    bool isZero = false;        // layer "0": in a block it is the layer of the insertion
};

// Dash lengths in drawing units, gaps negative; empty for a continuous line.
struct SceneLinetype {
    enum class Kind : uint8_t { Own, ByLayer, ByBlock };
    Kind kind = Kind::Own;
    std::vector<double> dashes;
    double period = 0;
};

struct Box {
    double min[3], max[3];
    bool isEmpty() const { return min[0] > max[0]; }
};

class Scene {
public:
    explicit Scene(AcDbDatabase& database);
    ~Scene();

    // The list of a block, made on the first call. Entities stay closed.
    const DisplayList& ListOf(AcDbObjectId block);
    // What a block's entities take up, entities without an end left out. A block within itself counts once.
    Box BoxOf(AcDbObjectId block);
    // The same for what is visible: layers that are off or frozen left out.
    Box VisibleBoxOf(AcDbObjectId block);

    // Layers and linetypes as they are now. Lists stay.
    void ReadTables();
    // All lists are made anew when next asked for.
    void Forget();
    // What the drawing's objects had done to them since the last call comes into the lists, and the tables are read
    // again. True when a list was changed.
    bool Update();
    // Blocks whose lists are being made, one for another: how many, and whether this is one of them.
    size_t TakingDepth() const { return m_taking.size(); }
    bool IsTaking(AcDbObjectId block) const;
    // Of the list of a block; null for a short list.
    SpatialIndex* IndexOf(AcDbObjectId block);

    const SceneLayer& LayerOf(const AcDbStub* layer) const;
    const SceneLinetype& LinetypeOf(const AcDbStub* linetype) const;
    double linetypeScale() const { return m_linetypeScale; }
    bool showsLineWeights() const { return m_showsLineWeights; }
    AcDbDatabase& database() const { return m_database; }
    // How often something was left out or simplified, in all lists made so far.
    uint64_t CountOf(DrawNote note) const;
    // Of drawing, rather than of making a list: said once, however often it is drawn.
    void Note(DrawNote note) { m_notes[size_t(note)] = 1; }
    // The same as a line for users; empty when nothing was.
    std::wstring LeftOutText() const;
    // Counts up whenever layers and linetypes are read.
    uint64_t tablesNumber() const { return m_tablesNumber; }
    // How often entities were taken down, one by one.
    uint64_t drawnCount() const { return m_drawnCount; }

private:
    struct Kept;
    using Touched = std::unordered_map<const AcDbStub*, std::unordered_set<AcDbStub*>>;   // by block

    Box MeasuredBox(const DisplayList& list, bool isSpace) const;
    void TakeDown(Kept& kept, AcDbObjectId block);
    void TakeDownAnew(Kept& kept, AcDbObjectId block, const std::unordered_set<AcDbStub*>& entities);
    bool Sort(const std::vector<AcDbStub*>& touched, Touched& byBlock) const;
    void SpreadToReferences(Touched& byBlock) const;
    std::string StateOfHeader() const;

    AcDbDatabase& m_database;
    std::unordered_map<const AcDbStub*, std::unique_ptr<Kept>> m_lists;
    std::unordered_map<const AcDbStub*, SceneLayer> m_layers;
    std::unordered_map<const AcDbStub*, SceneLinetype> m_linetypes;
    double m_linetypeScale = 1;
    bool m_showsLineWeights = false;
    std::vector<AcDbObjectId> m_taking;
    uint64_t m_notes[size_t(DrawNote::Count)] = {};
    uint64_t m_tablesNumber = 0;
    uint64_t m_drawnCount = 0;
    uint64_t m_position = 0;     // in the record of what was touched
    std::string m_headerState;   // of the variables that pictures depend on
};

}   // namespace KxPlat
