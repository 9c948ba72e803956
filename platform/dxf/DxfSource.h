// The values of the group that a walk stands at, as objects take them: texts decoded, names looked up.
#pragma once
#include "../db/core/DbCore.h"
#include "../db/core/ObjectAccess.h"
#include "../db/core/RecordNames.h"
#include "../db/core/TextCodec.h"
#include <bit>
#include <cstring>
#include <deque>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace KxPlat {

// Symbol table records by the bytes of their names. Most objects of a drawing share a few names.
class NameCache {
public:
    struct Entry {
        std::string bytes;
        AcDbStub* record = nullptr;
        bool isPlain = true;   // the record's own name is written in the same bytes
        CString text;
    };
    // Null when `bytes` were not met yet.
    const Entry* Find(TableKind table, std::string_view bytes) const
    {
        const Names& names = m_names[size_t(table)];
        if (names.slots.empty())
            return nullptr;
        for (size_t at = HashOf(bytes);; ++at) {
            const Entry* entry = names.slots[at & (names.slots.size() - 1)];
            if (entry == nullptr || entry->bytes == bytes)
                return entry;
        }
    }
    const Entry& Add(TableKind table, Entry entry)
    {
        Names& names = m_names[size_t(table)];
        names.entries.push_back(std::move(entry));
        if (names.entries.size() * 2 > names.slots.size()) {
            names.slots.assign(names.entries.size() * 4 + 16, nullptr);
            names.slots.resize(std::bit_ceil(names.slots.size()));
            for (const Entry& old : names.entries)
                Put(names, old);
        } else {
            Put(names, names.entries.back());
        }
        return names.entries.back();
    }

private:
    struct Names {
        std::deque<Entry> entries;         // never move
        std::vector<const Entry*> slots;   // open addressing; a power of two
    };
    static size_t HashOf(std::string_view bytes)
    {
        uint64_t hash = bytes.size();
        while (bytes.size() >= 8) {
            uint64_t part;
            std::memcpy(&part, bytes.data(), 8);
            hash = (hash ^ part) * 0x9E3779B97F4A7C15u;
            hash ^= hash >> 32;
            bytes.remove_prefix(8);
        }
        for (unsigned char c : bytes)
            hash = (hash ^ c) * 0x100000001B3u;
        hash *= 0x9E3779B97F4A7C15u;
        return size_t(hash >> 24);
    }
    static void Put(Names& names, const Entry& entry)
    {
        size_t at = HashOf(entry.bytes);
        while (names.slots[at & (names.slots.size() - 1)] != nullptr)
            ++at;
        names.slots[at & (names.slots.size() - 1)] = &entry;
    }

    Names m_names[kTableCount];
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
        case GroupKind::Real:
            group.value = Real();
            break;
        case GroupKind::Int16:
        case GroupKind::Int32:
        case GroupKind::Int64:
        case GroupKind::Bool:
            group.value = Integer();
            break;
        case GroupKind::Handle: {
            const uint64_t handle = Handle();
            group.value = AcDbObjectId(handle == 0 ? nullptr : core.handles.Get(handle));
            break;
        }
        case GroupKind::Binary:
            group.value = Binary();
            break;
        case GroupKind::Text:
            group.value = Text();
            break;
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
        entry.bytes = bytes;
        return m_names.Add(table, std::move(entry));
    }

    Tags& m_tags;
    const TextCodec& m_codec;
    NameCache m_names;
    std::vector<KeptSpelling> m_spellings;
};

}   // namespace KxPlat
