// The registered commands, group by group. The group added last is looked through first.
#pragma once
#include "../rx/AcRxDictionary.h"
#include "../win/KxWinTypes.h"
#include "AcEdCommand.h"

class AcEdCommandIterator : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcEdCommandIterator);
    virtual bool done() const = 0;
    virtual bool next() = 0;   // false at the end
    virtual const AcEdCommand* command() const = 0;
    virtual const ACHAR* commandGroup() const = 0;
};

class AcEdCommandStack : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcEdCommandStack);

    // eDuplicateKey when the group has a command of the global or the local name.
    virtual Acad::ErrorStatus addCommand(const ACHAR* groupName, const ACHAR* globalName, const ACHAR* localName,
                                         Adesk::Int32 flags, AcRxFunctionPtr function, AcEdUIContext* context = nullptr,
                                         int functionCode = -1, HINSTANCE resources = nullptr,
                                         AcEdCommand** made = nullptr) = 0;
    // eKeyNotFound for an unknown group or name.
    virtual Acad::ErrorStatus removeCmd(const ACHAR* groupName, const ACHAR* globalName) = 0;
    virtual Acad::ErrorStatus removeGroup(const ACHAR* groupName) = 0;

    // Null when there is none. Names are compared without regard to case.
    virtual AcEdCommand* lookupGlobalCmd(const ACHAR* name) = 0;
    virtual AcEdCommand* lookupLocalCmd(const ACHAR* name) = 0;
    virtual AcEdCommand* lookupCmd(const ACHAR* name, const ACHAR* groupName) = 0;
    virtual AcEdCommand* lookupCmd(const ACHAR* name, bool globalLookup, bool allGroups = true) = 0;

    virtual Acad::ErrorStatus popGroupToTop(const ACHAR* groupName) = 0;
    // The caller deletes it; adding or removing commands ends its use.
    virtual AcEdCommandIterator* iterator() = 0;
};

#define ACRX_COMMAND_STACK ACRX_T("ACAD_REGISTERED_COMMANDS")
#define acedRegCmds AcEdCommandStack::cast(acrxSysRegistry()->at(ACRX_COMMAND_STACK))
