// The first-run wizard, a program of its own beside the library.
#pragma once

namespace halyard {

// Starts it if this user may change settings and it hasn't been started yet; doesn't wait for it. One that can't be
// started is tried again at the next start of the server.
void StartWizardIfDue() noexcept;

}  // namespace halyard
