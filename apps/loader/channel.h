// How a second start of the loader reaches the first.
#pragma once

#include "loader/command.h"

#include <string>
#include <windows.h>

namespace halyard::loader {

inline constexpr char ResidentClass[] = "TevralHalyardLoaderWndClass";
inline constexpr char InstanceMutex[] = "TevralHalyardLoaderInstance";

// Identifies our WM_COPYDATA among all that a program may be sent.
inline constexpr ULONG_PTR RequestTag = 0x484C5952;
inline constexpr ULONG_PTR ReplyTag = 0x484C5953;

struct Request {
    DWORD replyWindow;  // takes the answer, a WM_COPYDATA with `ReplyTag`: 1 byte, not 0 for a failure, then the text
    DWORD count;
    Command commands[MaxCommands];
};

// What commands have brought about.
struct Answer {
    std::string text;
    bool failed = false;  // one of them at least
};

// Hands the commands over and fills `answer`. False when the resident doesn't answer in 20 s.
bool SendCommands(HWND resident, const CommandLine& line, Answer& answer);

// Reads a request; false for anything that isn't one.
bool ReadRequest(const COPYDATASTRUCT& data, Request& request) noexcept;

// Sends the text back; a client that has gone, or hangs, is left alone after 2 s.
void SendReply(const Request& request, const Answer& answer);

}  // namespace halyard::loader
