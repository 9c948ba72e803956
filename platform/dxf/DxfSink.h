// Takes the groups of objects and writes them: texts in the file's code page, references as handles, records by name.
#pragma once
#include "../db/core/DbCore.h"
#include "../db/core/ObjectAccess.h"
#include "../db/core/RecordNames.h"
#include "../db/core/TextCodec.h"
#include "OldForms.h"
#include "TagWriter.h"
#include <algorithm>

namespace KxPlat {

template <class Writer>
class DxfSink final : public RecordSink {
public:
    // `isSameForm`: the file is of the version that the drawing came in, so that its spellings hold.
    // `hasHandles`: objects are written with the handles of their own.
    DxfSink(Writer& writer, const TextCodec& codec, const DbCore& core, AcDb::AcDbDwgVersion version, bool isSameForm,
            bool hasHandles)
        : m_writer(writer),
          m_codec(codec),
          m_core(core),
          m_version(version),
          m_isSameForm(isSameForm),
          m_hasHandles(hasHandles)
    {
    }

    // `type` is written as the record's 0 group; the object's groups follow.
    void Write(std::string_view type, const AcDbObject& object, const GroupForm& form)
    {
        m_writer.Text(0, type);
        Groups(object, form);
    }
    void Groups(const AcDbObject& object, const GroupForm& form)
    {
        m_object = ObjectAccess::Stub(object);
        m_spelling = m_next = form.asRead && m_isSameForm ? FirstSpelling() : nullptr;
        m_dropsErased = false;
        GetGroups(object, *this, form);
    }
    // Of no object.
    void Groups(const GroupList& groups)
    {
        if (m_object != nullptr)
            m_spelling = nullptr;
        m_object = nullptr;
        if (m_spelling == nullptr)
            m_spelling = m_next = m_isSameForm ? FirstSpelling() : nullptr;
        m_dropsErased = false;
        for (const GroupValue& group : groups)
            Value(group);
    }

    void Record(std::string_view type, const AcDbObject& object, uint64_t handle) override
    {
        GroupForm form;
        form.version = m_version;
        m_handle = handle;
        Write(type, object, form);
        m_handle = 0;
    }

    void Real(int code, double value) override { m_writer.Real(code, value); }
    void Integer(int code, int64_t value) override { m_writer.Integer(code, value); }
    void Text(int code, const CString& value) override
    {
        if (code == 102)
            m_dropsErased = value == L"{BLKREFS";
        if (m_spelling != nullptr)
            if (const KeptSpelling* kept = Spelling(code, [&](const KeptSpelling& one) { return one.text == value; }))
                return Raw(code, *kept);
        m_writer.Text(code, m_codec.Encode(IsOldSpace(code, value) ? L"*" + value.Mid(1) : value));
    }
    void Id(int code, AcDbObjectId value) override
    {
        const AcDbStub* stub = value;
        if (stub == m_object && KindOfGroup(code) == GroupKind::Text)
            return OwnHandle(code, stub);
        if (m_spelling != nullptr) {
            stub = OwnerAsRead(code, stub);
            if (const KeptSpelling* kept = stub == nullptr ? TextForHandle(code) : nullptr)
                return Raw(code, *kept);
        }
        const bool isGone = stub != nullptr && stub->erased;
        if (isGone && m_dropsErased)
            return;
        m_writer.Handle(code, stub == nullptr || isGone ? 0 : stub->handle);
    }
    void Name(int code, AcDbObjectId record, TableKind table) override
    {
        const AcDbStub* stub = record;
        if (stub == nullptr || stub->object == nullptr)
            return m_writer.Text(code, table == TableKind::Linetype ? "ByLayer" : table == TableKind::Layer ? "0" : "");
        const CString name = RecordNameOf(*stub->object);
        // The file's spelling as long as the record still bears that name.
        if (m_spelling != nullptr)
            if (const KeptSpelling* kept =
                    Spelling(code, [&](const KeptSpelling& one) { return one.text.CompareNoCase(name) == 0; }))
                return Raw(code, *kept);
        m_writer.Text(code, m_codec.Encode(name));
    }
    void Binary(int code, const Bytes& value) override
    {
        m_writer.Chunk(code, value == nullptr ? std::string() : *value);
    }
    void Marker(int code, std::string_view text) override
    {
        m_dropsErased = code == 102 && text == "{ACAD_REACTORS";
        m_writer.Text(code, text);
    }

private:
    // The oldest files spell the names of the spaces with a dollar sign.
    bool IsOldSpace(int code, const CString& name) const
    {
        return (code == 2 || code == 3) && m_version >= AcDb::kDHL_1012 && !m_isSameForm && !name.IsEmpty() &&
               name[0] == L'$' &&
               (name.CompareNoCase(L"$MODEL_SPACE") == 0 || name.CompareNoCase(L"$PAPER_SPACE") == 0);
    }
    void OwnHandle(int code, const AcDbStub* stub)
    {
        const uint64_t handle = stub != nullptr ? stub->handle : m_handle;
        if (m_hasHandles && handle != 0)
            m_writer.Handle(code, handle);
    }
    const KeptSpelling* FirstSpelling() const
    {
        const auto& all = m_core.form.spellings;
        if (all.empty())
            return nullptr;
        const auto place =
            std::lower_bound(all.begin(), all.end(), m_object,
                             [](const KeptSpelling& a, const AcDbStub* b) { return std::less<>()(a.object, b); });
        return place != all.end() && place->object == m_object ? &*place : nullptr;
    }
    // Groups are written in the order in which they were read, or nearly so: the search goes on where the last one
    // ended.
    template <class Fits>
    const KeptSpelling* Spelling(int code, Fits&& fits)
    {
        constexpr int kFar = 100;
        const KeptSpelling* const end = m_core.form.spellings.data() + m_core.form.spellings.size();
        for (const KeptSpelling* start : {m_next, m_spelling})
            for (const KeptSpelling* at = start; at != end && at->object == m_object && at - start < kFar; ++at)
                if (at->code == code && fits(*at)) {
                    m_next = at + 1;
                    return at;
                }
        return nullptr;
    }
    void Raw(int code, const KeptSpelling& kept)
    {
        m_raw.clear();
        for (int i = 0; i < kept.bytes.GetLength(); ++i)
            m_raw.push_back(char(kept.bytes[i]));
        m_writer.Text(code, OneLine(m_raw));
    }
    const AcDbStub* OwnerAsRead(int code, const AcDbStub* stub)
    {
        if (code != 330 || m_object == nullptr || stub != ObjectAccess::Owner(*m_object->object))
            return stub;
        const KeptSpelling* kept = Spelling(code, [](const KeptSpelling& one) { return one.owner != nullptr; });
        return kept == nullptr ? stub : kept->owner;
    }
    const KeptSpelling* TextForHandle(int code)
    {
        return Spelling(code, [](const KeptSpelling& one) { return one.owner == nullptr; });
    }

    Writer& m_writer;
    const TextCodec& m_codec;
    const DbCore& m_core;
    const AcDbStub* m_object = nullptr;
    const KeptSpelling* m_spelling = nullptr;   // the first one of the present object
    const KeptSpelling* m_next = nullptr;       // behind the one used last
    uint64_t m_handle = 0;                      // of an object that is in no drawing
    AcDb::AcDbDwgVersion m_version;
    bool m_isSameForm;
    bool m_hasHandles;
    bool m_dropsErased = false;   // within a list of references
    std::string m_raw;
};

}   // namespace KxPlat
