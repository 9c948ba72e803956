// Reads one line at a time: with editing, history and completion on a terminal, plainly from anything else. Meanwhile
// messages to the program's windows wake it.
#pragma once
#include "Completion.h"
#include <string>

namespace KxConsole {

class LineReader {
public:
    enum class Result { Line, Interrupted, Message, End };

    LineReader();
    ~LineReader();   // the history of a terminal outlives the session
    LineReader(const LineReader&) = delete;

    bool IsTerminal() const { return m_isTerminal; }
    // From now on the end of a file or pipe is no end: messages may still come, until Ctrl-C.
    void StayOpen() { m_staysOpen = true; }
    // `prompt` stands in one line. After Message nothing is lost of what was typed: the next call goes on with it.
    // Of a pasted text each call gives a line.
    Result Read(const std::string& prompt, const Completer& completer, std::string& line);
    // The user broke off what the lines already read began.
    void DropPasted();

private:
    Result ReadPlain(std::string& line);
    Result ReadEdited(const std::string& prompt, std::string& line);

    bool m_isTerminal;
    bool m_staysOpen = false;
    bool m_hasEnded = false;
    std::string m_ahead;   // read from a file or pipe, not yet handed out
    std::string m_historyFile;
};

}   // namespace KxConsole
