#include "ClassTable.h"
#include "../db/core/DbCore.h"

namespace KxPlat {

namespace {

constexpr int kFirstNumber = 500;
constexpr int kEntity = 0x1F2, kObject = 0x1F3;

DwgClass ReadClass(SectionIn& in, DwgVersion version)
{
    DwgClass row;
    row.number = in.data().BS();
    row.proxyFlags = in.data().BS();
    row.application = in.Text();
    row.className = in.Text();
    row.dxfName = in.Text();
    row.wasProxy = in.data().B();
    row.isEntity = in.data().BS() == kEntity;
    if (version < kR2004)
        return row;
    row.instances = in.data().BL();
    row.version = in.data().BL();
    row.maintenance = in.data().BL();
    in.data().BL();
    in.data().BL();
    return row;
}

GroupValue Group(int code, decltype(GroupValue::value) value)
{
    GroupValue group;
    group.code = int16_t(code);
    group.value = std::move(value);
    return group;
}

}   // namespace

std::vector<DwgClass> ReadClasses(std::string_view section, const SectionForm& form, DwgReport& report)
{
    std::vector<DwgClass> classes;
    if (section.empty())
        return classes;
    SectionIn in(section, kClassesMark, form, "classes", report);
    if (form.version >= kR2004) {
        in.data().BS();   // the highest number
        in.data().RS();
        in.data().B();
    }
    while (!in.isAtEnd()) {
        DwgClass row = ReadClass(in, form.version);
        if (in.data().isBroken() || row.number < kFirstNumber)
            break;
        classes.push_back(std::move(row));
    }
    return classes;
}

std::string WriteClasses(const std::vector<DwgClass>& classes, const SectionForm& form)
{
    SectionOut out(form);
    if (form.version >= kR2004) {
        out.data().BS(classes.empty() ? kFirstNumber : classes.back().number);
        out.data().RS(0);
        out.data().B(true);
    }
    for (const DwgClass& row : classes) {
        out.data().BS(row.number);
        out.data().BS(row.proxyFlags);
        out.Text(row.application);
        out.Text(row.className);
        out.Text(row.dxfName);
        out.data().B(row.wasProxy);
        out.data().BS(row.isEntity ? kEntity : kObject);
        if (form.version < kR2004)
            continue;
        for (const uint32_t number : {row.instances, row.version, row.maintenance, 0u, 0u})
            out.data().BL(number);
    }
    std::string section = out.Close(kClassesMark);
    if (form.version >= kR2004)
        section.append(8, '\0');
    return section;
}

void TakeClasses(DbCore& core, const std::vector<DwgClass>& classes, AcDb::AcDbDwgVersion version)
{
    for (const DwgClass& row : classes) {
        LooseRecord& record = core.form.classes.emplace_back();
        record.name = L"CLASS";
        record.groups.push_back(Group(1, CString(row.dxfName.c_str())));
        record.groups.push_back(Group(2, CString(row.className.c_str())));
        record.groups.push_back(Group(3, CString(row.application.c_str())));
        record.groups.push_back(Group(90, int64_t(row.proxyFlags)));
        if (version >= kR2004)
            record.groups.push_back(Group(91, int64_t(row.instances)));
        record.groups.push_back(Group(280, int64_t(row.wasProxy)));
        record.groups.push_back(Group(281, int64_t(row.isEntity)));
    }
}

}   // namespace KxPlat
