// The control with the tabs, of the kind that the platform's shell has on newer systems or on older ones. Other
// programs read it in place, so that it holds the only list of tabs there is.
#pragma once

#include <memory>
#include <windows.h>

#include <commctrl.h>

namespace standin {

class TaskControl {
public:
    virtual ~TaskControl();
    TaskControl(const TaskControl&) = delete;
    TaskControl& operator=(const TaskControl&) = delete;

    HWND Window() const { return window; }
    virtual int Count() const = 0;
    virtual HWND At(int index) const = 0;  // null beyond the end
    virtual HWND Marked() const = 0;
    virtual void Insert(HWND task) = 0;  // at the end
    virtual void Remove(int index) = 0;
    virtual void ReadTitle(int index) = 0;
    virtual void Mark(int index) = 0;  // that one only; none for -1
    virtual void SetButtonSize(int width, int height) = 0;
    int Find(HWND task) const;  // -1 where it isn't

protected:
    explicit TaskControl(HWND control);
    int AddIcon(HWND task);

    HWND window;
    HIMAGELIST images;
};

std::unique_ptr<TaskControl> MakeToolbar(HWND parent);
std::unique_ptr<TaskControl> MakeTabs(HWND parent);

}  // namespace standin
