// Writes groups through one buffer, as text or as binary values. Both writers have the same members.
#pragma once
#include "../db/core/GroupValue.h"
#include <array>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <functional>
#include <memory>
#include <string_view>

namespace KxPlat {

// Bytes on their way to a file. `flush` takes them and answers whether they could be stored.
class OutBuffer {
public:
    using Flush = std::function<bool(std::string_view)>;
    explicit OutBuffer(Flush flush) : m_flush(std::move(flush)) {}
    OutBuffer(const OutBuffer&) = delete;

    // Room for at least `size` bytes, at most kRoom; Took() says where they end.
    char* Room()
    {
        if (m_used > kSize - kRoom)
            Empty();
        return m_bytes.get() + m_used;
    }
    void Took(const char* end) { m_used = size_t(end - m_bytes.get()); }
    void Append(std::string_view bytes);
    // False when any byte so far could not be stored.
    bool Empty();

    static constexpr size_t kRoom = 1024;

private:
    static constexpr size_t kSize = 1 << 20;
    Flush m_flush;
    std::unique_ptr<char[]> m_bytes{new char[kSize]};
    size_t m_used = 0;
    bool m_isGood = true;
};

struct AsciiForm {
    bool hasCrLf = true;
    bool isPadded = true;   // codes right-aligned in three places, whole numbers in six or nine
    int decimals = 16;      // of reals; 16 and more: all that the number has
};

class AsciiTagWriter {
public:
    AsciiTagWriter(OutBuffer& out, const AsciiForm& form);

    void Text(int code, std::string_view bytes)
    {
        char* to = Code(m_out.Room(), code);
        if (bytes.size() > OutBuffer::kRoom - 32)
            return LongText(to, bytes);
        std::memcpy(to, bytes.data(), bytes.size());
        End(to + bytes.size());
    }
    void Real(int code, double value);
    void Integer(int code, int64_t value);
    void Handle(int code, uint64_t value);
    void Chunk(int code, std::string_view bytes);

private:
    struct CodeLine {
        char text[8];
        uint8_t size = 0;
        uint8_t width = 0;   // of a whole number behind this code
    };
    char* Code(char* to, int code)
    {
        if (unsigned(code) < m_codes.size()) {
            const CodeLine& line = m_codes[size_t(code)];
            std::memcpy(to, line.text, sizeof line.text);
            return to + line.size;
        }
        return OddCode(to, code);
    }
    void End(char* at)
    {
        if (m_form.hasCrLf)
            *at++ = '\r';
        *at++ = '\n';
        m_out.Took(at);
    }
    char* OddCode(char* to, int code);
    void LongText(char* to, std::string_view bytes);

    OutBuffer& m_out;
    AsciiForm m_form;
    std::array<CodeLine, 1072> m_codes;
};

// Numbers are converted to the kind that their code stands for.
class BinaryTagWriter {
public:
    // Short codes are those of AC1009.
    BinaryTagWriter(OutBuffer& out, bool hasShortCodes);

    void Text(int code, std::string_view bytes);
    void Real(int code, double value);
    void Integer(int code, int64_t value);
    void Handle(int code, uint64_t value);
    void Chunk(int code, std::string_view bytes);

private:
    char* Code(int code);
    template <class T>
    void Value(int code, T value);

    OutBuffer& m_out;
    bool m_hasShortCodes;
};

}   // namespace KxPlat
