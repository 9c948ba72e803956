// Writes a file beside its target and puts it in the target's place at the end, so that a reader sees the old file or
// the new one.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

namespace KxPlat {

class AtomicFile {
public:
    AtomicFile() = default;
    // Without a Commit the target is left as it was.
    ~AtomicFile() { Discard(); }
    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;

    // 0 or the system's error number. A link is followed to its file; what is no plain file (a pipe, a terminal) is
    // written directly.
    int Open(const std::string& hostPath);
    // Errors are kept until Commit.
    void Write(std::string_view bytes)
    {
        if (m_buffer.size() + bytes.size() > kBuffer)
            Flush();
        m_buffer.append(bytes);
    }
    // The buffer itself, for writers that append to it; call Spill() now and then.
    std::string& Buffer() { return m_buffer; }
    void Spill()
    {
        if (m_buffer.size() >= kBuffer)
            Flush();
    }
    // Over bytes that were written before; not in what is written directly.
    void WriteAt(uint64_t place, std::string_view bytes);
    // On the disk under the target's name, with the target's old mode bits; 0 or the first error of all.
    int Commit();
    void Discard();

private:
    static constexpr size_t kBuffer = size_t(1) << 18;
    void Flush();
    int Fail(int error);

    int m_file = -1;
    int m_error = 0;
    std::string m_target;
    std::string m_temporary;   // empty when written directly
    std::string m_buffer;
};

}   // namespace KxPlat
