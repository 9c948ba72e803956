#include "CommandMenus.h"
#include "Texts.h"
#include <QAction>
#include <QMenu>
#include <QMenuBar>

namespace KxDesktop {

namespace {

// One command, or with an empty global name the start of a menu, a sub-menu or a line between commands.
enum class Level { Menu, SubMenu, Line, Command, Help };
struct Row {
    Level level;
    const char* globalName;   // of a menu: the name of its object
    const char* localName;
    const char* english;
    const char* chinese;
};

constexpr Level M = Level::Menu, S = Level::SubMenu, L = Level::Line, C = Level::Command, H = Level::Help;

const Row g_rows[] = {
    {M, "objects", "", "&Objects", "对象(&O)"},
    {C, "HidePickObject", "XDXYC", "Hide picked objects", "隐藏所选对象"},
    {C, "HideNoPickObject", "WXDXYC", "Hide all others", "隐藏未选对象"},
    {C, "ReversePickObject", "DXQF", "Swap hidden and shown", "对象显隐取反"},
    {C, "ShowAllObject", "DXXSQB", "Show all objects", "显示全部对象"},
    {C, "ShowAllObjectAndLayer", "XSQB", "Show all objects and layers", "显示全部对象和图层"},
    {L, "", "", "", ""},
    {C, "DeleteNoPickObjectInCurSpace", "SWXDX", "Delete all others in this space", "删除当前空间未选对象"},
    {C, "DeleteNoPickObjectInCurSpaceSure", "DelNPickObjSure", "Delete all others after asking",
     "确认后删除当前空间未选对象"},
    {L, "", "", "", ""},
    {C, "MakeGroup", "KXBZ", "Make a group", "编组"},
    {C, "KxAlignText", "KXWZDQ", "Align texts", "文字对齐"},
    {C, "ZValueToZero", "KXZZGL", "Set Z to zero", "Z 值归零"},
    {C, "SetLayerToFront", "KXTCQZ", "Layer to the front", "图层前置"},
    {C, "SetlayerToBack", "KXTCHZ", "Layer to the back", "图层后置"},
    {L, "", "", "", ""},
    {C, "KxAddToolTipToObject", "KXTSWZ", "Attach a tooltip", "添加提示文字"},
    {C, "KxRemoveToolTipToObject", "KXRMTSWZ", "Remove the tooltip", "删除提示文字"},

    {M, "layers", "", "&Layers", "图层(&L)"},
    {S, "layersOnOff", "", "On and off", "开关"},
    {C, "HidePickObjectLayer", "XCYC", "Turn off picked layers", "关闭所选图层"},
    {C, "HideNoPickObjectLayer", "WXCYS", "Turn off all other layers", "关闭未选图层"},
    {C, "ReverseHidePickLayer", "TCXSQF", "Swap on and off", "图层开关取反"},
    {C, "ShowAllLayer", "TCXSQB", "Turn all layers on", "打开全部图层"},
    {S, "layersFreeze", "", "Freeze and thaw", "冻结"},
    {C, "FrozenPickObjectLayer", "XCDJ", "Freeze picked layers", "冻结所选图层"},
    {C, "FrozenNoPickObjectLayer", "WXCDJ", "Freeze all other layers", "冻结未选图层"},
    {C, "ReverseFrozenPickLayer", "TCDJQF", "Swap frozen and thawed", "图层冻结取反"},
    {C, "UnFrozenAllLayer", "TCJDQB", "Thaw all layers", "解冻全部图层"},
    {S, "layersLock", "", "Lock and unlock", "锁定"},
    {C, "LockPickLayer", "XCSD", "Lock picked layers", "锁定所选图层"},
    {C, "LockNoPickLayer", "WXCSD", "Lock all other layers", "锁定未选图层"},
    {C, "UnLockPickLayer", "JSCSD", "Unlock picked layers", "解锁所选图层"},
    {C, "ReverseLockPickLayer", "TCSDQF", "Swap locked and unlocked", "图层锁定取反"},
    {C, "UnLockAllLayer", "TCJSQB", "Unlock all layers", "解锁全部图层"},
    {S, "layersStates", "", "States and lists", "状态与列表"},
    {C, "SaveLayerStatus", "BCTCZT", "Save layer states", "保存图层状态"},
    {C, "RecoverLayerStatus", "HFTCZT", "Restore layer states", "恢复图层状态"},
    {C, "KxListCloseLayer", "KXKGBTC", "Layers that are off…", "已关闭图层…"},
    {C, "KxListForzenLayer", "KXKDJTC", "Frozen layers…", "已冻结图层…"},
    {C, "KxListLockLayer", "KXKSDTC", "Locked layers…", "已锁定图层…"},
    {M, "layers", "", "", ""},
    {L, "", "", "", ""},
    {C, "KxLayerWalk", "KXTCLL", "Layer walk…", "图层浏览…"},
    {C, "KxSetCurLayer", "KXDQTC", "Make object's layer current", "置为当前图层"},
    {C, "KxObjectChangeToCurLayer", "KXMBDQTC", "Move to the current layer", "改到当前图层"},
    {C, "ChangePickObjectLayer", "MBGC", "Move to a target's layer", "改到目标图层"},
    {C, "KxCombineLayer", "KXTCHB", "Merge layers…", "图层合并…"},
    {C, "KxPickObjectDeleteLayerObjects", "KXSTCST", "Delete objects of picked layers", "删除所选图层的对象"},

    {M, "clean", "", "&Clean up", "清理(&C)"},
    {C, "CleanDatabase", "QLSJK", "Purge everything", "清理全部"},
    {L, "", "", "", ""},
    {C, "CleanBlock", "QLK", "Blocks", "清理块"},
    {C, "CleanLayer", "QLTC", "Layers", "清理图层"},
    {C, "CleanLineStyle", "QLXX", "Linetypes", "清理线型"},
    {C, "CleanTextStyle", "QLWZYS", "Text styles", "清理文字样式"},
    {C, "CleanDimStyle", "QLCCYS", "Dimension styles", "清理标注样式"},
    {C, "CleanMlineStyle", "QLDXYS", "Multiline styles", "清理多线样式"},
    {C, "CleanPrintStyle", "QLDYYS", "Plot styles", "清理打印样式"},
    {C, "CleanShape", "QLX", "Shapes", "清理形"},

    {M, "tools", "", "&Tools", "工具(&T)"},
    {C, "KxInFile", "CWJ", "Insert a drawing file…", "插入文件…"},
    {L, "", "", "", ""},
    {C, "LoadProFromIni", "KXLDP", "Load listed programs", "按配置加载程序"},
    {C, "UnLoadProFromIni", "KXULDP", "Unload listed programs", "按配置卸载程序"},
    {L, "", "", "", ""},
    {C, "KxCadBaseTest", "KxCadBaseTest", "Trace test", "跟踪测试"},

    {H, "KxDlgAbout", "KXGY", "About the commands…", "关于命令模块…"},
};

QString Label(const Row& row, Language language)
{
    return QString::fromUtf8(language == Language::Chinese ? row.chinese : row.english);
}

// The local name stands where menus show keys: it is what people type instead. Behind a tab it takes no key.
void AddCommand(QMenu& menu, const Row& row, const std::function<void(const std::wstring&)>& run)
{
    const bool isChinese = CurrentLanguage() == Language::Chinese;
    QAction* action = menu.addAction(Label(row, CurrentLanguage()) + QLatin1Char('\t') + QLatin1String(row.localName));
    action->setObjectName(QLatin1String("command.") + QLatin1String(row.globalName));
    action->setStatusTip(QLatin1String(row.globalName) + QLatin1String(" · ") +
                         Label(row, isChinese ? Language::English : Language::Chinese));
    QObject::connect(action, &QAction::triggered, action,
                     [run, name = QString::fromLatin1(row.globalName).toStdWString()] { run(name); });
}

}   // namespace

void AddCommandMenus(QMenuBar& bar, QMenu& help, const std::function<void(const std::wstring& globalName)>& run)
{
    QMenu* top = nullptr;
    QMenu* menu = nullptr;
    for (const Row& row : g_rows) {
        const QString name = QLatin1String("menu.") + QLatin1String(row.globalName);
        switch (row.level) {
        case Level::Menu:
            // A second row of the same menu leads back to it from a sub-menu.
            if (top == nullptr || top->objectName() != name) {
                top = bar.addMenu(Label(row, CurrentLanguage()));
                top->setObjectName(name);
            }
            menu = top;
            break;
        case Level::SubMenu:
            menu = top->addMenu(Label(row, CurrentLanguage()));
            menu->setObjectName(name);
            break;
        case Level::Line:
            menu->addSeparator();
            break;
        case Level::Command:
            AddCommand(*menu, row, run);
            break;
        case Level::Help:
            AddCommand(help, row, run);
            break;
        }
    }
}

}   // namespace KxDesktop
