// What a drawing holds, as a saved DXF file tells it, so that tests can say what a command changed.
#pragma once
#include <map>
#include <string>
#include <utility>
#include <vector>

class AcDbDatabase;

namespace KxTest {

struct Record {
    std::string type;
    std::vector<std::pair<int, std::string>> groups;
    bool operator==(const Record&) const = default;
};

// Records with a handle by their handle, header variables by their name. What tells of the time of saving is left out.
using DrawingState = std::map<std::string, Record>;

// Saves the drawing to a file of its own and reads that file.
DrawingState StateOf(AcDbDatabase& database);

// One line for each kind of difference: how often it occurs, and the first ones in full. "(none)" for equal drawings.
std::string Changes(const DrawingState& before, const DrawingState& after);

}   // namespace KxTest
