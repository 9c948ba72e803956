#include "DialogTemplate.h"
#include "../ui/ControlStyles.h"
#include "../win/CharTables.h"
#include "ByteReader.h"

namespace KxPlat {

namespace {

struct ClassRow {
    unsigned ordinal;
    const wchar_t* name;
    ControlKind kind;
};

const ClassRow kClasses[] = {
    {0x80, L"Button", ControlKind::Button},       {0x81, L"Edit", ControlKind::Edit},
    {0x82, L"Static", ControlKind::Label},        {0x83, L"ListBox", ControlKind::ListBox},
    {0x84, L"ScrollBar", ControlKind::Other},     {0x85, L"ComboBox", ControlKind::ComboBox},
    {0, L"SysListView32", ControlKind::ListView},
};

ControlKind ButtonKind(uint32_t style)
{
    switch (style & BS_TYPEMASK) {
    case BS_CHECKBOX:
    case BS_AUTOCHECKBOX:
    case BS_3STATE:
    case BS_AUTO3STATE:
        return ControlKind::CheckBox;
    case BS_RADIOBUTTON:
    case BS_AUTORADIOBUTTON:
        return ControlKind::RadioButton;
    case BS_GROUPBOX:
        return ControlKind::GroupBox;
    default:
        return ControlKind::Button;
    }
}

void SetClass(DialogControl& control, const OrdinalOrName& name)
{
    control.className = name.name;
    for (const ClassRow& row : kClasses) {
        if (name.ordinal != 0 ? row.ordinal != name.ordinal : !EqualNoCase(row.name, name.name))
            continue;
        control.className = row.name;
        control.kind = row.kind == ControlKind::Button ? ButtonKind(control.style) : row.kind;
    }
}

class TemplateReader {
public:
    TemplateReader(std::string_view bytes, DialogModel& dialog) : m_reader(bytes), m_dialog(dialog)
    {
        ByteReader start(bytes);
        m_extended = start.U16() == 1 && start.U16() == 0xFFFF;
    }

    bool Read()
    {
        if (m_extended) {
            m_reader.Bytes(8);   // version, signature, help number
            m_dialog.exStyle = m_reader.U32();
            m_dialog.style = m_reader.U32();
        } else {
            m_dialog.style = m_reader.U32();
            m_dialog.exStyle = m_reader.U32();
        }
        const unsigned count = m_reader.U16();
        m_dialog.rect = Rect();
        m_reader.Name();   // menu
        m_reader.Name();   // window class
        m_dialog.caption = m_reader.Text();
        if ((m_dialog.style & DS_SETFONT) != 0) {
            m_dialog.fontSize = m_reader.U16();
            if (m_extended)
                m_reader.Bytes(4);   // weight, slant, character set
            m_dialog.fontName = m_reader.Text();
        }
        for (unsigned i = 0; i < count && !m_reader.Failed(); ++i)
            m_dialog.Add(Control());
        return !m_reader.Failed();
    }

private:
    DialogRect Rect()
    {
        DialogRect rect;
        rect.x = m_reader.I16();
        rect.y = m_reader.I16();
        rect.width = m_reader.I16();
        rect.height = m_reader.I16();
        return rect;
    }

    DialogControl Control()
    {
        DialogControl control;
        m_reader.Align(4);
        if (m_extended) {
            m_reader.U32();   // help number
            control.exStyle = m_reader.U32();
            control.style = m_reader.U32();
            control.rect = Rect();
            control.id = int(m_reader.U32());
        } else {
            control.style = m_reader.U32();
            control.exStyle = m_reader.U32();
            control.rect = Rect();
            control.id = m_reader.I16();
        }
        SetClass(control, m_reader.Name());
        control.text = m_reader.Name().name;
        m_reader.Bytes(m_reader.U16());   // creation data
        control.visible = (control.style & WS_VISIBLE) != 0;
        control.enabled = (control.style & WS_DISABLED) == 0;
        return control;
    }

    ByteReader m_reader;
    DialogModel& m_dialog;
    bool m_extended;
};

}   // namespace

bool ReadDialogTemplate(std::string_view bytes, DialogModel& dialog)
{
    return TemplateReader(bytes, dialog).Read();
}

}   // namespace KxPlat
