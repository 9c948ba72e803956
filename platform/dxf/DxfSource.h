// The values of the group that a walk stands at, as objects take them: texts decoded, names looked up.
#pragma once
#include "../db/core/DbCore.h"
#include "../db/core/ObjectAccess.h"
#include "../db/core/RecordNames.h"
#include "TextCodec.h"
#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace KxPlat {

// Symbol table records by the bytes of their names. Most objects of a drawing share a few names.
class NameCache {
public:
    struct Entry {
        AcDbStub* record = nullptr;
        bool isPlain = true;   // the record's own name is written in the same bytes
        CString text;
    };
    // Null when `bytes` were not met yet.
    const Entry* Find(TableKind table, std::string_view bytes) const
    {
        const auto& names = m_names[size_t(table)];
        const auto place = names.find(bytes);
        return place == names.end() ? nullptr : &place->second;
    }
    const Entry& Add(TableKind table, std::string_view bytes, Entry entry)
    {
        return m_names[size_t(table)].emplace(bytes, std::move(entry)).first->second;
    }

private:
    struct Hash {
        using is_transparent = void;
        size_t operator()(std::string_view text) const { return std::hash<std::string_view>()(text); }
    };
    std::unordered_map<std::string, Entry, Hash, std::equal_to<>> m_names[kTableCount];
};

template <class Tags>
class DxfSource {
public:
    DxfSource(Tags& tags, const TextCodec& codec) : m_tags(tags), m_codec(codec) {}

    int code() const { return m_tags.code(); }
    double Real() { return m_tags.Real(); }
    int64_t Integer() { return m_tags.Integer(); }
    std::string_view Raw() { return m_tags.Text(); }
    CString Text()
    {
        bool isPlain = true;
        CString text = m_codec.Decode(m_tags.Text(), isPlain);
        if (!isPlain)
            KeepSpelling(text);
        return text;
    }
    uint64_t Handle()
    {
        const std::optional<uint64_t> handle = m_tags.Handle();
        if (handle)
            return *handle;
        m_tags.report().Mend(m_tags.Place(), "this is no handle:", std::string(m_tags.Text().substr(0, 40)));
        KeepSpelling(m_codec.Decode(m_tags.Text()));
        return 0;
    }
    KxPlat::Bytes Binary()
    {
        std::optional<std::string> bytes = m_tags.Chunk();
        if (!bytes)
            m_tags.report().Mend(m_tags.Place(), "these are no hexadecimal digits");
        return std::make_shared<const std::string>(bytes ? std::move(*bytes) : std::string());
    }
    AcDbStub* Record(TableKind table, DbCore& core)
    {
        const std::string_view bytes = m_tags.Text();
        const NameCache::Entry* entry = m_names.Find(table, bytes);
        if (entry == nullptr)
            entry = &Learn(table, bytes, core);
        if (!entry->isPlain)
            KeepSpelling(entry->text);
        return entry->record;
    }
    // What the groups read since the last call say in other words than the database will, now as groups of `object`.
    void MoveSpellings(const AcDbStub* object, std::vector<KeptSpelling>& to)
    {
        for (KeptSpelling& spelling : m_spellings) {
            spelling.object = object;
            to.push_back(std::move(spelling));
        }
        m_spellings.clear();
    }

    GroupValue Value(DbCore& core)
    {
        GroupValue group;
        group.code = int16_t(code());
        switch (KindOfGroup(group.code)) {
        case GroupKind::Real: group.value = Real(); break;
        case GroupKind::Int16:
        case GroupKind::Int32:
        case GroupKind::Int64:
        case GroupKind::Bool: group.value = Integer(); break;
        case GroupKind::Handle: {
            const uint64_t handle = Handle();
            group.value = AcDbObjectId(handle == 0 ? nullptr : core.handles.Get(handle));
            break;
        }
        case GroupKind::Binary: group.value = Binary(); break;
        case GroupKind::Text: group.value = Text(); break;
        }
        return group;
    }

private:
    void KeepSpelling(const CString& text)
    {
        const std::string_view raw = m_tags.Text();
        CString bytes;
        wchar_t* to = bytes.GetBufferSetLength(int(raw.size()));
        for (size_t i = 0; i < raw.size(); ++i)
            to[i] = static_cast<unsigned char>(raw[i]);
        m_spellings.push_back({nullptr, int16_t(m_tags.code()), text, bytes, nullptr});
    }
    const NameCache::Entry& Learn(TableKind table, std::string_view bytes, DbCore& core)
    {
        NameCache::Entry entry;
        bool isPlain = true;
        const CString name = m_codec.Decode(bytes, isPlain);
        entry.record = core.RecordNamed(table, name);
        // A record that comes only later may bring a spelling of its own.
        const bool isPlaceholder = (ObjectAccess::State(*entry.record->object) & kPlaceholder) != 0;
        entry.isPlain = !isPlaceholder && isPlain && RecordNameOf(*entry.record->object) == name;
        entry.text = name;
        return m_names.Add(table, bytes, std::move(entry));
    }

    Tags& m_tags;
    const TextCodec& m_codec;
    NameCache m_names;
    std::vector<KeptSpelling> m_spellings;
};

}   // namespace KxPlat
