#include "shell/task_list.h"

#include "shell/com_object.h"
#include "shell/record.h"
#include "shell/task_windows.h"
#include "shell/tray_protocol.h"

#include <new>

#include <shobjidl.h>

namespace standin {

namespace {

constexpr GUID TaskListInterface = {0x56FDF342, 0xFD6D, 0x11D0, {0x95, 0x8A, 0x00, 0x60, 0x97, 0xC9, 0xA0, 0x90}};
constexpr UINT TrayPatience = 2000;  // ms

class TaskList final : public ComObject<ITaskbarList, TaskListInterface> {
public:
    STDMETHODIMP HrInit() override {
        Log("HrInit");
        return S_OK;
    }
    STDMETHODIMP AddTab(HWND window) override { return Tell("AddTab", standin::AddTab, window); }
    STDMETHODIMP DeleteTab(HWND window) override { return Tell("DeleteTab", standin::DeleteTab, window); }
    STDMETHODIMP ActivateTab(HWND window) override { return Tell("ActivateTab", MarkTab, window); }
    STDMETHODIMP SetActiveAlt(HWND window) override { return Tell("SetActiveAlt", MarkTab, window); }

private:
    static HRESULT Tell(const char* call, UINT message, HWND window) {
        Log(std::string(call) + " " + TitleOf(window));
        DWORD_PTR answer = 0;
        SendMessageTimeoutA(FindWindowA(TrayClass, nullptr), message, reinterpret_cast<WPARAM>(window), 0, SMTO_NORMAL,
                            TrayPatience, &answer);
        return S_OK;
    }
};

}  // namespace

IUnknown* MakeTaskList() {
    return new (std::nothrow) TaskList;
}

}  // namespace standin
