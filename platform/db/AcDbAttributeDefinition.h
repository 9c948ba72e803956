// What a block asks for with each of its insertions: tag, prompt and default value.
#pragma once
#include "AcDbText.h"

namespace KxPlat {

// What a definition and a value have in common.
class TaggedText : public AcDbText {
public:
    ACHAR* tag() const;   // the caller frees it with acutDelString
    const ACHAR* tagConst() const { return m_tag; }
    Acad::ErrorStatus setTag(const ACHAR* tag);
    bool isInvisible() const { return (m_tagFlags & 1) != 0; }
    Acad::ErrorStatus setInvisible(bool on);
    bool isConstant() const { return (m_tagFlags & 2) != 0; }
    bool isVerifiable() const { return (m_tagFlags & 4) != 0; }
    bool isPreset() const { return (m_tagFlags & 8) != 0; }
    Adesk::UInt16 fieldLength() const { return Adesk::UInt16(m_fieldLength); }
    Acad::ErrorStatus setFieldLength(Adesk::UInt16 length);
    bool lockPositionInBlock() const { return m_isLocked != 0; }
    Acad::ErrorStatus setLockPositionInBlock(bool locked);

protected:
    CString m_tag;
    int16_t m_tagFlags = 0;
    int16_t m_fieldLength = 0;
    int16_t m_version = 0;
    int16_t m_isLocked = 0;
};

}   // namespace KxPlat

class AcDbAttributeDefinition : public KxPlat::TaggedText {
public:
    ACDB_DECLARE_MEMBERS(AcDbAttributeDefinition);

    AcDbAttributeDefinition() = default;
    AcDbAttributeDefinition(const AcGePoint3d& position, const ACHAR* text, const ACHAR* tag, const ACHAR* prompt,
                            AcDbObjectId style = AcDbObjectId());

    ACHAR* prompt() const;   // the caller frees it with acutDelString
    const ACHAR* promptConst() const { return m_prompt; }
    Acad::ErrorStatus setPrompt(const ACHAR* prompt);
    Acad::ErrorStatus setConstant(bool on);
    Acad::ErrorStatus setVerifiable(bool on);
    Acad::ErrorStatus setPreset(bool on);

protected:
    Adesk::Boolean subWorldDraw(AcGiWorldDraw* worldDraw) override;

private:
    CString m_prompt;
};
