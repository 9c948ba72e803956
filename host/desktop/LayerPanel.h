// The layers of the current drawing: their states are switched by a click, each click one step of undo.
#pragma once
#include "ap/AcApDocument.h"
#include "db/AcDbObjectId.h"
#include <functional>
#include <QDockWidget>
#include <string>
#include <vector>

class AcDbLayerTableRecord;
class QLineEdit;
class QTreeWidget;
class QTreeWidgetItem;

namespace KxDesktop {

class LayerPanel : public QDockWidget {
public:
    explicit LayerPanel(QWidget* parent);

    // Null for none.
    void ShowDocument(AcApDocument* document);
    // The layers may have changed.
    void Follow();
    void SetLanguageTexts();

    std::function<void()> changed;
    // False while a command is at work and nothing may be changed beside it.
    std::function<bool()> mayChange;
    // Why something could not be done.
    std::function<void(const QString&)> refused;

private:
    struct Layer {
        AcDbObjectId id;
        std::wstring name;
        bool isOn = true, isFrozen = false, isLocked = false, isCurrent = false;
        uint32_t rgb = 0;
        std::wstring colorName, linetype;
        bool operator==(const Layer&) const = default;
    };
    enum Column { kName, kOn, kFrozen, kLocked, kColor, kLinetype, kColumns };

    std::vector<Layer> Layers() const;
    void ShowRow(QTreeWidgetItem& item, const Layer& layer) const;
    void Filter();
    void Click(QTreeWidgetItem& item, int column);
    void MakeCurrent(AcDbObjectId id);
    void ChooseColor(AcDbObjectId id);
    void Change(AcDbObjectId id, const std::function<Acad::ErrorStatus(AcDbLayerTableRecord&)>& change);
    void AfterChange(Acad::ErrorStatus status);

    AcApDocument* m_document = nullptr;
    QLineEdit* m_filter;
    QTreeWidget* m_tree;
    std::vector<Layer> m_shown;
    QColor m_shownInk;
};

}   // namespace KxDesktop
