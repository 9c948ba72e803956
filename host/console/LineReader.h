// Reads one line at a time: with editing, history and completion on a terminal, plainly from anything else.
#pragma once
#include <functional>
#include <string>
#include <vector>

namespace KxConsole {

class LineReader {
public:
    enum class Result { Line, Interrupted, End };

    // `complete` gives the command names that begin with a text.
    explicit LineReader(std::function<std::vector<std::string>(const std::string&)> complete);
    ~LineReader();   // the history of a terminal outlives the session
    LineReader(const LineReader&) = delete;

    bool IsTerminal() const { return m_isTerminal; }
    // `prompt` stands in one line. Completion is offered where a command is asked for.
    Result Read(const std::string& prompt, bool isCommand, std::string& line);

private:
    Result ReadPlain(std::string& line);
    Result ReadEdited(const std::string& prompt, std::string& line);

    bool m_isTerminal;
    std::string m_historyFile;
};

}   // namespace KxConsole
