#include "DrawingMaker.h"
#include <array>
#include <charconv>
#include <cstdio>
#include <memory>
#include <string_view>

namespace KxBench {
namespace {

// Groups go through one buffer; handles are given in the order of writing.
class GroupWriter {
public:
    explicit GroupWriter(std::FILE* file) : m_file(file) { m_buffer.reserve(kBufferSize + kRoom); }

    void Text(int code, std::string_view value)
    {
        Code(code);
        m_buffer.append(value);
        EndLine();
    }
    void Int(int code, std::int64_t value) { Number(code, value); }
    void Real(int code, double value) { Number(code, value); }
    void Handle(int code, std::uint64_t value)
    {
        std::array<char, 24> text;
        auto end = std::to_chars(text.data(), text.data() + text.size(), value, 16).ptr;
        for (char* digit = text.data(); digit != end; ++digit)
            if (*digit >= 'a')
                *digit -= 'a' - 'A';
        Text(code, {text.data(), end});
    }
    void Point(int code, double x, double y, double z)
    {
        Real(code, x);
        Real(code + 10, y);
        Real(code + 20, z);
    }
    bool Flush()
    {
        m_good &= std::fwrite(m_buffer.data(), 1, m_buffer.size(), m_file) == m_buffer.size();
        m_written += static_cast<std::int64_t>(m_buffer.size());
        m_buffer.clear();
        return m_good;
    }
    std::int64_t written() const { return m_written; }

private:
    static constexpr std::size_t kBufferSize = 1 << 20;
    static constexpr std::size_t kRoom = 4096;

    void Code(int code)
    {
        std::array<char, 8> text;
        auto end = std::to_chars(text.data(), text.data() + text.size(), code).ptr;
        m_buffer.append(static_cast<std::size_t>(3 - std::min<std::ptrdiff_t>(3, end - text.data())), ' ');
        m_buffer.append(text.data(), end);
        EndLine();
    }
    template <class T>
    void Number(int code, T value)
    {
        Code(code);
        std::array<char, 32> text;
        m_buffer.append(text.data(), std::to_chars(text.data(), text.data() + text.size(), value).ptr);
        EndLine();
    }
    void EndLine()
    {
        m_buffer.push_back('\n');
        if (m_buffer.size() >= kBufferSize)
            Flush();
    }

    std::FILE* m_file;
    std::string m_buffer;
    std::int64_t m_written = 0;
    bool m_good = true;
};

// The same numbers on every machine.
class Random {
public:
    std::uint64_t Next()
    {
        std::uint64_t z = (m_state += 0x9E3779B97F4A7C15u);
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
        return z ^ (z >> 31);
    }
    double Real(double below) { return static_cast<double>(Next() >> 11) * 0x1p-53 * below; }
    std::int64_t Below(std::int64_t n) { return static_cast<std::int64_t>(Next() % static_cast<std::uint64_t>(n)); }

private:
    std::uint64_t m_state = 20261121;
};

// Handles of what every drawing holds; entities and layers follow after them.
enum : std::uint64_t {
    kVportTable = 1,
    kLtypeTable,
    kLayerTable,
    kStyleTable,
    kViewTable,
    kUcsTable,
    kAppidTable,
    kDimstyleTable,
    kBlockRecordTable,
    kRootDictionary,
    kLayoutDictionary,
    kGroupDictionary,
    kModelRecord,
    kPaperRecord,
    kModelBlock,
    kModelEndBlock,
    kPaperBlock,
    kPaperEndBlock,
    kModelLayout,
    kPaperLayout,
    kByBlock,
    kByLayer,
    kContinuous,
    kLayerZero,
    kStandardStyle,
    kAcadAppid,
    kStandardDimstyle,
    kActiveVport,
    kFirstFree = 0x30
};

// A block takes four handles in a row: its record, its begin, its line and its end.
constexpr std::int64_t kObjectsOfBlock = 4;

class DrawingMaker {
public:
    DrawingMaker(std::FILE* file, const DrawingSize& size) : m_out(file), m_size(size) {}

    std::int64_t Write()
    {
        Header();
        Tables();
        Blocks();
        Begin("ENTITIES");
        for (std::int64_t i = 0; i < m_size.entities; ++i)
            Entity(i);
        End();
        Objects();
        m_out.Text(0, "EOF");
        return m_out.Flush() ? m_out.written() : -1;
    }

private:
    void Begin(std::string_view section)
    {
        m_out.Text(0, "SECTION");
        m_out.Text(2, section);
    }
    void End() { m_out.Text(0, "ENDSEC"); }

    void Header()
    {
        Begin("HEADER");
        m_out.Text(9, "$ACADVER");
        m_out.Text(1, "AC1015");
        m_out.Text(9, "$DWGCODEPAGE");
        m_out.Text(3, "ANSI_1252");
        m_out.Text(9, "$HANDSEED");
        m_out.Handle(5, kFirstFree + static_cast<std::uint64_t>(m_size.layers + m_size.entities +
                                                                kObjectsOfBlock * m_size.blocks));
        m_out.Text(9, "$CLAYER");
        m_out.Text(8, "0");
        End();
    }

    void Table(std::string_view name, std::uint64_t handle, std::int64_t count)
    {
        m_out.Text(0, "TABLE");
        m_out.Text(2, name);
        m_out.Handle(5, handle);
        m_out.Handle(330, 0);
        m_out.Text(100, "AcDbSymbolTable");
        m_out.Int(70, count);
    }
    void Record(std::string_view type, std::uint64_t handle, std::uint64_t table, std::string_view subclass,
                std::string_view name)
    {
        m_out.Text(0, type);
        m_out.Handle(type == "DIMSTYLE" ? 105 : 5, handle);
        m_out.Handle(330, table);
        m_out.Text(100, "AcDbSymbolTableRecord");
        m_out.Text(100, subclass);
        m_out.Text(2, name);
        if (type != "BLOCK_RECORD")
            m_out.Int(70, 0);
    }
    void EndTable() { m_out.Text(0, "ENDTAB"); }

    void Linetype(std::uint64_t handle, std::string_view name)
    {
        Record("LTYPE", handle, kLtypeTable, "AcDbLinetypeTableRecord", name);
        m_out.Text(3, "");
        m_out.Int(72, 65);
        m_out.Int(73, 0);
        m_out.Real(40, 0.0);
    }
    void Layer(std::uint64_t handle, std::string_view name, std::int64_t color)
    {
        Record("LAYER", handle, kLayerTable, "AcDbLayerTableRecord", name);
        m_out.Int(62, color);
        m_out.Text(6, "Continuous");
    }

    void Tables()
    {
        Begin("TABLES");
        Table("VPORT", kVportTable, 1);
        Record("VPORT", kActiveVport, kVportTable, "AcDbViewportTableRecord", "*Active");
        EndTable();
        Table("LTYPE", kLtypeTable, 3);
        Linetype(kByBlock, "ByBlock");
        Linetype(kByLayer, "ByLayer");
        Linetype(kContinuous, "Continuous");
        EndTable();
        Table("LAYER", kLayerTable, m_size.layers + 1);
        Layer(kLayerZero, "0", 7);
        for (std::int64_t i = 1; i <= m_size.layers; ++i)
            Layer(m_next++, LayerName(i), 1 + i % 255);
        EndTable();
        Table("STYLE", kStyleTable, 1);
        Record("STYLE", kStandardStyle, kStyleTable, "AcDbTextStyleTableRecord", "Standard");
        m_out.Text(3, "txt");
        EndTable();
        Table("VIEW", kViewTable, 0);
        EndTable();
        Table("UCS", kUcsTable, 0);
        EndTable();
        Table("APPID", kAppidTable, 1);
        Record("APPID", kAcadAppid, kAppidTable, "AcDbRegAppTableRecord", "ACAD");
        EndTable();
        Table("DIMSTYLE", kDimstyleTable, 1);
        m_out.Text(100, "AcDbDimStyleTable");
        Record("DIMSTYLE", kStandardDimstyle, kDimstyleTable, "AcDbDimStyleTableRecord", "Standard");
        EndTable();
        Table("BLOCK_RECORD", kBlockRecordTable, 2 + m_size.blocks);
        Record("BLOCK_RECORD", kModelRecord, kBlockRecordTable, "AcDbBlockTableRecord", "*Model_Space");
        m_out.Handle(340, kModelLayout);
        Record("BLOCK_RECORD", kPaperRecord, kBlockRecordTable, "AcDbBlockTableRecord", "*Paper_Space");
        m_out.Handle(340, kPaperLayout);
        m_firstBlock = m_next;
        for (std::int64_t i = 0; i < m_size.blocks; ++i, m_next += kObjectsOfBlock)
            Record("BLOCK_RECORD", m_next, kBlockRecordTable, "AcDbBlockTableRecord", BlockName(i));
        EndTable();
        End();
    }

    static std::string BlockName(std::int64_t index) { return "B" + std::to_string(index); }

    void Block(std::uint64_t record, std::uint64_t begin, std::uint64_t end, std::string_view name, bool paper,
               std::string_view layerOfLine = "")
    {
        for (bool first : {true, false}) {
            if (!first && !layerOfLine.empty()) {
                StartEntity("LINE", begin + 1, record, layerOfLine);
                m_out.Text(100, "AcDbLine");
                RandomPoint(10);
                RandomPoint(11);
            }
            m_out.Text(0, first ? "BLOCK" : "ENDBLK");
            m_out.Handle(5, first ? begin : end);
            m_out.Handle(330, record);
            m_out.Text(100, "AcDbEntity");
            if (paper)
                m_out.Int(67, 1);
            m_out.Text(8, "0");
            m_out.Text(100, first ? "AcDbBlockBegin" : "AcDbBlockEnd");
            if (first) {
                m_out.Text(2, name);
                m_out.Int(70, 0);
                m_out.Point(10, 0.0, 0.0, 0.0);
                m_out.Text(3, name);
                m_out.Text(1, "");
            }
        }
    }
    void Blocks()
    {
        Begin("BLOCKS");
        Block(kModelRecord, kModelBlock, kModelEndBlock, "*Model_Space", false);
        Block(kPaperRecord, kPaperBlock, kPaperEndBlock, "*Paper_Space", true);
        for (std::int64_t i = 0; i < m_size.blocks; ++i) {
            const std::uint64_t record = m_firstBlock + static_cast<std::uint64_t>(kObjectsOfBlock * i);
            Block(record, record + 1, record + 3, BlockName(i), false, LayerName(i % (m_size.layers + 1)));
        }
        End();
    }

    static std::string LayerName(std::int64_t index)
    {
        std::string digits = std::to_string(index);
        return index == 0 ? "0" : "L" + std::string(6 - std::min<std::size_t>(6, digits.size()), '0') + digits;
    }

    void StartEntity(std::string_view type, std::uint64_t handle, std::uint64_t owner, std::string_view layer)
    {
        m_out.Text(0, type);
        m_out.Handle(5, handle);
        m_out.Handle(330, owner);
        m_out.Text(100, "AcDbEntity");
        m_out.Text(8, layer);
    }
    void StartEntity(std::string_view type)
    {
        StartEntity(type, m_next++, kModelRecord, LayerName(m_random.Below(m_size.layers + 1)));
    }
    // Along an axis; entities of a small reach lie around a place of their own.
    double Coordinate(int axis)
    {
        return m_size.reach > 0 ? m_place[axis] + m_random.Real(m_size.reach) : m_random.Real(100'000.0);
    }
    double Radius() { return 1.0 + m_random.Real(m_size.reach > 0 ? m_size.reach / 2 : 500.0); }
    void RandomPoint(int code)
    {
        const double x = Coordinate(0);
        const double y = Coordinate(1);
        m_out.Point(code, x, y, m_random.Real(10.0));
    }

    void Line()
    {
        StartEntity("LINE");
        m_out.Text(100, "AcDbLine");
        RandomPoint(10);
        RandomPoint(11);
    }
    void Polyline()
    {
        StartEntity("LWPOLYLINE");
        m_out.Text(100, "AcDbPolyline");
        m_out.Int(90, 8);
        m_out.Int(70, 1);
        for (int vertex = 0; vertex < 8; ++vertex) {
            m_out.Real(10, Coordinate(0));
            m_out.Real(20, Coordinate(1));
        }
    }
    void Circle()
    {
        StartEntity("CIRCLE");
        m_out.Text(100, "AcDbCircle");
        RandomPoint(10);
        m_out.Real(40, Radius());
    }
    void Arc()
    {
        StartEntity("ARC");
        m_out.Text(100, "AcDbCircle");
        RandomPoint(10);
        m_out.Real(40, Radius());
        m_out.Text(100, "AcDbArc");
        m_out.Real(50, m_random.Real(360.0));
        m_out.Real(51, m_random.Real(360.0));
    }
    void Text(std::int64_t index)
    {
        StartEntity("TEXT");
        m_out.Text(100, "AcDbText");
        RandomPoint(10);
        m_out.Real(40, 1.0 + m_random.Real(5.0));
        m_out.Text(1, "Room " + std::to_string(index));
        m_out.Text(100, "AcDbText");
    }
    // Of ten entities in a row, five are lines and so on, in a mixed order.
    void Entity(std::int64_t index)
    {
        for (double& place : m_place)
            if (m_size.reach > 0)
                place = m_random.Real(100'000.0);
        static constexpr std::string_view kMix = "LPLCLPLALT";
        switch (kMix[static_cast<std::size_t>(index % 10)]) {
        case 'L':
            return Line();
        case 'P':
            return Polyline();
        case 'C':
            return Circle();
        case 'A':
            return Arc();
        default:
            return Text(index);
        }
    }

    void StartObject(std::string_view type, std::uint64_t handle, std::uint64_t owner, std::string_view subclass)
    {
        m_out.Text(0, type);
        m_out.Handle(5, handle);
        m_out.Handle(330, owner);
        m_out.Text(100, subclass);
    }
    void Entry(std::string_view name, std::uint64_t handle)
    {
        m_out.Text(3, name);
        m_out.Handle(350, handle);
    }
    void Layout(std::uint64_t handle, std::string_view name, std::int64_t order, std::uint64_t record)
    {
        StartObject("LAYOUT", handle, kLayoutDictionary, "AcDbPlotSettings");
        m_out.Text(1, "");
        m_out.Text(100, "AcDbLayout");
        m_out.Text(1, name);
        m_out.Int(71, order);
        m_out.Handle(330, record);
    }
    void Objects()
    {
        Begin("OBJECTS");
        StartObject("DICTIONARY", kRootDictionary, 0, "AcDbDictionary");
        Entry("ACAD_GROUP", kGroupDictionary);
        Entry("ACAD_LAYOUT", kLayoutDictionary);
        StartObject("DICTIONARY", kGroupDictionary, kRootDictionary, "AcDbDictionary");
        StartObject("DICTIONARY", kLayoutDictionary, kRootDictionary, "AcDbDictionary");
        Entry("Model", kModelLayout);
        Entry("Layout1", kPaperLayout);
        Layout(kModelLayout, "Model", 0, kModelRecord);
        Layout(kPaperLayout, "Layout1", 1, kPaperRecord);
        End();
    }

    GroupWriter m_out;
    DrawingSize m_size;
    Random m_random;
    double m_place[2] = {0, 0};   // of the entity, lower left
    std::uint64_t m_next = kFirstFree;
    std::uint64_t m_firstBlock = 0;
};

}   // namespace

std::int64_t WriteDrawing(const std::string& path, const DrawingSize& size)
{
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "wb"), &std::fclose);
    return file ? DrawingMaker(file.get(), size).Write() : -1;
}

}   // namespace KxBench
