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
        CString spelling;   // set where the record itself is spelled otherwise (by case)
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
    CString Text() { return m_codec.Decode(m_tags.Text()); }
    uint64_t Handle()
    {
        const std::optional<uint64_t> handle = m_tags.Handle();
        if (handle)
            return *handle;
        m_tags.report().Mend(m_tags.Place(), "this is no handle:", std::string(m_tags.Text().substr(0, 40)));
        m_spellings.emplace_back(m_tags.code(), Text());
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
        if (!entry->spelling.IsEmpty())
            m_spellings.emplace_back(m_tags.code(), entry->spelling);
        return entry->record;
    }
    // Names of the present object that differ from their records' spelling, and texts in the place of handles; the caller
    // empties the list.
    std::vector<std::pair<int, CString>>& spellings() { return m_spellings; }

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
    const NameCache::Entry& Learn(TableKind table, std::string_view bytes, DbCore& core)
    {
        NameCache::Entry entry;
        const CString name = m_codec.Decode(bytes);
        entry.record = core.RecordNamed(table, name);
        // A record that comes only later may bring a spelling of its own.
        const bool isPlaceholder = (ObjectAccess::State(*entry.record->object) & kPlaceholder) != 0;
        if (isPlaceholder || RecordNameOf(*entry.record->object) != name)
            entry.spelling = name;
        return m_names.Add(table, bytes, std::move(entry));
    }

    Tags& m_tags;
    const TextCodec& m_codec;
    NameCache m_names;
    std::vector<std::pair<int, CString>> m_spellings;
};

}   // namespace KxPlat
