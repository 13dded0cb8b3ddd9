#include "programs/programs_window.h"

#include "common/list_view.h"
#include "common/window_text.h"
#include "process/profile.h"
#include "process/protocol.h"
#include "programs/program_keys.h"
#include "programs/resource_ids.h"
#include "programs/running_programs.h"
#include "programs/treatment.h"
#include "settings/store.h"

#include <algorithm>
#include <commctrl.h>

namespace halyard::programs {

namespace {

constexpr char Title[] = "Halyard: programs";

struct ListedProgram {
    DWORD process = 0;  // 0: it doesn't run, or Halyard isn't inside
    std::string name;
    std::string path;
    bool isExcluded = false;
};

std::vector<ListedProgram> listed;  // of the one window of this process
bool isFilling = false;

std::string NameIn(const std::string& path) {
    return path.substr(path.rfind('\\') + 1);
}

std::vector<ListedProgram> Collect() {
    std::vector<ListedProgram> programs;
    std::vector<std::string> excluded = ExcludedPrograms();
    const std::string own = ModulePath(nullptr).text;
    for (const RunningProgram& running : ProgramsInside()) {
        // The resident loader is no program of the user's.
        if (running.path == own) continue;
        const auto same = [&](const std::string& path) { return lstrcmpiA(path.c_str(), running.path.c_str()) == 0; };
        const auto found = std::find_if(excluded.begin(), excluded.end(), same);
        programs.push_back({running.process, running.name, running.path, found != excluded.end()});
        if (found != excluded.end()) excluded.erase(found);
    }
    for (const std::string& path : excluded)
        programs.push_back({0, NameIn(path), path, true});
    return programs;
}

const char* StateOf(const ListedProgram& program) noexcept {
    if (!program.process) return "kept out";
    return program.isExcluded ? "kept out; if it ran before, from its next start on" : "inside";
}

const char* YesOrNo(bool value) noexcept {
    return value ? "yes" : "no";
}

HWND ProgramList(HWND dialog) noexcept {
    return GetDlgItem(dialog, IDC_PROGRAM_LIST);
}

const ListedProgram* Selected(HWND dialog) noexcept {
    const int row = SelectedListRow(ProgramList(dialog));
    return row >= 0 && static_cast<std::size_t>(row) < listed.size() ? &listed[static_cast<std::size_t>(row)] : nullptr;
}

struct WindowSearch {
    HWND list;
    const ListedProgram* program;
    Treatment treatment;
};

// Those that the user sees, or would see on their desktop.
BOOL CALLBACK AddWindow(HWND window, LPARAM target) {
    const auto& search = *reinterpret_cast<const WindowSearch*>(target);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process != search.program->process || (!IsWindowVisible(window) && !GetPropA(window, HiddenMark))) return TRUE;
    const WindowTreatment treatment = TreatmentOf(window, search.treatment);
    const TextBuffer title = WindowTextOf(window);
    const int row = InsertListRow(search.list, ListRowCount(search.list), title.IsEmpty() ? "(no title)" : title.Text(),
                                  -1, reinterpret_cast<LPARAM>(window));
    SetListText(search.list, row, 1, treatment.kind.c_str());
    SetListText(search.list, row, 2, treatment.place.c_str());
    SetListText(search.list, row, 3, treatment.why.c_str());
    return TRUE;
}

void ShowSelected(HWND dialog) {
    const ListedProgram* program = Selected(dialog);
    HWND list = GetDlgItem(dialog, IDC_WINDOW_LIST);
    SendMessageA(list, LVM_DELETEALLITEMS, 0, 0);
    SetWindowTextOf(GetDlgItem(dialog, IDC_PROGRAM_PATH), program ? program->path.c_str() : "");
    SetDlgItemTextA(dialog, IDC_KEEP_OUT, program && program->isExcluded ? "&Let Halyard in" : "&Keep Halyard out");
    EnableWindow(GetDlgItem(dialog, IDC_KEEP_OUT), program && !program->path.empty());
    if (!program || !program->process) return;
    const WindowSearch search = {list, program, TreatmentOf(program->path)};
    EnumWindows(AddWindow, reinterpret_cast<LPARAM>(&search));
}

void AddRow(HWND list, const ListedProgram& program) {
    const Treatment treatment = TreatmentOf(program.path);
    const std::string name =
        program.process ? program.name + " (" + std::to_string(program.process) + ")" : program.name;
    const int row = InsertListRow(list, ListRowCount(list), name.c_str(), -1, 0);
    SetListText(list, row, 1, StateOf(program));
    SetListText(list, row, 2, program.process ? YesOrNo(treatment.remembers) : "");
    SetListText(list, row, 3, program.process ? YesOrNo(treatment.docks) : "");
}

// The row of the program whose window is uppermost.
BOOL CALLBACK FindUppermost(HWND window, LPARAM row) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    const auto same = [=](const ListedProgram& program) { return program.process == process; };
    const auto found = std::find_if(listed.begin(), listed.end(), same);
    if (!IsWindowVisible(window) || found == listed.end()) return TRUE;
    *reinterpret_cast<int*>(row) = static_cast<int>(found - listed.begin());
    return FALSE;
}

// The program that was chosen stays so; at first it is the one that the user worked with.
void Fill(HWND dialog) {
    HWND list = ProgramList(dialog);
    const ListedProgram* before = Selected(dialog);
    const std::string path = before ? before->path : "";
    isFilling = true;
    SendMessageA(list, LVM_DELETEALLITEMS, 0, 0);
    listed = Collect();
    int chosen = 0;
    if (path.empty()) EnumWindows(FindUppermost, reinterpret_cast<LPARAM>(&chosen));
    for (std::size_t index = 0; index < listed.size(); ++index) {
        AddRow(list, listed[index]);
        if (!path.empty() && listed[index].path == path) chosen = static_cast<int>(index);
    }
    isFilling = false;
    SelectListRow(list, chosen);
    ShowSelected(dialog);
}

struct Column {
    const char* title;
    int share;  // per cent of the list
};

void AddColumns(HWND list, const Column (&columns)[4]) noexcept {
    RECT client = {};
    GetClientRect(list, &client);
    const int width = static_cast<int>(client.right) - GetSystemMetrics(SM_CXVSCROLL);
    for (int index = 0; index < 4; ++index)
        InsertListColumn(list, index, columns[index].title, width * columns[index].share / 100);
    SendMessageA(list, LVM_SETEXTENDEDLISTVIEWSTYLE, LVS_EX_FULLROWSELECT, LVS_EX_FULLROWSELECT);
}

void ToggleExclusion(HWND dialog) {
    const ListedProgram* program = Selected(dialog);
    if (!program) return;
    if (!SetExcludedProgram(program->path, !program->isExcluded))
        MessageBoxA(dialog, "This can't be stored.", "Halyard", MB_ICONWARNING);
    Fill(dialog);
}

INT_PTR OnInit(HWND dialog) {
    AddColumns(ProgramList(dialog), {{"Program", 28}, {"Halyard", 36}, {"Window memory", 22}, {"Docking", 14}});
    AddColumns(GetDlgItem(dialog, IDC_WINDOW_LIST), {{"Window", 24}, {"Counts as", 17}, {"Opens", 22}, {"Why", 37}});
    Fill(dialog);
    SetFocus(ProgramList(dialog));
    return FALSE;
}

INT_PTR CALLBACK ProgramsProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_INITDIALOG: return OnInit(dialog);
    case WM_COMMAND:
        if (LOWORD(wParam) == IDC_KEEP_OUT) ToggleExclusion(dialog);
        if (LOWORD(wParam) == IDC_REFRESH) Fill(dialog);
        if (LOWORD(wParam) == IDCANCEL) EndDialog(dialog, 0);
        return TRUE;
    case WM_NOTIFY: {
        const auto& notice = *reinterpret_cast<const NMHDR*>(lParam);
        if (notice.idFrom == IDC_PROGRAM_LIST && notice.code == LVN_ITEMCHANGED && !isFilling) ShowSelected(dialog);
        return TRUE;
    }
    }
    return FALSE;
}

}  // namespace

bool ShowPrograms() {
    if (HWND open = FindWindowA("#32770", Title)) return SetForegroundWindow(open) != FALSE;
    ChooseHive();
    InitCommonControls();
    return DialogBoxParamA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(IDD_PROGRAMS), nullptr, ProgramsProc, 0) >= 0;
}

}  // namespace halyard::programs
