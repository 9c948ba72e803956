// An object's groups as one line, "100 AcDbLine|10 0|20 0": what a test puts in and what it gets back.
#pragma once
#include "db/AcDbEntity.h"
#include "db/AcDbSymbolTableRecord.h"
#include "db/core/ObjectReader.h"
#include <sstream>
#include <string>

namespace Groups {

class Source {
public:
    Source(int code, std::string value) : m_code(code), m_value(std::move(value)) {}
    int code() const { return m_code; }
    double Real() const { return std::stod(m_value); }
    int64_t Integer() const { return std::stoll(m_value); }
    CString Text() const { return CString(m_value.c_str()); }
    std::string_view Raw() const { return m_value; }
    uint64_t Handle() const { return std::stoull(m_value, nullptr, 16); }
    KxPlat::Bytes Binary() const { return std::make_shared<const std::string>(m_value); }
    AcDbStub* Record(KxPlat::TableKind kind, KxPlat::DbCore& core) const { return core.RecordNamed(kind, Text()); }

private:
    int m_code;
    std::string m_value;
};

inline void Put(AcDbObject& object, KxPlat::DbCore& core, const std::string& groups)
{
    KxPlat::ObjectReader<Source> reader(core);
    reader.Begin(object);
    std::istringstream all(groups);
    for (std::string group; std::getline(all, group, '|');) {
        const size_t blank = group.find(' ');
        Source source(std::stoi(group), group.substr(blank + 1));
        reader.Put(source);
    }
    reader.End();
}

class Sink : public KxPlat::GroupSink {
public:
    void Real(int code, double value) override { Add(code) << value; }
    void Integer(int code, int64_t value) override { Add(code) << value; }
    void Text(int code, const CString& value) override
    {
        std::ostringstream& out = Add(code);
        for (int index = 0; index < value.GetLength(); ++index)
            out << char(value[index]);
    }
    void Id(int code, AcDbObjectId value) override { Add(code) << std::hex << uint64_t(value.handle()) << std::dec; }
    void Name(int code, AcDbObjectId record, KxPlat::TableKind) override
    {
        const AcDbStub* stub = record;
        Text(code, stub == nullptr ? L"" : static_cast<const AcDbSymbolTableRecord*>(stub->object)->nameText());
    }
    void Binary(int code, const KxPlat::Bytes& value) override { Add(code) << *value; }
    void Marker(int code, std::string_view value) override { Add(code) << value; }
    std::string Joined() const { return m_out.str(); }

private:
    std::ostringstream& Add(int code)
    {
        if (m_out.tellp() > 0)
            m_out << '|';
        m_out << code << ' ';
        return m_out;
    }
    std::ostringstream m_out;
};

// In the order of the class's field list, from the first marker on.
inline std::string Canonical(const AcDbObject& object, AcDb::AcDbDwgVersion version)
{
    Sink sink;
    KxPlat::GetGroups(object, sink, {version, false});
    const std::string all = sink.Joined();
    const size_t start = all.find("100 ");
    return start == all.npos ? all : all.substr(start);
}

}   // namespace Groups
