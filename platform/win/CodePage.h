// Texts in bytes and in characters. A wide character holds a whole code point; surrogates occur only where a text was
// damaged. A code page is named by its Windows number; 0 (CP_ACP), 1 and 3 stand for the ANSI code page of this
// process.
#pragma once
#include <functional>
#include <string>
#include <string_view>

namespace KxPlat {

constexpr unsigned kUtf8 = 65001;

// The ANSI code page: KX_ACP of the environment, UTF-8 when that is absent or unknown.
unsigned AnsiCodePage();
// False, and nothing changed, for a code page that is not available.
bool SetAnsiCodePage(unsigned codePage);

bool IsCodePage(unsigned codePage);
// "ANSI_936", "dos850", "cp1252", "GBK", "UTF-8", ... without regard to case; 0 when the name is unknown.
unsigned CodePageOf(std::string_view name);
bool IsLeadByte(unsigned codePage, unsigned char byte);

std::string ToUtf8(std::wstring_view text);
// Each wrong byte becomes U+FFFD.
std::wstring FromUtf8(std::string_view bytes);

// What cannot be decoded becomes "?" (U+FFFD in UTF-8), what cannot be encoded "?". An unknown code page counts as
// UTF-8.
std::wstring Decode(unsigned codePage, std::string_view bytes);
std::string Encode(unsigned codePage, std::wstring_view text);
// One character; false, and nothing appended, when the code page has no place for it.
bool EncodeChar(unsigned codePage, wchar_t character, std::string& out);

// The pair that loses nothing: an undecodable byte b becomes U+DC00 + b, and is written back as that byte. Both append.
void DecodeLossless(unsigned codePage, std::string_view bytes, std::wstring& out);
std::wstring DecodeLossless(unsigned codePage, std::string_view bytes);
// `unmapped` writes a character that the code page lacks, e.g. as "\U+4E2D"; without it such a character becomes "?".
using UnmappedWriter = std::function<void(wchar_t, std::string&)>;
void EncodeLossless(unsigned codePage, std::wstring_view text, std::string& out, const UnmappedWriter& unmapped = {});

// UTF-16 joins surrogate pairs, and leaves lone ones as they are.
std::u16string ToUtf16(std::wstring_view text);
std::wstring FromUtf16(std::u16string_view units);

// True when `bytes` are well-formed UTF-8.
bool IsUtf8(std::string_view bytes);

}   // namespace KxPlat
