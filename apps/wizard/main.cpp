// The first-run wizard: three pages, after which the system is on. Cancelled, it changes nothing. The server starts it
// with the switch /halyard, the user without one; both are the same.
#include "autostart/autostart.h"
#include "common/window_text.h"
#include "wizard/choices.h"
#include "wizard/pictures.h"
#include "wizard/resource_ids.h"

#include <commctrl.h>
#include <prsht.h>

namespace halyard::wizard {

namespace {

Choices choices;  // of the one wizard that this process shows

std::string TextOf(HWND page, int control) {
    return WindowTextOf(GetDlgItem(page, control)).Text();
}

void Check(HWND page, int control, bool on) {
    CheckDlgButton(page, control, on ? BST_CHECKED : BST_UNCHECKED);
}

bool IsChecked(HWND page, int control) {
    return IsDlgButtonChecked(page, control) == BST_CHECKED;
}

void Answer(HWND page, LONG_PTR answer) {
    SetWindowLongPtrA(page, DWLP_MSGRESULT, answer);
}

void ShowButtons(HWND page, DWORD buttons) {
    PostMessageA(GetParent(page), PSM_SETWIZBUTTONS, 0, static_cast<LPARAM>(buttons));
}

void ReadFeatures(HWND page) {
    for (int feature = 0; feature < FeatureCount; ++feature)
        choices.features[feature] = IsChecked(page, IDC_FEATURE + feature);
}

INT_PTR CALLBACK FeaturesProc(HWND page, UINT message, WPARAM, LPARAM lParam) {
    switch (message) {
    case WM_INITDIALOG:
        choices = ReadChoices(page);
        for (int feature = 0; feature < FeatureCount; ++feature)
            Check(page, IDC_FEATURE + feature, choices.features[feature]);
        return TRUE;
    case WM_DRAWITEM: {
        const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
        DrawFeature(item.hDC, item.rcItem, static_cast<Feature>(item.CtlID - IDC_PICTURE));
        return TRUE;
    }
    case WM_NOTIFY:
        switch (reinterpret_cast<const NMHDR*>(lParam)->code) {
        case PSN_SETACTIVE: ShowButtons(page, PSWIZB_NEXT); break;
        case PSN_WIZNEXT: ReadFeatures(page); break;
        }
    }
    return FALSE;
}

void ShowDesktops(HWND page) {
    for (unsigned desktop = 0; desktop < DesktopCount; ++desktop) {
        const int index = static_cast<int>(desktop);
        SetWindowTextOf(GetDlgItem(page, IDC_DESKTOP_KEY + index), KeyText(choices.desktopKeys[desktop]).c_str());
        if (desktop > 0)
            SetWindowTextOf(GetDlgItem(page, IDC_DESKTOP_NAME + index - 1), choices.names[desktop].c_str());
    }
    const std::string walk =
        "The next desktop: " + KeyText(choices.nextKey) + "\r\nThe previous one: " + KeyText(choices.previousKey);
    SetWindowTextOf(GetDlgItem(page, IDC_WALK_KEYS), walk.c_str());
    Check(page, IDC_USE_KEYS, choices.usesKeys);
}

void ReadDesktops(HWND page) {
    for (unsigned desktop = 1; desktop < DesktopCount; ++desktop)
        choices.names[desktop] = TextOf(page, IDC_DESKTOP_NAME + static_cast<int>(desktop) - 1);
    choices.usesKeys = IsChecked(page, IDC_USE_KEYS);
}

INT_PTR CALLBACK DesktopsProc(HWND page, UINT message, WPARAM, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        ShowDesktops(page);
        return TRUE;
    }
    if (message != WM_NOTIFY) return FALSE;
    switch (reinterpret_cast<const NMHDR*>(lParam)->code) {
    case PSN_SETACTIVE:
        ShowButtons(page, PSWIZB_BACK | PSWIZB_NEXT);
        // Without desktops there is nothing to choose here.
        if (!choices.features[Desktops]) Answer(page, -1);
        return TRUE;
    case PSN_WIZBACK:
    case PSN_WIZNEXT: ReadDesktops(page); break;
    }
    return FALSE;
}

void ShowSummary(HWND page) {
    std::string text = "Click Finish to turn Halyard on.";
    if (choices.features[Desktops] && choices.usesKeys)
        text += "\r\n\r\n" + KeyText(choices.nextKey) + " takes you to the next desktop, " +
                KeyText(choices.desktopKeys[0]) + " back to the first.";
    text += "\r\n\r\nHalyard's icon beside the clock shows the desktops, opens the settings and ends Halyard.";
    SetWindowTextOf(GetDlgItem(page, IDC_SUMMARY), text.c_str());
}

INT_PTR CALLBACK StartProc(HWND page, UINT message, WPARAM, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        Check(page, IDC_AUTOSTART, true);
        return TRUE;
    }
    if (message != WM_NOTIFY) return FALSE;
    switch (reinterpret_cast<const NMHDR*>(lParam)->code) {
    case PSN_SETACTIVE:
        ShowButtons(page, PSWIZB_BACK | PSWIZB_FINISH);
        ShowSummary(page);
        break;
    case PSN_WIZFINISH:
        choices.autostart = IsChecked(page, IDC_AUTOSTART);
        WriteChoices(choices);
        StartSystem();
        break;
    }
    return FALSE;
}

struct Page {
    int dialog;
    DLGPROC procedure;
    const char* title;
    const char* subtitle;
};

constexpr Page Pages[] = {
    {IDD_FEATURES, FeaturesProc, "What Halyard does for you", "Choose what to turn on."},
    {IDD_DESKTOPS, DesktopsProc, "Desktops", "Name your desktops. The hotkeys are free on this machine."},
    {IDD_START, StartProc, "Ready", "That is all."},
};

int CALLBACK OnWizard(HWND window, UINT message, LPARAM) {
    if (message != PSCB_INITIALIZED) return 0;
    RECT area = {}, place = {};
    SystemParametersInfoA(SPI_GETWORKAREA, 0, &area, 0);
    GetWindowRect(window, &place);
    SetWindowPos(window, nullptr, (area.left + area.right - place.right + place.left) / 2,
                 (area.top + area.bottom - place.bottom + place.top) / 2, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    return 0;
}

int Show() {
    PROPSHEETPAGEA pages[std::size(Pages)] = {};
    for (std::size_t index = 0; index < std::size(Pages); ++index) {
        pages[index].dwSize = sizeof(pages[index]);
        pages[index].dwFlags = PSP_USEHEADERTITLE | PSP_USEHEADERSUBTITLE;
        pages[index].hInstance = GetModuleHandleA(nullptr);
        pages[index].pszTemplate = MAKEINTRESOURCEA(Pages[index].dialog);
        pages[index].pfnDlgProc = Pages[index].procedure;
        pages[index].pszHeaderTitle = Pages[index].title;
        pages[index].pszHeaderSubTitle = Pages[index].subtitle;
    }
    PROPSHEETHEADERA header = {};
    header.dwSize = sizeof(header);
    header.dwFlags = PSH_PROPSHEETPAGE | PSH_WIZARD97 | PSH_HEADER | PSH_USEICONID | PSH_USECALLBACK;
    header.pfnCallback = OnWizard;
    header.hInstance = GetModuleHandleA(nullptr);
    header.pszIcon = MAKEINTRESOURCEA(1);
    header.pszCaption = "Halyard";
    header.nPages = static_cast<UINT>(std::size(Pages));
    header.ppsp = pages;
    return PropertySheetA(&header) < 0 ? 1 : 0;
}

}  // namespace

}  // namespace halyard::wizard

int WINAPI WinMain(HINSTANCE, HINSTANCE, char*, int) {
    InitCommonControls();
    if (!halyard::wizard::MayChoose()) {
        MessageBoxA(nullptr, "The settings of this machine are its administrator's to change.", "Halyard",
                    MB_ICONINFORMATION);
        return 1;
    }
    return halyard::wizard::Show();
}
