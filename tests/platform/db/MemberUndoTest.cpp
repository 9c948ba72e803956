// Undo of changes that are recorded as one member, mixed with those that copy the whole object.
#include "db/AcDbBlockTableRecord.h"
#include "db/AcDbDatabase.h"
#include "db/AcDbLine.h"
#include "db/core/DbCore.h"
#include <gtest/gtest.h>
#include <string>

using namespace KxPlat;

namespace {

class MemberUndo : public ::testing::Test {
protected:
    MemberUndo()
    {
        AcDbBlockTableRecord* space = nullptr;
        EXPECT_EQ(acdbOpenObject(space, db.currentSpaceId(), AcDb::kForWrite), Acad::eOk);
        AcDbLine* line = new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 0, 0));
        EXPECT_EQ(space->appendAcDbEntity(id, line), Acad::eOk);
        line->close();
        space->close();
    }
    template <class Change>
    void Edit(Change&& change)
    {
        AcDbLine* line = nullptr;
        ASSERT_EQ(acdbOpenObject(line, id, AcDb::kForWrite), Acad::eOk);
        change(*line);
        line->close();
    }
    void Hide() { SetVisible(AcDb::kInvisible); }
    void Show() { SetVisible(AcDb::kVisible); }
    void SetVisible(AcDb::Visibility visibility)
    {
        Edit([&](AcDbLine& line) { EXPECT_EQ(line.setVisibility(visibility), Acad::eOk); });
    }
    void MoveEnd(double x)
    {
        Edit([&](AcDbLine& line) { line.setEndPoint(AcGePoint3d(x, 0, 0)); });
    }
    // "hidden 1", "shown 5": visibility and end of the line.
    std::string Seen()
    {
        std::string seen;
        Edit([&](AcDbLine& line) {
            seen = std::string(line.visibility() == AcDb::kInvisible ? "hidden " : "shown ") +
                   std::to_string(int(line.endPoint().x));
        });
        return seen;
    }
    void Begin() { CoreOf(db).undo.Begin(L"STEP"); }
    bool Undo()
    {
        CString command;
        return CoreOf(db).undo.Undo(CoreOf(db).header, command);
    }
    bool Redo()
    {
        CString command;
        return CoreOf(db).undo.Redo(CoreOf(db).header, command);
    }

    AcDbDatabase db;
    AcDbObjectId id;
};

}   // namespace

TEST_F(MemberUndo, ComesBackInWhateverOrderThingsChanged)
{
    struct Row {
        const char* actions;   // h hides, s shows, m moves the end to 5
        const char* after;
    };
    static const Row rows[] = {{"h", "hidden 1"},  {"hm", "hidden 5"},   {"mh", "hidden 5"},
                               {"hms", "shown 5"}, {"hmsh", "hidden 5"}, {"hsm", "shown 5"}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.actions);
        Begin();
        for (const char* action = row.actions; *action != 0; ++action)
            *action == 'h' ? Hide() : *action == 's' ? Show() : MoveEnd(5);
        EXPECT_EQ(Seen(), row.after);
        for (int turn = 0; turn < 2; ++turn) {
            EXPECT_TRUE(Undo());
            EXPECT_EQ(Seen(), "shown 1");
            EXPECT_TRUE(Redo());
            EXPECT_EQ(Seen(), row.after);
        }
        EXPECT_TRUE(Undo());
    }
}

TEST_F(MemberUndo, WhatStaysTheSameIsNoStep)
{
    Begin();
    const size_t depth = CoreOf(db).undo.UndoDepth();
    Show();
    EXPECT_EQ(CoreOf(db).undo.UndoDepth(), depth);
    AcDbLine* line = nullptr;
    ASSERT_EQ(acdbOpenObject(line, id, AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(line->setVisibility(AcDb::kVisible), Acad::eNotOpenForWrite);
    EXPECT_EQ(line->setVisibility(AcDb::kInvisible), Acad::eNotOpenForWrite);
    line->close();
    EXPECT_EQ(Seen(), "shown 1");
}
