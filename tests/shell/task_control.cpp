#include "shell/task_control.h"

#include "shell/task_windows.h"

namespace standin {

namespace {

constexpr int IconSize = 16;
constexpr DWORD CommonStyle = WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | CCS_NORESIZE | CCS_NODIVIDER;

HWND MakeControl(const char* name, DWORD style, HWND parent) {
    const HWND control =
        CreateWindowA(name, "", CommonStyle | style, 0, 0, 0, 0, parent, nullptr, GetModuleHandleA(nullptr), nullptr);
    SendMessageA(control, WM_SETFONT, reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT)), FALSE);
    return control;
}

// Whoever reads the toolbar from outside relies on nothing but the first word.
struct TaskRecord {
    DWORD window;
};

class Toolbar final : public TaskControl {
public:
    explicit Toolbar(HWND parent)
        : TaskControl(MakeControl(TOOLBARCLASSNAMEA, CCS_NOPARENTALIGN | TBSTYLE_LIST | TBSTYLE_WRAPABLE, parent)) {
        SendMessageA(window, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
        SendMessageA(window, TB_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(images));
    }
    int Count() const override { return static_cast<int>(SendMessageA(window, TB_BUTTONCOUNT, 0, 0)); }
    HWND At(int index) const override {
        const TaskRecord* record = Record(index);
        return record ? static_cast<HWND>(LongToHandle(static_cast<LONG>(record->window))) : nullptr;
    }
    HWND Marked() const override {
        for (int index = 0; index < Count(); ++index)
            if (Button(index).fsState & TBSTATE_CHECKED) return At(index);
        return nullptr;
    }
    void Insert(HWND task) override {
        const std::string title = TitleOf(task);
        TBBUTTON button = {};
        button.iBitmap = AddIcon(task);
        button.idCommand = nextId++;
        button.fsState = TBSTATE_ENABLED;
        button.fsStyle = BTNS_BUTTON | BTNS_NOPREFIX;
        button.dwData = reinterpret_cast<DWORD_PTR>(new TaskRecord{static_cast<DWORD>(HandleToULong(task))});
        button.iString = reinterpret_cast<INT_PTR>(title.c_str());
        SendMessageA(window, TB_INSERTBUTTONA, Count(), reinterpret_cast<LPARAM>(&button));
    }
    void Remove(int index) override {
        const std::unique_ptr<TaskRecord> record(Record(index));
        SendMessageA(window, TB_DELETEBUTTON, index, 0);
    }
    void ReadTitle(int index) override {
        std::string title = TitleOf(At(index));
        TBBUTTONINFOA info = {};
        info.cbSize = sizeof(info);
        info.dwMask = TBIF_BYINDEX | TBIF_TEXT;
        info.pszText = title.data();
        SendMessageA(window, TB_SETBUTTONINFOA, index, reinterpret_cast<LPARAM>(&info));
    }
    void Mark(int marked) override {
        for (int index = 0; index < Count(); ++index)
            SendMessageA(window, TB_CHECKBUTTON, Button(index).idCommand, index == marked);
    }
    void SetButtonSize(int width, int height) override {
        SendMessageA(window, TB_SETBUTTONSIZE, 0, MAKELPARAM(width, height));
        InvalidateRect(window, nullptr, TRUE);
    }

private:
    TBBUTTON Button(int index) const {
        TBBUTTON button = {};
        SendMessageA(window, TB_GETBUTTON, index, reinterpret_cast<LPARAM>(&button));
        return button;
    }
    TaskRecord* Record(int index) const { return reinterpret_cast<TaskRecord*>(Button(index).dwData); }

    int nextId = 1;
};

class Tabs final : public TaskControl {
public:
    explicit Tabs(HWND parent)
        : TaskControl(MakeControl(WC_TABCONTROLA,
                                  TCS_BUTTONS | TCS_FIXEDWIDTH | TCS_FORCELABELLEFT | TCS_FOCUSNEVER | TCS_MULTILINE,
                                  parent)) {
        SendMessageA(window, TCM_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(images));
    }
    int Count() const override { return static_cast<int>(SendMessageA(window, TCM_GETITEMCOUNT, 0, 0)); }
    HWND At(int index) const override {
        TCITEMA item = {};
        item.mask = TCIF_PARAM;
        SendMessageA(window, TCM_GETITEMA, index, reinterpret_cast<LPARAM>(&item));
        return reinterpret_cast<HWND>(item.lParam);
    }
    HWND Marked() const override { return At(static_cast<int>(SendMessageA(window, TCM_GETCURSEL, 0, 0))); }
    void Insert(HWND task) override {
        std::string title = TitleOf(task);
        TCITEMA item = {};
        item.mask = TCIF_PARAM | TCIF_TEXT | TCIF_IMAGE;
        item.pszText = title.data();
        item.iImage = AddIcon(task);
        item.lParam = reinterpret_cast<LPARAM>(task);
        // The control marks its first tab by itself.
        const int marked = static_cast<int>(SendMessageA(window, TCM_GETCURSEL, 0, 0));
        SendMessageA(window, TCM_INSERTITEMA, Count(), reinterpret_cast<LPARAM>(&item));
        Mark(marked);
    }
    void Remove(int index) override { SendMessageA(window, TCM_DELETEITEM, index, 0); }
    void ReadTitle(int index) override {
        std::string title = TitleOf(At(index));
        TCITEMA item = {};
        item.mask = TCIF_TEXT;
        item.pszText = title.data();
        SendMessageA(window, TCM_SETITEMA, index, reinterpret_cast<LPARAM>(&item));
    }
    void Mark(int index) override { SendMessageA(window, TCM_SETCURSEL, index, 0); }
    void SetButtonSize(int width, int height) override {
        SendMessageA(window, TCM_SETITEMSIZE, 0, MAKELPARAM(width, height));
    }
};

}  // namespace

TaskControl::TaskControl(HWND control)
    : window(control), images(ImageList_Create(IconSize, IconSize, ILC_COLOR32 | ILC_MASK, 8, 8)) {}

TaskControl::~TaskControl() {
    ImageList_Destroy(images);
}

int TaskControl::Find(HWND task) const {
    for (int index = 0; index < Count(); ++index)
        if (At(index) == task) return index;
    return -1;
}

int TaskControl::AddIcon(HWND task) {
    return ImageList_ReplaceIcon(images, -1, IconOf(task, ICON_SMALL));
}

std::unique_ptr<TaskControl> MakeToolbar(HWND parent) {
    return std::make_unique<Toolbar>(parent);
}

std::unique_ptr<TaskControl> MakeTabs(HWND parent) {
    return std::make_unique<Tabs>(parent);
}

}  // namespace standin
