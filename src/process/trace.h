// A line of debug output for a step of note, in debug builds, where the value `Trace` of the user's product key is set.
#pragma once

namespace halyard {

#ifdef NDEBUG
template <typename... Arguments>
void Trace(const char*, const char*, Arguments...) noexcept {}
#else
// `function`: who writes. `format` and what follows as wsprintfA takes them, short. Any thread.
void Trace(const char* function, const char* format, ...) noexcept;
#endif

}  // namespace halyard
