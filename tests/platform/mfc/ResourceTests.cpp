#include "mfc/ByteReader.h"
#include "mfc/CMenu.h"
#include "mfc/DialogTemplate.h"
#include "mfc/ResourceTable.h"
#include "TestModule.h"
#include "TestResources.h"
#include "ui/ControlStyles.h"
#include <gtest/gtest.h>

namespace {

TEST(Resources, StringsCarryEscapesAndEveryCharacter)
{
    const TestModule module("TestResources");
    CString text(L"old");
    ASSERT_TRUE(text.LoadString(IDS_FIRST));
    EXPECT_TRUE(text == L"第一行\n\t\"引号\" %s 墙");
    ASSERT_TRUE(text.LoadString(112));   // IDS_GAP + 15, in another block of sixteen
    EXPECT_TRUE(text == L"在下一块");
    EXPECT_TRUE(text.LoadString(1) && text == L"另一表");
    EXPECT_FALSE(text.LoadString(101));
    EXPECT_FALSE(text.LoadString(9999));
    EXPECT_TRUE(text == L"另一表");
    text.Format(UINT(IDS_FIRST), L"x");
    EXPECT_TRUE(text == L"第一行\n\t\"引号\" x 墙");
}

TEST(Resources, TheCurrentModuleComesFirstThenTheLastAttached)
{
    const TestModule first("TestResources");
    CString text;
    {
        const TestModule second("OtherResources");
        EXPECT_TRUE(text.LoadString(IDS_FIRST) && text == L"另一个模块");
        EXPECT_TRUE(text.LoadString(1) && text == L"另一表");
        AfxSetResourceHandle(first.Handle());
        EXPECT_EQ(AfxGetResourceHandle(), first.Handle());
        EXPECT_TRUE(text.LoadString(IDS_FIRST) && text.Left(3) == L"第一行");
        EXPECT_TRUE(text.LoadString(500) && text == L"只在这里");
        EXPECT_TRUE(text.LoadString(second.Handle(), IDS_FIRST) && text == L"另一个模块");
    }
    EXPECT_FALSE(text.LoadString(500));
    AfxSetResourceHandle(nullptr);
    EXPECT_EQ(AfxGetResourceHandle(), AfxGetInstanceHandle());
}

TEST(Resources, ATerminatedModuleIsNoLongerTheResourceModule)
{
    {
        const TestModule module("TestResources");
        AfxSetResourceHandle(module.Handle());
    }
    EXPECT_EQ(AfxGetResourceHandle(), AfxGetInstanceHandle());
    AFX_EXTENSION_MODULE state = {};
    EXPECT_FALSE(AfxInitExtensionModule(state, nullptr));
    AfxTermExtensionModule(state);
}

TEST(Resources, DialogTemplatesKeepStylesAndPlaces)
{
    const TestModule module("TestResources");
    KxPlat::DialogModel dialog;
    const wchar_t* name = MAKEINTRESOURCE(IDD_TEST);
    const std::string_view bytes = KxPlat::FindResourceBytes(module.Handle(), name, RT_DIALOG);
    ASSERT_TRUE(KxPlat::ReadDialogTemplate(bytes, dialog));
    EXPECT_EQ(dialog.caption, L"测试");
    EXPECT_EQ(dialog.fontName, L"MS Shell Dlg");
    EXPECT_EQ(dialog.fontSize, 9);
    EXPECT_EQ(dialog.rect.width, 200);
    ASSERT_EQ(dialog.Controls().size(), 14u);

    struct Row {
        int id;
        KxPlat::ControlKind kind;
        uint32_t style;
        bool visible;
    };
    using Kind = KxPlat::ControlKind;
    static const Row rows[] = {
        {IDC_NAME, Kind::Edit, WS_CHILD | WS_VISIBLE | WS_BORDER | WS_TABSTOP | ES_AUTOHSCROLL, true},
        {IDC_KIND, Kind::ComboBox, WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST | CBS_SORT, true},
        {IDC_ROWS, Kind::ListBox, WS_CHILD | WS_VISIBLE | WS_BORDER | WS_TABSTOP | LBS_NOTIFY | LBS_EXTENDEDSEL, true},
        {IDC_ALL, Kind::CheckBox, WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_AUTOCHECKBOX, true},
        {IDC_LEFT, Kind::RadioButton, WS_CHILD | WS_VISIBLE | WS_GROUP | BS_AUTORADIOBUTTON, true},
        {IDC_TABLE, Kind::ListView, WS_CHILD | WS_VISIBLE | WS_GROUP | LVS_REPORT, true},
        {IDC_HIDDEN, Kind::Button, WS_CHILD | WS_DISABLED | WS_TABSTOP, false},
        {IDOK, Kind::Button, WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_DEFPUSHBUTTON, true},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.id);
        const KxPlat::DialogControl* control = dialog.Find(row.id);
        ASSERT_NE(control, nullptr);
        EXPECT_EQ(control->kind, row.kind);
        EXPECT_EQ(control->style, row.style);
        EXPECT_EQ(control->visible, row.visible);
    }
    EXPECT_EQ(dialog.Find(IDC_TABLE)->exStyle, 0x200u);
    EXPECT_EQ(dialog.Find(IDC_COUNT)->rect.y, 20);
    EXPECT_FALSE(dialog.Find(IDC_HIDDEN)->enabled);
}

TEST(Resources, TemplatesCutAnywhereAreRefused)
{
    const TestModule module("TestResources");
    const std::string_view bytes = KxPlat::FindResourceBytes(module.Handle(), MAKEINTRESOURCE(IDD_TEST), RT_DIALOG);
    for (size_t size = 0; size < bytes.size(); ++size) {
        KxPlat::DialogModel dialog;
        EXPECT_FALSE(KxPlat::ReadDialogTemplate(bytes.substr(0, size), dialog)) << size;
    }
}

TEST(Resources, TheOlderTemplateFormIsRead)
{
    // DIALOG 1, 2, 30, 40 with one button "OK", as resource compilers of the first generation store it.
    // clang-format off
    const unsigned char bytes[] = {
        0, 0, 0xC8, 0x80,  0, 0, 0, 0,  1, 0,             // style, extended style, one control
        1, 0, 2, 0, 30, 0, 40, 0,  0, 0, 0, 0,            // rectangle, no menu, no class
        'T', 0, 0, 0,  0, 0,                              // caption, padding
        1, 0, 0, 0x50,  0, 0, 0, 0,                       // style, extended style
        3, 0, 4, 0, 50, 0, 14, 0,  1, 0,                  // rectangle, number
        0xFF, 0xFF, 0x80, 0,  'O', 0, 'K', 0, 0, 0,  0, 0 // class, text, no creation data
    };
    // clang-format on
    KxPlat::DialogModel dialog;
    ASSERT_TRUE(KxPlat::ReadDialogTemplate({reinterpret_cast<const char*>(bytes), sizeof(bytes)}, dialog));
    EXPECT_EQ(dialog.caption, L"T");
    EXPECT_EQ(dialog.rect.height, 40);
    ASSERT_EQ(dialog.Controls().size(), 1u);
    const KxPlat::DialogControl& button = *dialog.Controls()[0];
    EXPECT_EQ(button.id, IDOK);
    EXPECT_EQ(button.text, L"OK");
    EXPECT_EQ(button.rect.width, 50);
    EXPECT_TRUE(button.IsDefaultButton());
}

TEST(Resources, TablesWithWildSizesAreRefused)
{
    std::string entry(64, '\0');
    for (const unsigned char headSize : {0, 8, 31, 65, 255}) {
        entry[4] = char(headSize);
        EXPECT_EQ(KxPlat::FindResourceIn(entry, MAKEINTRESOURCE(1), RT_MENU).data(), nullptr) << int(headSize);
    }
    entry[4] = 32;
    entry[3] = char(0xFF);   // four gigabytes of data
    EXPECT_EQ(KxPlat::FindResourceIn(entry, MAKEINTRESOURCE(0), MAKEINTRESOURCE(0)).data(), nullptr);
}

TEST(Menus, ItemsAreFoundByNumberBelowAndByPlace)
{
    const TestModule module("TestResources");
    CMenu menu;
    EXPECT_EQ(menu.GetMenuItemCount(), -1);
    EXPECT_FALSE(menu.LoadMenu(L"NoSuchMenu"));
    ASSERT_TRUE(menu.LoadMenu(L"namedmenu"));
    EXPECT_EQ(menu.GetMenuItemCount(), 3);
    EXPECT_EQ(menu.GetMenuItemID(0), 300u);
    EXPECT_EQ(menu.GetMenuItemID(1), UINT(-1));
    CString text;
    EXPECT_EQ(menu.GetMenuString(1, text, MF_BYPOSITION), 2);
    EXPECT_TRUE(text == L"视图");
    CMenu* below = menu.GetSubMenu(1);
    ASSERT_NE(below, nullptr);
    EXPECT_EQ(menu.GetSubMenu(0), nullptr);
    EXPECT_EQ(below->GetMenuItemCount(), 3);
    EXPECT_EQ(below->GetMenuState(1, MF_BYPOSITION) & MF_SEPARATOR, MF_SEPARATOR);
    EXPECT_EQ(menu.GetMenuState(302, MF_BYCOMMAND), MF_GRAYED);
    EXPECT_EQ(menu.CheckMenuItem(301, MF_UNCHECKED), MF_CHECKED);
    EXPECT_EQ(menu.CheckMenuItem(301, MF_CHECKED), MF_UNCHECKED);
    EXPECT_EQ(below->GetMenuState(301, MF_BYCOMMAND), MF_CHECKED);
    EXPECT_EQ(menu.CheckMenuItem(999, MF_CHECKED), UINT(-1));
    EXPECT_TRUE(menu.DeleteMenu(301, MF_BYCOMMAND));
    EXPECT_EQ(below->GetMenuItemCount(), 2);
}

}   // namespace
