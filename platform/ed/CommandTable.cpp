#include "CommandTable.h"
#include "../win/CharTables.h"
#include "CommandLine.h"
#include <algorithm>
#include <list>
#include <string>
#include <unordered_map>
#include <vector>

ACRX_NO_CONS_DEFINE_MEMBERS(AcEdCommand, AcRxObject)
ACRX_NO_CONS_DEFINE_MEMBERS(AcEdCommandIterator, AcRxObject)
ACRX_NO_CONS_DEFINE_MEMBERS(AcEdCommandStack, AcRxObject)

namespace KxPlat {

namespace {

class Command : public AcEdCommand {
public:
    void functionAddr(AcRxFunctionPtr value) override { function = value; }
    AcRxFunctionPtr functionAddr() const override { return function; }
    Adesk::Int32 commandFlags() const override { return flags; }
    const ACHAR* globalName() const override { return global.c_str(); }
    const ACHAR* localName() const override { return local.c_str(); }
    AcEdUIContext* UIContext() const override { return context; }
    AcRxObject* commandApp() const override { return nullptr; }
    const ACHAR* groupName() const override { return group.c_str(); }
    int functionCode() const override { return code; }

    std::wstring global, local, group;
    Adesk::Int32 flags = 0;
    AcRxFunctionPtr function = nullptr;
    AcEdUIContext* context = nullptr;
    int code = -1;
    void* module = nullptr;
};

struct Group {
    std::wstring name;
    std::vector<std::unique_ptr<Command>> commands;
};

class Stack : public AcEdCommandStack {
public:
    Acad::ErrorStatus addCommand(const ACHAR* groupName, const ACHAR* globalName, const ACHAR* localName,
                                 Adesk::Int32 flags, AcRxFunctionPtr function, AcEdUIContext* context, int functionCode,
                                 HINSTANCE resources, AcEdCommand** made) override;
    Acad::ErrorStatus removeCmd(const ACHAR* groupName, const ACHAR* globalName) override;
    Acad::ErrorStatus removeGroup(const ACHAR* groupName) override;
    AcEdCommand* lookupGlobalCmd(const ACHAR* name) override { return lookupCmd(name, true, true); }
    AcEdCommand* lookupLocalCmd(const ACHAR* name) override;
    AcEdCommand* lookupCmd(const ACHAR* name, const ACHAR* groupName) override;
    AcEdCommand* lookupCmd(const ACHAR* name, bool globalLookup, bool allGroups) override;
    Acad::ErrorStatus popGroupToTop(const ACHAR* groupName) override;
    AcEdCommandIterator* iterator() override;

    int RemoveOf(void* module);

private:
    Group* Find(const ACHAR* name);
    static Command* In(const Group& group, std::wstring_view name, bool global, bool local);

    std::list<Group> m_groups;   // the one looked through first in front
};

class Walk : public AcEdCommandIterator {
public:
    explicit Walk(const std::list<Group>& groups)
    {
        for (const Group& group : groups) {
            for (const auto& command : group.commands)
                m_commands.push_back(command.get());
        }
    }
    bool done() const override { return m_at >= m_commands.size(); }
    bool next() override
    {
        m_at += !done();
        return !done();
    }
    const AcEdCommand* command() const override { return done() ? nullptr : m_commands[m_at]; }
    const ACHAR* commandGroup() const override { return done() ? nullptr : m_commands[m_at]->groupName(); }

private:
    std::vector<const Command*> m_commands;
    size_t m_at = 0;
};

Group* Stack::Find(const ACHAR* name)
{
    for (Group& group : m_groups) {
        if (name != nullptr && EqualNoCase(group.name, name))
            return &group;
    }
    return nullptr;
}

Command* Stack::In(const Group& group, std::wstring_view name, bool global, bool local)
{
    for (const auto& command : group.commands) {
        if ((global && EqualNoCase(command->global, name)) || (local && EqualNoCase(command->local, name)))
            return command.get();
    }
    return nullptr;
}

Acad::ErrorStatus Stack::addCommand(const ACHAR* groupName, const ACHAR* globalName, const ACHAR* localName,
                                    Adesk::Int32 flags, AcRxFunctionPtr function, AcEdUIContext* context,
                                    int functionCode, HINSTANCE, AcEdCommand** made)
{
    if (groupName == nullptr || globalName == nullptr || *globalName == 0 || function == nullptr)
        return Acad::eInvalidInput;
    const ACHAR* local = localName != nullptr && *localName != 0 ? localName : globalName;
    Group* group = Find(groupName);
    if (group != nullptr && (In(*group, globalName, true, true) != nullptr || In(*group, local, true, true) != nullptr))
        return Acad::eDuplicateKey;
    if (group == nullptr)
        group = &m_groups.emplace_front(Group{groupName, {}});
    auto command = std::make_unique<Command>();
    command->global = Upper(globalName);
    command->local = Upper(local);
    command->group = group->name;
    command->flags = flags;
    command->function = function;
    command->context = context;
    command->code = functionCode;
    command->module = TheEditor() != nullptr ? TheEditor()->module : nullptr;
    if (made != nullptr)
        *made = command.get();
    group->commands.push_back(std::move(command));
    return Acad::eOk;
}

Acad::ErrorStatus Stack::removeCmd(const ACHAR* groupName, const ACHAR* globalName)
{
    Group* group = Find(groupName);
    if (group == nullptr || globalName == nullptr)
        return Acad::eKeyNotFound;
    const size_t removed =
        std::erase_if(group->commands, [&](const auto& command) { return EqualNoCase(command->global, globalName); });
    return removed != 0 ? Acad::eOk : Acad::eKeyNotFound;
}

Acad::ErrorStatus Stack::removeGroup(const ACHAR* groupName)
{
    const Group* group = Find(groupName);
    if (group == nullptr)
        return Acad::eKeyNotFound;
    m_groups.remove_if([&](const Group& held) { return &held == group; });
    return Acad::eOk;
}

AcEdCommand* Stack::lookupLocalCmd(const ACHAR* name)
{
    for (const Group& group : m_groups) {
        if (Command* command = In(group, name, false, true))
            return command;
    }
    return nullptr;
}

AcEdCommand* Stack::lookupCmd(const ACHAR* name, const ACHAR* groupName)
{
    const Group* group = Find(groupName);
    return group != nullptr ? In(*group, name, true, true) : nullptr;
}

AcEdCommand* Stack::lookupCmd(const ACHAR* name, bool globalLookup, bool)
{
    for (const Group& group : m_groups) {
        if (Command* command = In(group, name, true, !globalLookup))
            return command;
    }
    return nullptr;
}

Acad::ErrorStatus Stack::popGroupToTop(const ACHAR* groupName)
{
    const auto found = std::find_if(m_groups.begin(), m_groups.end(), [&](const Group& group) {
        return groupName != nullptr && EqualNoCase(group.name, groupName);
    });
    if (found == m_groups.end())
        return Acad::eKeyNotFound;
    m_groups.splice(m_groups.begin(), m_groups, found);
    return Acad::eOk;
}

AcEdCommandIterator* Stack::iterator()
{
    return new Walk(m_groups);
}

int Stack::RemoveOf(void* module)
{
    size_t removed = 0;
    for (Group& group : m_groups)
        removed += std::erase_if(group.commands, [&](const auto& command) { return command->module == module; });
    m_groups.remove_if([](const Group& group) { return group.commands.empty(); });
    return int(removed);
}

}   // namespace

std::unique_ptr<AcEdCommandStack> NewCommandStack()
{
    return std::make_unique<Stack>();
}

void* ModuleOf(const AcEdCommand& command)
{
    const auto* known = dynamic_cast<const Command*>(&command);
    return known != nullptr ? known->module : nullptr;
}

int RemoveCommandsOf(void* module)
{
    auto* stack = dynamic_cast<Stack*>(acedRegCmds);
    return stack != nullptr ? stack->RemoveOf(module) : 0;
}

}   // namespace KxPlat
