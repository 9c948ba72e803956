// What a drawing target hears of things that are drawn simpler than they are, or not at all, so that it can tell users.
#pragma once

namespace KxPlat {

enum class DrawNote {
    Damaged,      // coordinates that are no numbers, or beyond the limits
    DenseHatch,   // filled instead of its lines
    Modeller,     // inside of a solid, region or body
    CutText,      // so long that only its beginning is drawn
    DeepBlocks,   // blocks within blocks that lead too far, or within themselves
    Count
};

// A world-draw context may also be one of these.
class DrawNotes {
public:
    virtual ~DrawNotes() = default;
    virtual void Note(DrawNote note) = 0;
};

template <class Draw>
void NoteTo(Draw& draw, DrawNote note)
{
    if (auto* notes = dynamic_cast<DrawNotes*>(&draw))
        notes->Note(note);
}

}   // namespace KxPlat
