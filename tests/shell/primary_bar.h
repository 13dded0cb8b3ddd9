// The shell's own task bar: the windows by which other programs find its control with the tabs, what it does with shell
// events, and whom it tells of them.
#pragma once

#include "shell/task_control.h"

#include <map>
#include <string>

namespace standin {

class PrimaryBar {
public:
    // At the bottom of the first display. `older` chooses the kind of the control.
    explicit PrimaryBar(bool older);
    PrimaryBar(const PrimaryBar&) = delete;
    PrimaryBar& operator=(const PrimaryBar&) = delete;

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
    void Place(int display, UINT edge) const;
    void LookAtWindows();
    // To every window that has registered with this shell, and to the bar itself: its own list changes when its copy
    // comes out of the queue, unless somebody has taken it out before.
    void Say(WPARAM event, HWND task) const;
    void OnShellEvent(WPARAM event, HWND task);
    void Add(HWND task);
    void Remove(HWND task);

    const UINT shellHook;
    const HWND window, rebar, tasks;
    const TaskControl control;
    std::vector<Tab> tabs;
    HWND marked = nullptr;
    // As the last look found it: the windows with their titles, and the one in front.
    std::map<HWND, std::string> known;
    HWND active = nullptr;
};

}  // namespace standin
