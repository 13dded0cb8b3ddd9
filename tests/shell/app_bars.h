// The shell's side of the bars that other programs dock. The runtime's own shell keeps answering for their places; it
// knows no task bar, though, so the stand-in steps in between, and logs what it is asked: "bar ABM edge ABE at
// L,T,R,B".
#pragma once

#include <map>
#include <windows.h>

namespace standin {

class AppBars {
public:
    // `trayWindow` is the bar whose place is told to whoever asks for the task bar's.
    explicit AppBars(HWND trayWindow);
    AppBars(const AppBars&) = delete;
    AppBars& operator=(const AppBars&) = delete;
    ~AppBars();

    void SetEdge(UINT trayEdge) { edge = trayEdge; }
    // Posts an ABN_ notice to every bar that is docked.
    void Notify(UINT notice, LPARAM detail) const;

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT OnRequest(WPARAM sender, const COPYDATASTRUCT& data);
    bool AnswerPlace(HANDLE theirs, DWORD process) const;

    HWND tray;
    HWND window;
    UINT edge = 0;
    std::map<LONG, UINT> docked;  // window and the message it wants to be called by
};

}  // namespace standin
