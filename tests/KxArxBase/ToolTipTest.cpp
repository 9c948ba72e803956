#include "KxArxBase/GiToolTip.h"
#include "KxArxBase/KxAcDb.h"
#include "TestUi.h"
#include <gtest/gtest.h>

using namespace KxArxBase;

TEST(ToolTips, StayOnTheirObjectsUntilRemoved)
{
    TestUi ui;
    AcDbDatabase drawing;
    CKxAcDb db(&drawing, 0);
    AcDbObjectIdArray ids;
    for (int i = 0; i < 2; ++i) {
        AcDbObjectId id;
        db.AddEntToSpace(new AcDbPoint(AcGePoint3d(i, 0, 0)), 1, nullptr, &id);
        ids.append(id);
    }
    CString text = L"旧";
    EXPECT_EQ(Gi::GetToolTipData(ids[0], text), Acad::eKeyNotFound);
    EXPECT_STREQ(text, L"旧");
    for (int length : {1, 124, 125, 126, 250, 1000}) {
        CString written;
        for (int i = 0; i < length; ++i)
            written += wchar_t(L'一' + i);
        ASSERT_EQ(Gi::AddToolTipDataToObject(ids, written), Acad::eOk) << length;
        ASSERT_EQ(Gi::GetToolTipData(ids[1], text), Acad::eOk);
        EXPECT_EQ(text, written);
    }
    AcDbObjectIdArray first;
    first.append(ids[0]);
    EXPECT_EQ(Gi::RemoveToolTipData(first), Acad::eOk);
    EXPECT_EQ(Gi::GetToolTipData(ids[0], text), Acad::eKeyNotFound);
    EXPECT_EQ(Gi::GetToolTipData(ids[1], text), Acad::eOk);
}
