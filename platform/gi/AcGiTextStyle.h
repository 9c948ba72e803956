// How a text is drawn: font, size, width, slant. Shape fonts are measured as the built-in stroke font, an ideograph
// being a square; TrueType fonts as the font that the system has for the name.
#pragma once
#include "../db/AcDbObjectId.h"
#include "../ge/AcGePoint2d.h"
#include "../mfc/CString.h"
#include "../rx/acadstrc.h"

class AcGiTextStyle {
public:
    AcGiTextStyle() = default;
    AcGiTextStyle(const ACHAR* fontName, const ACHAR* bigFontName, double textSize, double xScale,
                  double obliquingAngle, double trackingPercent, bool isBackward, bool isUpsideDown, bool isVertical,
                  bool isOverlined = false, bool isUnderlined = false);

    const ACHAR* fileName() const { return m_fileName; }
    const ACHAR* bigFontFileName() const { return m_bigFontFileName; }
    const ACHAR* styleName() const { return m_styleName; }
    double textSize() const { return m_textSize; }
    double xScale() const { return m_xScale; }
    double obliquingAngle() const { return m_obliquingAngle; }   // radians
    double trackingPercent() const { return m_trackingPercent; }
    bool isBackward() const { return m_isBackward; }
    bool isUpsideDown() const { return m_isUpsideDown; }
    bool isVertical() const { return m_isVertical; }
    bool isOverlined() const { return m_isOverlined; }
    bool isUnderlined() const { return m_isUnderlined; }

    void setFileName(const ACHAR* name) { m_fileName = name; }
    void setBigFontFileName(const ACHAR* name) { m_bigFontFileName = name; }
    void setStyleName(const ACHAR* name) { m_styleName = name; }
    void setTextSize(double size) { m_textSize = size; }
    void setXScale(double scale) { m_xScale = scale; }
    void setObliquingAngle(double angle) { m_obliquingAngle = angle; }
    void setTrackingPercent(double percent) { m_trackingPercent = percent; }
    void setBackward(bool on) { m_isBackward = on; }
    void setUpsideDown(bool on) { m_isUpsideDown = on; }
    void setVertical(bool on) { m_isVertical = on; }
    void setOverlined(bool on) { m_isOverlined = on; }
    void setUnderlined(bool on) { m_isUnderlined = on; }
    Acad::ErrorStatus setFont(const ACHAR* typeface, bool bold, bool italic, int charset, int pitchAndFamily);
    const ACHAR* typeface() const { return m_typeface; }
    bool isBold() const { return m_isBold; }
    bool isItalic() const { return m_isItalic; }
    Acad::ErrorStatus font(ACHAR*& typeface, bool& bold, bool& italic, int& charset, int& pitchAndFamily) const;
    int loadStyleRec() const { return 0; }

    // The far corner of the box from the start of the base line. `length` counts characters, -1 takes all up to the
    // end. Without `raw` the codes %%c, %%d, %%p, %%u, %%o, %%% and %%nnn stand for what they draw.
    AcGePoint2d extents(const ACHAR* text, bool penups, int length, bool raw) const;

private:
    CString m_fileName;
    CString m_bigFontFileName;
    CString m_styleName;
    CString m_typeface;
    double m_textSize = 1;
    double m_xScale = 1;
    double m_obliquingAngle = 0;
    double m_trackingPercent = 1;
    int m_charset = 0;
    int m_pitchAndFamily = 0;
    bool m_isBold = false;
    bool m_isItalic = false;
    bool m_isBackward = false;
    bool m_isUpsideDown = false;
    bool m_isVertical = false;
    bool m_isOverlined = false;
    bool m_isUnderlined = false;
};

// The style of a text style record.
Acad::ErrorStatus fromAcDbTextStyle(AcGiTextStyle& style, const AcDbObjectId& id);
// The same by the record's name in the working database.
Acad::ErrorStatus fromAcDbTextStyle(AcGiTextStyle& style, const ACHAR* name);

namespace KxPlat {

// A text with its %% codes replaced by what they draw.
CString ShownText(const ACHAR* text, int length = -1);

}   // namespace KxPlat
