// The characters that the line editor gets: those of the keyboard, pasted text, and what breaks a line off.
#pragma once
#include <cstdio>
#include <deque>
#include <string>

namespace KxConsole {

class TypedKeys {
public:
    enum class Break { None, Message, Escape };

    // The next character, EOF where the line is broken off.
    int Next();
    // Why the last line ended without Enter; asking forgets it.
    Break TakeBreak();
    // A whole line out of a pasted text. Its first line ends what was being typed, and what stands behind its last line
    // end begins the line after them.
    bool TakePasted(std::string& line);
    void DropPasted();

private:
    int AfterEscape();
    void ReadPaste();
    void Paste(const std::wstring& text);

    std::wstring m_again;               // comes before the keyboard
    std::deque<std::wstring> m_lines;   // pasted
    std::wstring m_rest;                // pasted behind the last line end
    Break m_break = Break::None;
    bool m_isLeaving = false;   // the cursor goes to the end of the line first
};

// Asks the terminal to mark what is pasted, for as long as a line is read.
class PasteMarks {
public:
    PasteMarks() { std::fputs("\033[?2004h", stdout); }
    ~PasteMarks() { std::fputs("\033[?2004l", stdout); }
    PasteMarks(const PasteMarks&) = delete;
};

}   // namespace KxConsole
