#include "MTextLayout.h"
#include <algorithm>
#include <cmath>
#include <cwchar>
#include <numbers>
#include <string>

namespace KxPlat {

namespace {

constexpr double kLineStep = 5.0 / 3;   // distance of base lines, as a multiple of the text height
constexpr double kStackScale = 0.7;
constexpr double kTabStop = 4;   // in text heights

struct Format {
    AcGiTextStyle style;
    std::optional<uint16_t> colorIndex;
    std::optional<uint32_t> rgb;
};

bool IsIdeograph(wchar_t letter)
{
    return letter >= 0x2E80 && letter <= 0xFFEF;
}

class Layout {
public:
    Layout(const AcGiTextStyle& style, double width, double spacing) : m_width(width), m_spacing(spacing)
    {
        m_format.style = style;
        m_block.lines.emplace_back();
    }

    MTextBlock Run(std::wstring_view text)
    {
        m_text = text;
        for (m_at = 0; m_at < m_text.size(); ++m_at)
            Step(m_text[m_at]);
        EndWord();
        Place();
        return std::move(m_block);
    }

private:
    wchar_t Peek(size_t ahead = 1) const { return m_at + ahead < m_text.size() ? m_text[m_at + ahead] : L'\0'; }

    void Step(wchar_t letter)
    {
        if (letter == L'\\' && m_at + 1 < m_text.size()) {
            ++m_at;
            Code(m_text[m_at]);
        } else if (letter == L'{') {
            EndPiece();
            m_saved.push_back(m_format);
        } else if (letter == L'}') {
            EndPiece();
            if (!m_saved.empty()) {
                m_format = m_saved.back();
                m_saved.pop_back();
            }
        } else if (letter == L'\n' || (letter == L'^' && Peek() == L'J')) {
            m_at += letter == L'^';
            NewLine();
        } else if (letter == L'\t' || (letter == L'^' && Peek() == L'I')) {
            m_at += letter == L'^';
            Tab();
        } else if (letter == L'\r' || (letter == L'^' && Peek() == L'M')) {
            m_at += letter == L'^';
        } else if (letter == L'^' && Peek() == L' ') {
            ++m_at;
            Letter(L'^');
        } else if (letter == L'%' && Peek() == L'%' && m_at + 2 < m_text.size()) {
            PercentCode();
        } else {
            Letter(letter);
        }
    }

    // %%d, %%p, %%c, %%%, %%nnn.
    void PercentCode()
    {
        const bool isNumber = Peek(2) >= L'0' && Peek(2) <= L'9';
        const size_t length = isNumber ? 5 : 3;
        const CString code(std::wstring(m_text.substr(m_at, length)).c_str());
        const CString shown = ShownText(code);
        for (int at = 0; at < shown.GetLength(); ++at)
            Letter(shown[at]);
        m_at += std::min(length, m_text.size() - m_at) - 1;
    }

    void Letter(wchar_t letter)
    {
        if (letter == L' ') {
            m_word += letter;
            EndWord();
            return;
        }
        if (IsIdeograph(letter))
            EndWord();
        m_word += letter;
        if (IsIdeograph(letter))
            EndWord();
    }

    // The value of a code up to its semicolon, on which the reading then stands.
    std::wstring Value()
    {
        const size_t end = std::min(m_text.find(L';', m_at + 1), m_text.size());
        std::wstring value(m_text.substr(m_at + 1, end - m_at - 1));
        m_at = end;
        return value;
    }

    void Code(wchar_t code)
    {
        switch (code) {
        case L'P':
        case L'N':
        case L'X':
            NewLine();
            break;
        case L'~':
            m_word += L'\u00A0';
            break;
        case L'S':
            Stack(Value());
            break;
        case L'U':
        case L'M':
            Encoded(code);
            break;
        case L'L':
        case L'l':
            EndPiece();
            m_format.style.setUnderlined(code == L'L');
            break;
        case L'O':
        case L'o':
            EndPiece();
            m_format.style.setOverlined(code == L'O');
            break;
        case L'K':
        case L'k':
            break;
        case L'p':
            Paragraph(Value());
            break;
        default:
            if (std::wcschr(L"ACcfFHQTW", code) != nullptr) {
                EndPiece();
                Setting(code, Value());
            } else {
                Letter(code);
            }
        }
    }

    void Encoded(wchar_t code)
    {
        const size_t digits = code == L'U' ? 4 : 5;
        if (Peek() != L'+' || m_at + 1 + digits >= m_text.size())
            return Letter(code);
        const std::wstring number(m_text.substr(m_at + 2, digits));
        if (code == L'U')
            Letter(wchar_t(std::wcstol(number.c_str(), nullptr, 16)));
        m_at += 1 + digits;
    }

    void Setting(wchar_t code, const std::wstring& value)
    {
        const double number = std::wcstod(value.c_str(), nullptr);
        const bool isRelative = !value.empty() && (value.back() == L'x' || value.back() == L'X');
        AcGiTextStyle& style = m_format.style;
        switch (code) {
        case L'H':
            if (number > 0)
                style.setTextSize(isRelative ? style.textSize() * number : number);
            break;
        case L'W':
            if (number > 0)
                style.setXScale(isRelative ? style.xScale() * number : number);
            break;
        case L'Q':
            style.setObliquingAngle(std::clamp(number, -85.0, 85.0) * std::numbers::pi / 180);
            break;
        case L'T':
            if (number > 0)
                style.setTrackingPercent(number);
            break;
        case L'C':
            m_format.colorIndex = uint16_t(std::clamp(number, 0.0, 256.0));
            m_format.rgb.reset();
            break;
        case L'c': {   // blue in the high byte
            const auto bgr = uint32_t(std::wcstoul(value.c_str(), nullptr, 10));
            m_format.rgb = (bgr & 0xFF) << 16 | (bgr & 0xFF00) | (bgr >> 16 & 0xFF);
            break;
        }
        case L'f':
        case L'F':
            FontCode(value);
            break;
        default:
            break;
        }
    }

    // "Arial|b1|i0|c134|p2" a typeface, "txt.shx" or "txt,hztxt" shape fonts.
    void FontCode(const std::wstring& value)
    {
        const std::wstring name = value.substr(0, value.find(L'|'));
        const bool isShape = value.find(L'|') == std::wstring::npos;
        AcGiTextStyle& style = m_format.style;
        style.setFileName(isShape ? name.c_str() : L"");
        style.setFont(isShape ? L"" : name.c_str(), value.find(L"|b1") != std::wstring::npos,
                      value.find(L"|i1") != std::wstring::npos, 0, 0);
    }

    // Of the paragraph codes only the alignment is drawn: "xqc" centre, "xqr" right, "xql" left.
    void Paragraph(const std::wstring& value)
    {
        const size_t at = value.find(L'q');
        if (at == std::wstring::npos || at + 1 >= value.size())
            return;
        const wchar_t side = value[at + 1];
        m_alignment = side == L'c' ? 1 : side == L'r' ? 2 : side == L'l' || side == L'j' ? 0 : -1;
        m_block.lines.back().alignment = m_alignment;
    }

    // "a^b" one over the other, "a/b" with a stroke between, "a#b" beside each other.
    void Stack(const std::wstring& value)
    {
        EndWord();
        const size_t split = value.find_first_of(L"^/#");
        if (split == std::wstring::npos || value[split] == L'#') {
            for (const wchar_t letter : value)
                m_word += letter == L'#' ? L'/' : letter;
            EndPiece();
            return;
        }
        const double size = m_format.style.textSize();
        AcGiTextStyle small = m_format.style;
        small.setTextSize(size * kStackScale);
        MTextLine& line = m_block.lines.back();
        double widest = 0;
        for (const bool isUpper : {true, false}) {
            const std::wstring part = isUpper ? value.substr(0, split) : value.substr(split + 1);
            MTextPiece piece{part.c_str(), small, line.width, 0, 0, m_format.colorIndex, m_format.rgb};
            piece.y = isUpper ? size * 0.6 : -size * 0.35;
            piece.style.setUnderlined(isUpper && value[split] == L'/');
            piece.width = small.extents(piece.text, false, -1, true).x;
            widest = std::max(widest, piece.width);
            if (!part.empty())
                line.pieces.push_back(std::move(piece));
        }
        line.width += widest;
        line.height = std::max(line.height, size);
    }

    void Tab()
    {
        EndPiece();
        MTextLine& line = m_block.lines.back();
        const double stop = kTabStop * m_format.style.textSize();
        line.width = (std::floor(line.width / stop) + 1) * stop;
    }

    // The word so far becomes a piece in the format of the moment, but the line may still break before the word.
    void EndPiece()
    {
        if (m_word.empty())
            return;
        MTextPiece piece{m_word.c_str(), m_format.style, 0, 0, 0, m_format.colorIndex, m_format.rgb};
        piece.width = piece.style.extents(piece.text, false, -1, true).x;
        m_word.clear();
        m_pending.push_back(std::move(piece));
    }

    void EndWord()
    {
        EndPiece();
        if (m_pending.empty())
            return;
        double width = 0;
        for (const MTextPiece& piece : m_pending)
            width += WidthWithoutBlank(piece);
        if (m_width > 0 && m_block.lines.back().width > 0 && m_block.lines.back().width + width > m_width * (1 + 1e-9))
            AddLine();
        MTextLine& line = m_block.lines.back();
        for (MTextPiece& piece : m_pending) {
            piece.x = line.width;
            line.width += piece.width;
            line.height = std::max(line.height, piece.style.textSize());
            line.pieces.push_back(std::move(piece));
        }
        m_pending.clear();
    }

    static double WidthWithoutBlank(const MTextPiece& piece)
    {
        CString text = piece.text;
        text.TrimRight(L' ');
        return text.GetLength() == piece.text.GetLength() ? piece.width : piece.style.extents(text, false, -1, true).x;
    }

    void NewLine()
    {
        EndWord();
        AddLine();
    }

    void AddLine()
    {
        if (m_block.lines.back().height == 0)
            m_block.lines.back().height = m_format.style.textSize();
        m_block.lines.emplace_back();
        m_block.lines.back().alignment = m_alignment;
    }

    void Place()
    {
        if (m_block.lines.back().height == 0)
            m_block.lines.back().height = m_format.style.textSize();
        double down = 0;
        for (size_t at = 0; at < m_block.lines.size(); ++at) {
            MTextLine& line = m_block.lines[at];
            down += at == 0 ? line.height : line.height * kLineStep * m_spacing;
            line.baseLine = down;
            // Blanks at the end do not count.
            if (!line.pieces.empty())
                line.width = line.pieces.back().x + std::max(0.0, WidthWithoutBlank(line.pieces.back()));
            m_block.width = std::max(m_block.width, line.width);
        }
        m_block.height = down;
    }

    std::wstring_view m_text;
    size_t m_at = 0;
    double m_width, m_spacing;
    Format m_format;
    std::vector<Format> m_saved;
    std::wstring m_word;
    std::vector<MTextPiece> m_pending;
    int m_alignment = -1;
    MTextBlock m_block;
};

}   // namespace

MTextBlock LayOutMText(std::wstring_view contents, const AcGiTextStyle& style, double width, double spacing)
{
    return Layout(style, width, spacing).Run(contents);
}

}   // namespace KxPlat
