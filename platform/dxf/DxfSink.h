// Takes the groups of objects and writes them: texts in the file's code page, references as handles, records by name.
#pragma once
#include "../db/core/DbCore.h"
#include "../db/core/ObjectAccess.h"
#include "../db/core/RecordNames.h"
#include "TagWriter.h"
#include "TextCodec.h"
#include <algorithm>

namespace KxPlat {

template <class Writer>
class DxfSink final : public GroupSink {
public:
    DxfSink(Writer& writer, const TextCodec& codec, const DbCore& core) : m_writer(writer), m_codec(codec), m_core(core) {}

    // `type` is written as the record's 0 group; the object's groups follow.
    void Write(std::string_view type, const AcDbObject& object, const GroupForm& form)
    {
        m_writer.Text(0, type);
        Groups(object, form);
    }
    void Groups(const AcDbObject& object, const GroupForm& form)
    {
        m_object = ObjectAccess::Stub(object);
        m_spelling = form.asRead && !m_core.form.spellings.empty() ? FirstSpelling() : nullptr;
        m_isInReactors = false;
        GetGroups(object, *this, form);
        m_spelling = nullptr;
    }

    void Real(int code, double value) override { m_writer.Real(code, value); }
    void Integer(int code, int64_t value) override { m_writer.Integer(code, value); }
    void Text(int code, const CString& value) override { m_writer.Text(code, m_codec.Encode(value)); }
    void Id(int code, AcDbObjectId value) override
    {
        const AcDbStub* stub = value;
        if (m_spelling != nullptr) {
            stub = OwnerAsRead(code, stub);
            if (const KeptSpelling* kept = stub == nullptr ? TextForHandle(code) : nullptr)
                return m_writer.Text(code, m_codec.Encode(kept->name));
        }
        const bool isGone = stub != nullptr && stub->erased;
        if (isGone && m_isInReactors)
            return;
        m_writer.Handle(code, stub == nullptr || isGone ? 0 : stub->handle);
    }
    void Name(int code, AcDbObjectId record, TableKind table) override
    {
        const AcDbStub* stub = record;
        if (stub == nullptr || stub->object == nullptr)
            return m_writer.Text(code, table == TableKind::Linetype ? "ByLayer" : table == TableKind::Layer ? "0" : "");
        const CString name = RecordNameOf(*stub->object);
        m_writer.Text(code, m_codec.Encode(m_spelling != nullptr ? NameAsRead(code, name) : name));
    }
    void Binary(int code, const Bytes& value) override { m_writer.Chunk(code, value == nullptr ? std::string() : *value); }
    void Marker(int code, std::string_view text) override
    {
        m_isInReactors = code == 102 && text == "{ACAD_REACTORS";
        m_writer.Text(code, text);
    }

private:
    const KeptSpelling* FirstSpelling() const
    {
        const auto& all = m_core.form.spellings;
        const auto place = std::lower_bound(all.begin(), all.end(), m_object, [](const KeptSpelling& a, const AcDbStub* b) {
            return std::less<>()(a.object, b);
        });
        return place != all.end() && place->object == m_object ? &*place : nullptr;
    }
    template <class Fits>
    const KeptSpelling* Spelling(int code, Fits&& fits) const
    {
        const KeptSpelling* const end = m_core.form.spellings.data() + m_core.form.spellings.size();
        for (const KeptSpelling* at = m_spelling; at != end && at->object == m_object; ++at)
            if (at->code == code && fits(*at))
                return at;
        return nullptr;
    }
    // The file's spelling as long as the record still bears that name.
    CString NameAsRead(int code, const CString& name) const
    {
        const KeptSpelling* kept =
            Spelling(code, [&](const KeptSpelling& one) { return one.name.CompareNoCase(name) == 0; });
        return kept == nullptr ? name : kept->name;
    }
    const AcDbStub* OwnerAsRead(int code, const AcDbStub* stub)
    {
        if (code != 330 || stub != ObjectAccess::Owner(*m_object->object))
            return stub;
        const KeptSpelling* kept = Spelling(code, [](const KeptSpelling& one) { return one.owner != nullptr; });
        return kept == nullptr ? stub : kept->owner;
    }

    const KeptSpelling* TextForHandle(int code) const
    {
        return Spelling(code, [](const KeptSpelling& one) { return one.owner == nullptr; });
    }

    Writer& m_writer;
    const TextCodec& m_codec;
    const DbCore& m_core;
    const AcDbStub* m_object = nullptr;
    const KeptSpelling* m_spelling = nullptr;   // the first one of the present object
    bool m_isInReactors = false;
};

}   // namespace KxPlat
