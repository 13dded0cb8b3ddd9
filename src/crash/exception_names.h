// The names of the exceptions that the platform raises.
#pragma once

namespace halyard {

// Without a prefix, as "ACCESS_VIOLATION"; null for a code that has no entry.
const char* KnownExceptionName(unsigned code) noexcept;

}  // namespace halyard
