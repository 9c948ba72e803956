// Sections that are streams of bits between two marks: the header variables and the classes. Up to AC1018 everything
// stands in one stream; from AC1021 on texts and references stand in streams of their own behind the data.
#pragma once
#include "../db/core/TextCodec.h"
#include "BitWriter.h"
#include "DwgReport.h"
#include "DwgVersion.h"
#include "Sentinels.h"

namespace KxPlat {

struct SectionForm {
    DwgVersion version = kR2010;
    uint8_t maintenance = 0;
    TextCodec codec;   // of texts up to AC1018
};

class SectionIn {
public:
    // Finds the streams; what is damaged is reported, and read as far as it goes.
    SectionIn(std::string_view section, const Sentinel& mark, const SectionForm& form, const char* name,
              DwgReport& report);

    std::wstring Text();
    HandleRef Handle() { return HasStringStream(m_form.version) ? m_handles.H() : m_data.H(); }
    BitReader& data() { return m_data; }
    // Fewer bits left than any record takes.
    bool isAtEnd() const { return m_data.isBroken() || m_data.Left() < 8; }

    // Everything was read, but for bits that fill a byte.
    bool isUsedUp() const { return HasStringStream(m_form.version) ? m_data.Left() + m_texts.Left() == 0 : isAtEnd(); }

private:
    void SplitStreams(std::string_view bytes, size_t start, size_t end);

    const SectionForm& m_form;
    BitReader m_data, m_texts, m_handles;
};

class SectionOut {
public:
    explicit SectionOut(const SectionForm& form) : m_form(form) {}

    void Text(std::wstring_view text);
    void Handle(int code, uint64_t handle) { (HasStringStream(m_form.version) ? m_handles : m_data).H(code, handle); }
    BitWriter& data() { return m_data; }
    BitWriter& handles() { return m_handles; }
    // The whole section, marks and checksum included.
    std::string Close(const Sentinel& mark);

private:
    const SectionForm& m_form;
    BitWriter m_data, m_texts, m_handles;
};

// Texts as they stand in a stream: bytes of the code page with a zero at their end (AC1014 to AC1018), or UTF-16.
std::wstring ReadByteText(BitReader& in, const TextCodec& codec);
std::wstring ReadWideText(BitReader& in);
void WriteByteText(BitWriter& out, std::wstring_view text, const TextCodec& codec);
void WriteWideText(BitWriter& out, std::wstring_view text);

}   // namespace KxPlat
