// One control of a dialog as a widget: shows what the description says, reports what the user does.
#pragma once
#include "ui/DialogModel.h"
#include <functional>
#include <memory>
#include <QWidget>

namespace KxDesktop {

// What the user did, to be done to the model.
using ControlReport = std::function<void(const std::function<bool(KxPlat::DialogModel&)>&)>;

class ControlWidget {
public:
    explicit ControlWidget(KxPlat::DialogControl& control) : m_control(control) {}
    virtual ~ControlWidget() = default;

    KxPlat::DialogControl& Control() const { return m_control; }
    virtual QWidget& Widget() = 0;
    // Takes text, rows, checks and selection from the description. Nothing is reported meanwhile.
    virtual void Follow() = 0;

private:
    KxPlat::DialogControl& m_control;
};

// The widget is the parent's; its object's name is "control." and the control's number.
std::unique_ptr<ControlWidget> NewControlWidget(QWidget& parent, KxPlat::DialogControl& control,
                                                const ControlReport& report);

}   // namespace KxDesktop
