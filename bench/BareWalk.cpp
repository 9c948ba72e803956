#include "BareWalk.h"
#include <charconv>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <memory>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace KxBench {
namespace {

enum class Kind { Text, Real, Integer };

// What stands behind a group code, by the ranges of the drawing format.
Kind KindOf(int code)
{
    struct Range {
        int last;
        Kind kind;
    };
    static constexpr Range kRanges[] = {
        {9, Kind::Text},      {59, Kind::Real},   {99, Kind::Integer},  {109, Kind::Text},    {149, Kind::Real},
        {209, Kind::Integer}, {239, Kind::Real},  {269, Kind::Text},    {299, Kind::Integer}, {369, Kind::Text},
        {389, Kind::Integer}, {399, Kind::Text},  {409, Kind::Integer}, {459, Kind::Text},    {469, Kind::Real},
        {1009, Kind::Text},   {1059, Kind::Real}, {1071, Kind::Integer}};
    for (const Range& range : kRanges)
        if (code <= range.last)
            return range.kind;
    return Kind::Text;
}

std::string_view NextLine(const char*& at, const char* end)
{
    const char* start = at;
    const void* feed = std::memchr(start, '\n', static_cast<std::size_t>(end - start));
    const char* stop = feed != nullptr ? static_cast<const char*>(feed) : end;
    at = feed != nullptr ? stop + 1 : end;
    if (stop != start && stop[-1] == '\r')
        --stop;
    return {start, stop};
}

template <class T>
T Number(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(' ');
    T value{};
    if (first != text.npos)
        std::from_chars(text.data() + first, text.data() + text.size(), value);
    return value;
}

// `group(code, kind, line of the code, line of the value, real)` is called for each group.
template <class Group>
WalkResult WalkGroups(std::string_view drawing, Group group)
{
    WalkResult result;
    const char* at = drawing.data();
    const char* const end = at + drawing.size();
    std::int64_t integers = 0;
    while (at < end) {
        const std::string_view codeLine = NextLine(at, end);
        const int code = Number<int>(codeLine);
        const std::string_view value = NextLine(at, end);
        const Kind kind = KindOf(code);
        double real = 0.0;
        if (kind == Kind::Real)
            result.sum += real = Number<double>(value);
        else if (kind == Kind::Integer)
            integers += Number<std::int64_t>(value);
        group(kind, codeLine, value, real);
        ++result.groups;
    }
    result.sum += static_cast<double>(integers);
    return result;
}

class Output {
public:
    explicit Output(const std::string& path) : m_file(std::fopen(path.c_str(), "wb"), &std::fclose)
    {
        if (m_file)
            std::setvbuf(m_file.get(), nullptr, _IONBF, 0);
    }
    ~Output() { Flush(); }
    char* Room()
    {
        if (m_used > kSize - kRoom)
            Flush();
        return m_buffer.get() + m_used;
    }
    void Line(std::string_view text)
    {
        if (text.size() >= kRoom)   // no line of a measured drawing is that long
            return;
        char* to = Room();
        std::memcpy(to, text.data(), text.size());
        to[text.size()] = '\n';
        m_used += text.size() + 1;
    }
    void Line(double value)
    {
        char* to = Room();
        char* end = std::to_chars(to, to + 32, value).ptr;
        *end = '\n';
        m_used += static_cast<std::size_t>(end - to) + 1;
    }

private:
    static constexpr std::size_t kSize = 1 << 20;
    static constexpr std::size_t kRoom = 4096;

    void Flush()
    {
        if (m_file)
            std::fwrite(m_buffer.get(), 1, m_used, m_file.get());
        m_used = 0;
    }

    std::unique_ptr<std::FILE, int (*)(std::FILE*)> m_file;
    std::unique_ptr<char[]> m_buffer{new char[kSize]};
    std::size_t m_used = 0;
};

}   // namespace

FileMap::FileMap(const std::string& path)
{
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0)
        return;
    struct stat status {};
    if (::fstat(file, &status) == 0 && status.st_size > 0) {
        const auto size = static_cast<std::size_t>(status.st_size);
        void* start = ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file, 0);
        if (start != MAP_FAILED)
            m_bytes = {static_cast<const char*>(start), size};
    }
    ::close(file);
}

FileMap::~FileMap()
{
    if (!m_bytes.empty())
        ::munmap(const_cast<char*>(m_bytes.data()), m_bytes.size());
}

WalkResult Walk(std::string_view drawing)
{
    return WalkGroups(drawing, [](Kind, std::string_view, std::string_view, double) {});
}

WalkResult WalkAndWrite(std::string_view drawing, const std::string& path)
{
    Output output(path);
    return WalkGroups(drawing, [&output](Kind kind, std::string_view code, std::string_view value, double real) {
        output.Line(code);
        if (kind == Kind::Real)
            output.Line(real);
        else
            output.Line(value);
    });
}

}   // namespace KxBench
