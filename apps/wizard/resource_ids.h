// Ids of the wizard's dialogs and controls.
#pragma once

#define IDD_FEATURES 201
#define IDD_DESKTOPS 202
#define IDD_START 203

#define IDC_FEATURE 1000       // then one for each feature
#define IDC_PICTURE 1020       // likewise
#define IDC_DESKTOP_NAME 1040  // then one for each desktop but the default one
#define IDC_DESKTOP_KEY 1050   // one for each, the default one first
#define IDC_WALK_KEYS 1060
#define IDC_USE_KEYS 1061
#define IDC_AUTOSTART 1070
#define IDC_SUMMARY 1071
