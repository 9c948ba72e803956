// Moves values between the members of a dialog and its controls: one DDX_ call for each in DoDataExchange.
// Saving a text that is no value tells the user and throws CUserException, which UpdateData turns into FALSE.
#pragma once
#include "CObject.h"
#include "CString.h"

class CWnd;

class CDataExchange {
public:
    CDataExchange(CWnd* dialog, BOOL saveAndValidate) : m_bSaveAndValidate(saveAndValidate), m_pDlgWnd(dialog) {}
    BOOL m_bSaveAndValidate;   // TRUE: from the controls to the members
    CWnd* m_pDlgWnd;

    CWnd* PrepareCtrl(int id);       // throws CResourceException when there is no such control
    CWnd* PrepareEditCtrl(int id);   // the one to return to on failure
    [[noreturn]] void Fail();
};

// The object stands for the control from the first call on, until the dialog ends.
void DDX_Control(CDataExchange* exchange, int id, CWnd& control);
void DDX_Text(CDataExchange* exchange, int id, CString& value);
void DDX_Text(CDataExchange* exchange, int id, int& value);
void DDX_Text(CDataExchange* exchange, int id, UINT& value);
void DDX_Text(CDataExchange* exchange, int id, double& value);
void DDX_Check(CDataExchange* exchange, int id, int& value);
void DDX_Radio(CDataExchange* exchange, int id, int& value);   // which of the group that starts at `id`; -1 none
void DDX_LBIndex(CDataExchange* exchange, int id, int& index);
void DDX_LBString(CDataExchange* exchange, int id, CString& value);
void DDX_CBIndex(CDataExchange* exchange, int id, int& index);
void DDX_CBString(CDataExchange* exchange, int id, CString& value);

void DDV_MinMaxInt(CDataExchange* exchange, int value, int least, int most);
void DDV_MinMaxDouble(CDataExchange* exchange, const double& value, double least, double most);
void DDV_MaxChars(CDataExchange* exchange, const CString& value, int count);
