#include "InputQueue.h"
#include <algorithm>

using namespace KxPlat;

namespace KxDesktop {

InputEvent InputQueue::TextEvent(const std::wstring& line)
{
    InputEvent event;
    event.type = InputEvent::Type::Text;
    event.text = line;
    return event;
}

void InputQueue::Add(Waiting waiting)
{
    m_waiting.push_back(std::move(waiting));
    if (arrived)
        arrived();
}

void InputQueue::Pick(const double (&point)[3])
{
    InputEvent event;
    event.type = InputEvent::Type::Point;
    std::copy_n(point, 3, event.point);
    Add({event, false, nullptr});
}

void InputQueue::Pick(const std::vector<void*>& objects, const double (&point)[3])
{
    InputEvent event;
    event.type = InputEvent::Type::Objects;
    std::copy_n(point, 3, event.point);
    event.objects = objects;
    Add({event, false, nullptr});
}

void InputQueue::Run(const std::vector<std::wstring>& lines)
{
    m_waiting.clear();
    for (size_t at = 0; at < lines.size(); ++at)
        m_waiting.push_back({TextEvent(lines[at]), at == 0, nullptr});
    if (arrived)
        arrived();
}

void InputQueue::Do(std::function<void()> work)
{
    Add({InputEvent(), true, std::move(work)});
}

void InputQueue::Cancel()
{
    m_waiting.clear();
    InputEvent event;
    event.type = InputEvent::Type::Cancel;
    Add({event, false, nullptr});
}

void InputQueue::End()
{
    m_isEnding = true;
    if (arrived)
        arrived();
}

bool InputQueue::Take(const InputRequest& request, InputEvent& event)
{
    for (;;) {
        event = InputEvent();
        if (m_isEnding)
            return true;
        if (m_waiting.empty())
            return false;
        if (m_waiting.front().isForCommandPrompt && request.kind != InputKind::Command) {
            event.type = InputEvent::Type::Cancel;
            return true;
        }
        const Waiting next = std::move(m_waiting.front());
        m_waiting.pop_front();
        if (!next.work) {
            event = next.event;
            return true;
        }
        next.work();
    }
}

}   // namespace KxDesktop
