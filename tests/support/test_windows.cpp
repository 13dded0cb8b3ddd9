#include "support/test_windows.h"

#include <atomic>
#include <thread>

namespace halyard::test {

namespace {

constexpr char NarrowClass[] = "HalyardTestWindow";
constexpr wchar_t WideClass[] = L"HalyardTestWideWindow";

std::optional<LRESULT> AskHandler(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const auto* owner = reinterpret_cast<const TestWindow*>(GetWindowLongPtrA(window, GWLP_USERDATA));
    return owner && owner->handler ? owner->handler(message, wParam, lParam) : std::nullopt;
}

LRESULT CALLBACK NarrowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const auto answer = AskHandler(window, message, wParam, lParam);
    return answer ? *answer : DefWindowProcA(window, message, wParam, lParam);
}

LRESULT CALLBACK WideProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const auto answer = AskHandler(window, message, wParam, lParam);
    return answer ? *answer : DefWindowProcW(window, message, wParam, lParam);
}

void RegisterNarrow(const char* name) {
    WNDCLASSA narrow = {};
    narrow.lpfnWndProc = NarrowProc;
    narrow.hInstance = GetModuleHandleA(nullptr);
    narrow.hCursor = LoadCursorA(nullptr, MAKEINTRESOURCEA(32512));
    narrow.lpszClassName = name;
    RegisterClassA(&narrow);
}

void RegisterOwnClasses() {
    RegisterNarrow(NarrowClass);
    WNDCLASSW wide = {};
    wide.lpfnWndProc = WideProc;
    wide.hInstance = GetModuleHandleA(nullptr);
    wide.lpszClassName = WideClass;
    RegisterClassW(&wide);
}

INT_PTR CALLBACK DialogProc(HWND, UINT, WPARAM, LPARAM) {
    return FALSE;
}

}  // namespace

bool PumpUntil(const std::function<bool()>& done, DWORD limit) {
    const DWORD start = GetTickCount();
    for (;;) {
        PumpAll();
        if (done()) return true;
        const DWORD spent = GetTickCount() - start;
        if (spent >= limit) return false;
        // Wakes for a message; the short limit is for what comes without one.
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 20, QS_ALLINPUT);
    }
}

void PumpAll() {
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
}

TestWindow::TestWindow(const WindowForm& form) {
    RegisterOwnClasses();
    const HINSTANCE module = GetModuleHandleA(nullptr);
    const int width = form.place.right - form.place.left;
    const int height = form.place.bottom - form.place.top;
    window = form.wide ? CreateWindowExW(form.exStyle, WideClass, L"", form.style, form.place.left, form.place.top,
                                         width, height, form.parent, nullptr, module, nullptr)
                       : CreateWindowExA(form.exStyle, form.className ? form.className : NarrowClass, "", form.style,
                                         form.place.left, form.place.top, width, height, form.parent, nullptr, module,
                                         nullptr);
    // Windows of the platform's classes keep their own data there.
    const auto procedure = GetWindowLongPtrA(window, GWLP_WNDPROC);
    if (form.wide || procedure == reinterpret_cast<LONG_PTR>(NarrowProc))
        SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

TestWindow::~TestWindow() {
    handler = nullptr;
    if (IsWindow(window)) DestroyWindow(window);
}

RECT TestWindow::Place() const {
    RECT place = {};
    GetWindowRect(window, &place);
    return place;
}

DWORD TestWindow::Style() const {
    return static_cast<DWORD>(GetWindowLongA(window, GWL_STYLE));
}

TestClass::TestClass(const char* className) : name(className) {
    RegisterNarrow(className);
}

TestClass::~TestClass() {
    UnregisterClassA(name.c_str(), GetModuleHandleA(nullptr));
}

HWND MakeDialog(DWORD style, HWND owner) {
    // Behind the header: no menu, the platform's class, no title.
    struct {
        alignas(4) DLGTEMPLATE header;
        WORD menuClassTitle[3];
    } form = {{style, 0, 0, 20, 20, 120, 80}, {0, 0, 0}};
    return CreateDialogIndirectParamA(GetModuleHandleA(nullptr), &form.header, owner, DialogProc, 0);
}

bool RunBeside(const std::function<void()>& body) {
    std::atomic<bool> ended = false;
    std::thread thread([&] {
        body();
        ended = true;
    });
    const bool inTime = PumpUntil([&] { return ended.load(); });
    // A thread that hangs takes the test along with it, rather than the frame that it works on.
    thread.join();
    return inTime;
}

}  // namespace halyard::test
