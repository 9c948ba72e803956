// Which class a record of a drawing file becomes, by its DXF name; where several classes share a name, by its subclass
// markers, or by its flags in files that have no markers.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

class AcDbObject;
class AcRxClass;

namespace KxPlat {

// What choosing between classes of one name needs to know of a record.
struct RecordSigns {
    std::vector<std::string> markers;   // 100
    int64_t flags = 0;                  // 70
    int64_t count = 0;                  // 71
};

class DxfClasses {
public:
    DxfClasses();

    // Empty when no class has this name.
    const std::vector<AcRxClass*>& Candidates(std::string_view dxfName) const;
    AcRxClass* Choose(std::string_view dxfName, const RecordSigns& signs) const;

private:
    struct Hash {
        using is_transparent = void;
        size_t operator()(std::string_view text) const { return std::hash<std::string_view>()(text); }
    };
    std::unordered_map<std::string, std::vector<AcRxClass*>, Hash, std::equal_to<>> m_byName;
};

}   // namespace KxPlat
