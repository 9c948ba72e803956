// AUDIT: checks the whole drawing and, where asked to, puts right what is wrong.
#include "../../db/AcDbDatabase.h"
#include "../../db/core/Audit.h"
#include "../../win/Format.h"
#include "../acedads.h"
#include "HostCommands.h"
#include "Questions.h"

namespace KxPlat {

void AuditCommand()
{
    acedInitGet(0, L"Yes No");
    ACHAR answer[64] = L"";
    const int result = acedGetKword(L"\nFix any errors detected? [Yes/No] <N>: ", answer);
    if (result != RTNORM && result != RTNONE)
        return;
    const bool fixes = result == RTNORM && answer[0] == L'Y';
    Audit audit(CoreOf(*acdbHostApplicationServices()->workingDatabase()), fixes);
    const struct {
        const wchar_t* title;
        void (Audit::*run)();
    } passes[] = {{L"tables", &Audit::Tables},
                  {L"blocks", &Audit::Blocks},
                  {L"objects", &Audit::Objects},
                  {L"groups", &Audit::Groups}};
    size_t told = 0;
    for (const auto& pass : passes) {
        acutPrintf(L"\nAuditing %s.", pass.title);
        (audit.*pass.run)();
        for (; told < audit.Findings().size(); ++told) {
            const AuditFinding& finding = audit.Findings()[told];
            acutPrintf(L"\n%s: %s: %s", finding.object.c_str(), finding.what.c_str(),
                       fixes ? finding.fix.c_str() : L"not fixed");
        }
    }
    acutPrintf(L"\nTotal errors found %d, fixed %d.", int(told), fixes ? int(told) : 0);
    if (audit.ErasedCount() != 0)
        acutPrintf(L"\nErased %d objects.", int(audit.ErasedCount()));
}

}   // namespace KxPlat
