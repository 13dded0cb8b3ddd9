#include "common/administrator.h"

#include "common/entry.h"

namespace halyard {

bool IsUserAdministrator() noexcept {
    using AllocateSidFn =
        BOOL(WINAPI*)(SID_IDENTIFIER_AUTHORITY*, BYTE, DWORD, DWORD, DWORD, DWORD, DWORD, DWORD, DWORD, DWORD, PSID*);
    using CheckMembershipFn = BOOL(WINAPI*)(HANDLE, PSID, BOOL*);
    using FreeSidFn = void*(WINAPI*)(PSID);
    const HMODULE security = GetModuleHandleA("advapi32.dll");
    const auto allocateSid = EntryOf<AllocateSidFn>(security, "AllocateAndInitializeSid");
    const auto checkMembership = EntryOf<CheckMembershipFn>(security, "CheckTokenMembership");
    const auto freeSid = EntryOf<FreeSidFn>(security, "FreeSid");
    if (!allocateSid || !checkMembership) return false;
    SID_IDENTIFIER_AUTHORITY authority = {{0, 0, 0, 0, 0, 5}};  // SECURITY_NT_AUTHORITY
    PSID administrators = nullptr;
    if (!allocateSid(&authority, 2, SECURITY_BUILTIN_DOMAIN_RID, DOMAIN_ALIAS_RID_ADMINS, 0, 0, 0, 0, 0, 0,
                     &administrators))
        return false;
    BOOL member = FALSE;
    if (!checkMembership(nullptr, administrators, &member)) member = FALSE;
    if (freeSid) freeSid(administrators);
    return member != FALSE;
}

}  // namespace halyard
