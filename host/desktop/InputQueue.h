// What the user did in the window and no prompt has taken yet.
#pragma once
#include "ui/HostUi.h"
#include <deque>
#include <functional>
#include <string>

namespace KxDesktop {

class InputQueue {
public:
    // Answers the prompt that stands, or the next one.
    void Type(const std::wstring& line) { Add({TextEvent(line), false, nullptr}); }
    void Pick(const double (&point)[3]);
    // Stubs of objects, and where the pointer was.
    void Pick(const std::vector<void*>& objects, const double (&point)[3]);
    // Lines at the command prompt: a command that still runs is cancelled first.
    void Run(const std::vector<std::wstring>& lines);
    // Something to be done while no command runs; one that does is cancelled first.
    void Do(std::function<void()> work);
    // Ends what runs; what waits behind it goes.
    void Cancel();
    // Every prompt from now on finds the end of the input.
    void End();

    // The next event that fits the prompt; false when the user has to be waited for.
    bool Take(const KxPlat::InputRequest& request, KxPlat::InputEvent& event);
    bool IsEnding() const { return m_isEnding; }
    bool IsEmpty() const { return m_waiting.empty() && !m_isEnding; }

    std::function<void()> arrived;

private:
    struct Waiting {
        KxPlat::InputEvent event;
        bool isForCommandPrompt;
        std::function<void()> work;   // instead of the event
    };
    static KxPlat::InputEvent TextEvent(const std::wstring& line);
    void Add(Waiting waiting);

    std::deque<Waiting> m_waiting;
    bool m_isEnding = false;
};

}   // namespace KxDesktop
