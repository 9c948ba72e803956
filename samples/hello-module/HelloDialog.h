// Asks for the name and the number of a room.
#pragma once
#include "HelloRooms.h"

namespace Hello {

class RoomDialog : public CDialog {
public:
    explicit RoomDialog(const Room& room, CWnd* parent = nullptr);

    // What the user entered; as it was before OK.
    const Room& room() const { return m_room; }

protected:
    BOOL OnInitDialog() override;
    void OnOK() override;

private:
    Room m_room;
};

}   // namespace Hello
