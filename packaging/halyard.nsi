; The installer. tools/package gives VERSION, FILES (the folder to install, see there) and OUTPUT.
;
; Installed is: halyard.exe, which starts the loader of the system's bitness, and a folder named by the version. A library
; that programs still have mapped can't be deleted: an upgrade leaves its folder to the next start of halyard.exe.
;
; Switches besides NSIS's own (/S silent, /D=FOLDER last): /AllUsers or /CurrentUser; uninstaller: /RemoveSettings.
; Exit status 3: a newer version is installed.

Unicode true
SetCompressor /SOLID lzma
!define MULTIUSER_EXECUTIONLEVEL Highest
!define MULTIUSER_MUI
!define MULTIUSER_INSTALLMODE_COMMANDLINE
!define MULTIUSER_INSTALLMODE_DEFAULT_CURRENTUSER
!define MULTIUSER_INSTALLMODE_INSTDIR "Halyard"
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Halyard"
!define RUN_KEY "Software\Microsoft\Windows\CurrentVersion\Run"
!define PRODUCT_KEY "Software\Tevral, Inc.\Halyard"
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_KEY "${UNINSTALL_KEY}"
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_VALUENAME "InstallLocation"
!include MultiUser.nsh
!include MUI2.nsh
!include LogicLib.nsh
!include FileFunc.nsh
!include WordFunc.nsh

Name "Halyard ${VERSION}"
OutFile "${OUTPUT}"
BrandingText " "
VIProductVersion "${VERSION}.0"
VIAddVersionKey ProductName "Halyard"
VIAddVersionKey CompanyName "Tevral, Inc."
VIAddVersionKey FileDescription "Halyard setup"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey ProductVersion "${VERSION}"
VIAddVersionKey LegalCopyright ""

!define MUI_ICON "${FILES}/halyard.ico"
!define MUI_UNICON "${FILES}/halyard.ico"
!define MUI_FINISHPAGE_RUN "$INSTDIR\halyard.exe"
!define MUI_FINISHPAGE_RUN_TEXT "Start Halyard"
!insertmacro MUI_PAGE_WELCOME
!insertmacro MULTIUSER_PAGE_INSTALLMODE
!insertmacro MUI_PAGE_COMPONENTS
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

; Ends a running Halyard, which gives all windows back, and waits until it is gone.
!macro EndHalyard
    ${If} ${FileExists} "$INSTDIR\halyard.exe"
        DetailPrint "Ending Halyard"
        ExecWait '"$INSTDIR\halyard.exe" --quit'
        StrCpy $1 0
        ${Do}
            ExecWait '"$INSTDIR\halyard.exe" --status' $0
            ${If} $0 <> 0
                ${ExitDo}
            ${EndIf}
            Sleep 200
            IntOp $1 $1 + 1
        ${LoopUntil} $1 > 50
    ${EndIf}
!macroend

; Makes way for a file. One that is in use can't be deleted, but it can be renamed; it goes when the system starts next.
!macro MakeWay FILE
    ClearErrors
    Delete "${FILE}"
    ${If} ${Errors}
        GetTempFileName $0 "$INSTDIR"
        Delete $0
        Rename "${FILE}" $0
        Delete /REBOOTOK $0
    ${EndIf}
!macroend

Function .onInit
    ; Set by /D alone, and overwritten by the next line.
    StrCpy $2 $INSTDIR
    !insertmacro MULTIUSER_INIT
    ${If} $2 != ""
        StrCpy $INSTDIR $2
    ${EndIf}
    ReadRegStr $0 SHCTX "${UNINSTALL_KEY}" "DisplayVersion"
    ${If} $0 != ""
        ${VersionCompare} $0 "${VERSION}" $1
        ${If} $1 = 1
            MessageBox MB_ICONSTOP "Halyard $0 is installed, which is newer than ${VERSION}. Remove it first if you want the older one." /SD IDOK
            SetErrorLevel 3
            Quit
        ${EndIf}
    ${EndIf}
FunctionEnd

Function un.onInit
    !insertmacro MULTIUSER_UNINIT
FunctionEnd

Section "Halyard"
    SectionIn RO
    !insertmacro EndHalyard
    SetOutPath "$INSTDIR\${VERSION}"
    !insertmacro MakeWay "$INSTDIR\${VERSION}\x86\tvlHalyd.dll"
    !insertmacro MakeWay "$INSTDIR\${VERSION}\x64\tvlHalyd.dll"
    File /r "${FILES}/${VERSION}/*"
    SetOutPath "$INSTDIR"
    File "${FILES}/halyard.exe"
    File "${FILES}/README.md"
    File "${FILES}/CHANGELOG.md"
    WriteUninstaller "$INSTDIR\uninstall.exe"
    CreateShortcut "$SMPROGRAMS\Halyard.lnk" "$INSTDIR\halyard.exe"
    ; An uninstall that hasn't come to its end must not take the new files.
    DeleteRegValue SHCTX "${RUN_KEY}Once" "HalyardRemoval"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayName" "Halyard"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "Publisher" "Tevral, Inc."
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\halyard.exe"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\uninstall.exe" /$MultiUser.InstallMode'
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /$MultiUser.InstallMode /S'
    WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "NoModify" 1
    ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
    WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "EstimatedSize" $0
SectionEnd

Section "Start with Windows"
    WriteRegStr SHCTX "${RUN_KEY}" "Halyard" '"$INSTDIR\halyard.exe"'
SectionEnd

Section "un.Halyard"
    !insertmacro EndHalyard
    DeleteRegValue SHCTX "${RUN_KEY}" "Halyard"
    DeleteRegKey SHCTX "${UNINSTALL_KEY}"
    Delete "$SMPROGRAMS\Halyard.lnk"
    Delete "$INSTDIR\README.md"
    Delete "$INSTDIR\CHANGELOG.md"
    Delete "$INSTDIR\halyard.exe"
    Delete "$INSTDIR\uninstall.exe"
    RMDir /r "$INSTDIR\${VERSION}"
    ; What an upgrade had to leave.
    FindFirst $0 $1 "$INSTDIR\*.*.*"
    ${DoWhile} $1 != ""
        ${If} ${FileExists} "$INSTDIR\$1\x86\tvlHalyd.dll"
        ${OrIf} ${FileExists} "$INSTDIR\$1\x64\tvlHalyd.dll"
            RMDir /r "$INSTDIR\$1"
        ${EndIf}
        FindNext $0 $1
    ${Loop}
    FindClose $0
    RMDir "$INSTDIR"
    ; What is still in use goes when the session starts next. A user without an administrator's rights has no other way.
    ${If} ${FileExists} "$INSTDIR\*.*"
        WriteRegStr SHCTX "${RUN_KEY}Once" "HalyardRemoval" 'cmd.exe /c rmdir /s /q "$INSTDIR"'
    ${EndIf}
    ${GetParameters} $0
    ClearErrors
    ${GetOptions} $0 "/RemoveSettings" $1
    ${IfNot} ${Errors}
        DeleteRegKey HKCU "${PRODUCT_KEY}"
    ${Else}
        MessageBox MB_YESNO|MB_DEFBUTTON2 "Remove your settings of Halyard as well?" /SD IDNO IDNO kept
        DeleteRegKey HKCU "${PRODUCT_KEY}"
        kept:
    ${EndIf}
SectionEnd
