// Whether the shell's taskbar answers. On the server's thread; others of the process may give tabs back while no server
// runs.
#pragma once

namespace halyard {

// Whether it let a question go unanswered a short while ago; it isn't asked again until that while is over.
bool IsShellSilent() noexcept;

// After each question: whether it was answered in time.
void NoteShellAnswer(bool answered) noexcept;

// Asks, and waits for the answer for a second at most. False while the shell is silent, or without one.
bool ShellAnswers() noexcept;

}  // namespace halyard
