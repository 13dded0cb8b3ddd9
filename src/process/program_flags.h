// Which of the programs that need treatment of their own this process is.
#pragma once

namespace halyard {

// The only place where behaviour hangs on a program. A flag is set when its text stands anywhere in the lower-cased
// full path of the process's main module, folders included.
struct ProgramFlags {
    bool xsi = false;       // "Window Memory" of the menu extension is grey
    bool qlplay = false;    // the extension is reached through the program's own menu bar
    bool winproj = false;   // a placed dialog is invalidated
    bool acad = false;      // spanning windows go without WS_MAXIMIZE
    bool corelpp = false;   // dialogs are placed at their first WM_NCPAINT
    bool modeler = false;   // "PopupMenu" windows stay inside "WMgrBasic"; application patches
    bool maya = false;      // application patches
    bool explorer = false;  // this is the shell
};

// `loweredPath`: zero-closed, in lower case.
ProgramFlags FlagsOfProgram(const char* loweredPath) noexcept;

// Lowers the ASCII letters of a zero-closed text in place; other bytes, lead and trail bytes of the code page among
// them, stay.
void LowerAscii(char* text) noexcept;

}  // namespace halyard
