// The shell's object by which programs take windows off its task bar.
#include "shell/com_classes.h"
#include "shell/registrations.h"
#include "shell/tray_protocol.h"

#include <shobjidl.h>

namespace standin {

namespace {

constexpr GUID TaskListInterface = {0x56FDF342, 0xFD6D, 0x11D0, {0x95, 0x8A, 0x00, 0x60, 0x97, 0xC9, 0xA0, 0x90}};
constexpr UINT TrayPatience = 2000;  // ms

class TaskList final : public ComObject<ITaskbarList, TaskListInterface> {
public:
    STDMETHODIMP HrInit() override {
        KeepRegistrations();
        return S_OK;
    }
    STDMETHODIMP AddTab(HWND window) override { return Tell(standin::AddTab, window); }
    STDMETHODIMP DeleteTab(HWND window) override { return Tell(standin::DeleteTab, window); }
    STDMETHODIMP ActivateTab(HWND) override { return E_NOTIMPL; }
    STDMETHODIMP SetActiveAlt(HWND) override { return E_NOTIMPL; }

private:
    static HRESULT Tell(UINT message, HWND window) {
        DWORD_PTR answer = 0;
        SendMessageTimeoutA(FindWindowA(TrayClass, nullptr), message, reinterpret_cast<WPARAM>(window), 0, SMTO_NORMAL,
                            TrayPatience, &answer);
        return S_OK;
    }
};

}  // namespace

IUnknown* MakeTaskList() {
    return new TaskList;
}

}  // namespace standin
