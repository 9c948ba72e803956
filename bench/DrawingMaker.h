// Writes ASCII R2000 drawings of any size: the same mix of entities and the same bytes for the same numbers.
#pragma once
#include <cstdint>
#include <string>

namespace KxBench {

struct DrawingSize {
    std::int64_t entities = 1'000'000;   // half LINE, a fifth LWPOLYLINE of 8 vertices, a tenth each CIRCLE, ARC, TEXT
    std::int64_t layers = 2'000;         // besides layer 0; entities are spread over all of them
    std::int64_t blocks = 0;             // that nothing inserts, each with a line on a layer of its own
    double reach = 0;                    // how far an entity goes, in units of a sheet of 100,000; 0: all over it
};

// Returns the count of bytes written, or -1 when the file cannot be written.
std::int64_t WriteDrawing(const std::string& path, const DrawingSize& size);

}   // namespace KxBench
