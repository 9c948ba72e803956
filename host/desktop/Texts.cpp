#include "Texts.h"
#include <QLocale>

namespace KxDesktop {

namespace {

struct Row {
    Text text;
    const char* english;
    const char* chinese;
};

// In the order of the enumeration.
const Row g_rows[] = {
    {Text::File, "&File", "文件(&F)"},
    {Text::New, "&New", "新建(&N)"},
    {Text::Open, "&Open…", "打开(&O)…"},
    {Text::Recent, "Open &recent", "最近的图形(&R)"},
    {Text::NoRecent, "No recent drawings", "没有最近的图形"},
    {Text::Save, "&Save", "保存(&S)"},
    {Text::SaveAs, "Save &as…", "另存为(&A)…"},
    {Text::Plot, "&Plot…", "打印到文件(&P)…"},
    {Text::Close, "&Close", "关闭(&C)"},
    {Text::Quit, "&Quit", "退出(&X)"},
    {Text::Edit, "&Edit", "编辑(&E)"},
    {Text::Undo, "&Undo", "放弃(&U)"},
    {Text::Redo, "&Redo", "重做(&R)"},
    {Text::Erase, "&Erase", "删除(&E)"},
    {Text::SelectAll, "Select &all", "全部选择(&A)"},
    {Text::Deselect, "&Deselect", "取消选择(&D)"},
    {Text::View, "&View", "视图(&V)"},
    {Text::ZoomIn, "Zoom &in", "放大(&I)"},
    {Text::ZoomOut, "Zoom &out", "缩小(&O)"},
    {Text::ZoomExtents, "Zoom &extents", "范围缩放(&E)"},
    {Text::ZoomWindow, "Zoom &window", "窗口缩放(&W)"},
    {Text::Regenerate, "&Regenerate", "重生成(&R)"},
    {Text::Panels, "&Panels", "面板(&P)"},
    {Text::Theme, "&Theme", "主题(&T)"},
    {Text::Dark, "&Dark", "深色(&D)"},
    {Text::Light, "&Light", "浅色(&L)"},
    {Text::Language, "&Language", "语言(&L)"},
    {Text::Grips, "&Grips", "夹点(&G)"},
    {Text::Help, "&Help", "帮助(&H)"},
    {Text::Commands, "&Commands", "命令列表(&C)"},
    {Text::About, "&About", "关于(&A)"},
    {Text::Layers, "Layers", "图层"},
    {Text::Properties, "Properties", "特性"},
    {Text::CommandLine, "Command line", "命令行"},
    {Text::LayerName, "Name", "名称"},
    {Text::LayerOn, "On", "开"},
    {Text::LayerFrozen, "Freeze", "冻结"},
    {Text::LayerLocked, "Lock", "锁定"},
    {Text::LayerColor, "Colour", "颜色"},
    {Text::LayerCurrent, "Make current", "置为当前"},
    {Text::LayerFilter, "Filter layers", "筛选图层"},
    {Text::NewLayer, "New layer", "新建图层"},
    {Text::LayerIsCurrent, "current", "当前"},
    {Text::NoSelection, "Nothing selected", "未选择对象"},
    {Text::Objects, "objects", "个对象"},
    {Text::General, "General", "常规"},
    {Text::Geometry, "Geometry", "几何图形"},
    {Text::Property, "Property", "特性"},
    {Text::Value, "Value", "值"},
    {Text::Various, "various", "多种"},
    {Text::ByLayer, "ByLayer", "随层"},
    {Text::ByBlock, "ByBlock", "随块"},
    {Text::Kind, "Kind", "类型"},
    {Text::Layer, "Layer", "图层"},
    {Text::Color, "Colour", "颜色"},
    {Text::Linetype, "Linetype", "线型"},
    {Text::LinetypeScale, "Linetype scale", "线型比例"},
    {Text::LineWeight, "Lineweight", "线宽"},
    {Text::Handle, "Handle", "句柄"},
    {Text::Thickness, "Thickness", "厚度"},
    {Text::Start, "Start", "起点"},
    {Text::End, "End", "端点"},
    {Text::Center, "Centre", "圆心"},
    {Text::Position, "Position", "位置"},
    {Text::Radius, "Radius", "半径"},
    {Text::Diameter, "Diameter", "直径"},
    {Text::Length, "Length", "长度"},
    {Text::Angle, "Angle", "角度"},
    {Text::StartAngle, "Start angle", "起点角度"},
    {Text::EndAngle, "End angle", "端点角度"},
    {Text::Area, "Area", "面积"},
    {Text::Vertices, "Vertices", "顶点数"},
    {Text::Closed, "Closed", "闭合"},
    {Text::Contents, "Contents", "内容"},
    {Text::Height, "Height", "高度"},
    {Text::Rotation, "Rotation", "旋转"},
    {Text::Scale, "Scale", "比例"},
    {Text::BlockName, "Block", "块名"},
    {Text::Normal, "Normal", "法向"},
    {Text::Style, "Style", "样式"},
    {Text::Pattern, "Pattern", "图案"},
    {Text::Elevation, "Elevation", "标高"},
    {Text::Measurement, "Measurement", "测量值"},
    {Text::TypeCommand, "Type a command", "键入命令"},
    {Text::Ready, "Ready", "就绪"},
    {Text::SaveChanges, "Save changes to %1?", "是否保存对 %1 的更改？"},
    {Text::UnsavedTitle, "Unsaved changes", "未保存的更改"},
    {Text::PictureFiles, "Pictures (*.pdf *.png *.svg)", "图片 (*.pdf *.png *.svg)"},
    {Text::DrawingFiles, "Drawings", "图形"},
    {Text::AllFiles, "All files (*)", "所有文件 (*)"},
    {Text::CannotOpen, "Cannot open", "无法打开"},
    {Text::Selected, "%1 selected", "已选择 %1 个对象"},
    {Text::Yes, "yes", "是"},
    {Text::No, "no", "否"},
    {Text::ColorNumber, "Colour number", "颜色号"},
    {Text::ChooseColor, "Choose a colour", "选择颜色"},
    {Text::Coordinates, "Coordinates", "坐标"},
};
static_assert(std::size(g_rows) == size_t(Text::Count));

Language g_language = Language::English;

}   // namespace

void SetLanguage(Language language)
{
    g_language = language;
}

Language CurrentLanguage()
{
    return g_language;
}

Language SystemLanguage()
{
    return QLocale::system().language() == QLocale::Chinese ? Language::Chinese : Language::English;
}

QString Say(Text text)
{
    const Row& row = g_rows[size_t(text)];
    return QString::fromUtf8(g_language == Language::Chinese ? row.chinese : row.english);
}

}   // namespace KxDesktop
