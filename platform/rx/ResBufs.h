// What the platform knows about result buffers besides the documented calls.
#pragma once
#include "adsdef.h"
#include <string_view>

namespace KxPlat {

// Which member of the value union a type uses.
enum class ResKind { None, Real, Point, Short, Long, Int64, Text, EntityName, Binary, Unknown };

// For the RT types and for DXF group codes.
ResKind ResKindOf(int restype);

// A copy of a whole chain, or of one buffer.
resbuf* CopyChain(const resbuf* chain);
resbuf* CopyOne(const resbuf* buffer);

resbuf* NewTextRb(int restype, std::wstring_view text);
resbuf* NewRealRb(int restype, double value);
resbuf* NewPointRb(int restype, double x, double y, double z);
resbuf* NewShortRb(int restype, int value);
resbuf* NewLongRb(int restype, Adesk::Int32 value);
resbuf* NewNameRb(int restype, const ads_name name);
resbuf* NewBinaryRb(int restype, std::string_view bytes);

// Replaces the text of a buffer.
void SetText(resbuf* buffer, std::wstring_view text);

// The last buffer of a chain; null for null.
resbuf* LastOf(resbuf* chain);

// Puts buffers at the end of a chain without walking it.
class ChainBuilder {
public:
    void Add(resbuf* chain);
    resbuf* Take();

private:
    resbuf* m_first = nullptr;
    resbuf* m_last = nullptr;
};

// Buffers that exist now. A test that balances its calls finds the figure unchanged.
long LiveResBufs();

}   // namespace KxPlat
