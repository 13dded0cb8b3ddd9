// The shell's own task bar: the windows by which other programs find its control with the tabs, and what it does with
// shell events.
#pragma once

#include "shell/app_bars.h"
#include "shell/task_control.h"
#include "shell/window_watch.h"

namespace standin {

class PrimaryBar {
public:
    // `display` is counted from 1, `edge` an ABE_ value.
    PrimaryBar(int display, UINT edge, bool tabs);
    PrimaryBar(const PrimaryBar&) = delete;
    PrimaryBar& operator=(const PrimaryBar&) = delete;

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
    void Place(int display, UINT edge);
    void SizeButtons();
    void OnPaint();
    void OnTimer();
    // To everyone that listens, the bar itself included: its own list changes when its copy comes out of the queue,
    // unless somebody has taken it out before.
    void Say(const ShellEvent& event) const;
    void OnShellEvent(WPARAM code, HWND task);
    void Add(HWND task);
    void Remove(HWND task);
    void Mark(HWND task) { control->Mark(control->Find(task)); }

    UINT shellHook;
    HWND window;
    HWND rebar;
    HWND tasks;
    std::unique_ptr<TaskControl> control;
    AppBars bars;
    WindowWatch watch;
    bool vertical = false;
};

}  // namespace standin
