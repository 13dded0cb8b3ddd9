// Whether this process runs with the rights of an administrator.
#pragma once

namespace halyard {

// False as well where the platform knows no such thing, and where advapi32.dll isn't mapped. Any thread.
bool IsUserAdministrator() noexcept;

}  // namespace halyard
