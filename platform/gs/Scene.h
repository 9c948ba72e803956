// A drawing as graphics see it: the display lists of its blocks, and the layers and linetypes of the moment.
#pragma once
#include "DisplayList.h"
#include <memory>
#include <unordered_map>

class AcDbDatabase;

namespace KxPlat {

struct SceneLayer {
    uint32_t rgb = 0xFFFFFF;
    bool isForeground = true;   // colour 7: black on light, white on dark
    bool isOff = false;
    bool isFrozen = false;
    bool isPlottable = true;
    int16_t lineWeight = -3;
    AcDbStub* linetype = nullptr;
    bool isZero = false;   // layer "0": in a block it is the layer of the insertion
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

    const SceneLayer& LayerOf(const AcDbStub* layer) const;
    const SceneLinetype& LinetypeOf(const AcDbStub* linetype) const;
    double linetypeScale() const { return m_linetypeScale; }
    bool showsLineWeights() const { return m_showsLineWeights; }
    AcDbDatabase& database() const { return m_database; }
    // Items that were left out for damaged coordinates, in all lists made so far.
    uint64_t leftOut() const { return m_leftOut; }

private:
    AcDbDatabase& m_database;
    std::unordered_map<const AcDbStub*, std::unique_ptr<DisplayList>> m_lists;
    std::unordered_map<const AcDbStub*, SceneLayer> m_layers;
    std::unordered_map<const AcDbStub*, SceneLinetype> m_linetypes;
    double m_linetypeScale = 1;
    bool m_showsLineWeights = false;
    uint64_t m_leftOut = 0;
};

}   // namespace KxPlat
