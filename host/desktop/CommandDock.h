// The command line: what was printed, the prompt with its options, and the line being typed.
#pragma once
#include "InputQueue.h"
#include <QDockWidget>
#include <QStringList>

class QCompleter;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QStringListModel;

namespace KxDesktop {

class CommandDock : public QDockWidget {
public:
    // The history of typed lines is kept in `stateFolder`; empty for none.
    CommandDock(InputQueue& queue, const std::string& stateFolder, QWidget* parent);
    ~CommandDock() override;

    // As commands write: a line begins with "\n".
    void Print(std::wstring_view text);
    void ShowPrompt(const KxPlat::InputRequest& request);
    // The prompt was answered: it and the answer become part of what was printed.
    void TakeAnswer(const KxPlat::InputEvent& event);
    void ShowBusy();
    // A key pressed elsewhere in the window goes to the line.
    void Forward(QKeyEvent* key);
    QString Typed() const;
    void ClearLine();
    void SetLanguageTexts();

    std::function<void()> escaped;

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void Enter(bool bySpace);
    void StepHistory(int by);
    void ShowKeywords(const std::vector<std::wstring>& keywords);
    void LoadCommandNames();
    void ReadHistory();

    InputQueue& m_queue;
    std::string m_historyFile;
    QPlainTextEdit* m_output;
    QLabel* m_prompt;
    QLineEdit* m_line;
    QWidget* m_keywords;
    QHBoxLayout* m_keywordLayout;
    QCompleter* m_completer;
    QStringListModel* m_names;
    QStringList m_history;
    qsizetype m_historyAt = 0;
    KxPlat::InputKind m_kind = KxPlat::InputKind::Command;
    std::wstring m_shownPrompt;
};

}   // namespace KxDesktop
