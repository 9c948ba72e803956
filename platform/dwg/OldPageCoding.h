// The coding of AC1021 pages: interleaved code words, and an LZ coding of their own.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

namespace KxPlat {

// Appends what `coded` stands for, at most `limit` bytes. False when the coding is broken; what came before stays.
bool DecodeOldPage(std::string_view coded, uint64_t limit, std::string& out);

// The data of `words` code words of 255 bytes, of which the first `dataBytes` are data and the rest repair bytes (not
// used). Bytes that the page lacks are left out.
std::string Deinterleave(std::string_view page, uint64_t words, uint64_t dataBytes);

}   // namespace KxPlat
