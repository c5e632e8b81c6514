# The setup program: puts Keystride in place for all users of the machine, brings it up to date, and removes it.
# installer/make-packages runs makensis and defines VERSION, UPGRADE_CODE, OUTPUT, ICON, HELPER, STAGED_FILES and SIGN.
Unicode true
Target amd64-unicode
!include LogicLib.nsh
!include WordFunc.nsh
!insertmacro VersionCompare

!define VENDOR "Brightfield"
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Keystride"
!define MENU_FOLDER "$SMPROGRAMS\Keystride"

# Exit codes, told in docs/install.md. NSIS's own: 0 done, 1 cancelled by the user, 2 ended by an error of its own.
!define EXIT_RUNNING 3
!define EXIT_NEWER 4
!define EXIT_OTHER_INSTALLER 5
!define EXIT_NOT_POSSIBLE 6
!define EXIT_FILE 7

Name "Keystride ${VERSION}"
OutFile "${OUTPUT}"
InstallDir "$PROGRAMFILES64\${VENDOR}\Keystride"
InstallDirRegKey HKLM "${UNINSTALL_KEY}" "InstallLocation"
RequestExecutionLevel admin
SetCompressor /SOLID lzma
XPStyle on
ManifestDPIAware true
AllowSkipFiles off
# The last page closes by itself: a message box, which every screen reader reads out, says what came of it.
AutoCloseWindow true
Icon "${ICON}"
UninstallIcon "${ICON}"
BrandingText "Keystride ${VERSION}"
Caption "Keystride ${VERSION} Setup"
UninstallCaption "Keystride Uninstall"
DirText "Setup puts Keystride ${VERSION} into the folder below. To choose another folder, type it or press Browse. Press Install to start."
UninstallText "Keystride will be removed from this machine. Settings, files that were edited or added, and every user's lessons and records stay."

VIProductVersion "${VERSION}.0"
VIAddVersionKey "CompanyName" "${VENDOR}"
VIAddVersionKey "FileDescription" "Keystride Setup"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "LegalCopyright" ""
VIAddVersionKey "OriginalFilename" "Keystride-${VERSION}-setup.exe"
VIAddVersionKey "ProductName" "Keystride"
VIAddVersionKey "ProductVersion" "${VERSION}"

Page directory
Page instfiles
UninstPage uninstConfirm
UninstPage instfiles

!ifdef SIGN
    !uninstfinalize `${SIGN} "%1" >/dev/null` = 0
!endif

Var Data    # the data folder of all users

# Leaves with a sentence and an exit code.
!macro Refuse text code
    MessageBox MB_OK|MB_ICONSTOP "${text}" /SD IDOK
    SetErrorLevel ${code}
    Quit
!macroend

!macro SharedFunctions un
Function ${un}Prepare
    SetRegView 64
    SetShellVarContext all
    StrCpy $Data "$APPDATA\${VENDOR}\Keystride"
    InitPluginsDir
    File "/oname=$PLUGINSDIR\setup_helper.dll" "${HELPER}"
    UserInfo::GetAccountType
    Pop $0
    ${If} $0 != "Admin"
        !insertmacro Refuse "Only an administrator can set up or remove Keystride. Nothing has been changed." ${EXIT_NOT_POSSIBLE}
    ${EndIf}
FunctionEnd

# Waits while Keystride runs; a silent run leaves at once.
Function ${un}WaitForEnd
    ${Do}
        System::Call '$PLUGINSDIR\setup_helper.dll::KeystrideIsRunning() i .r0 ? u'
        ${If} $0 == 0
            Return
        ${EndIf}
        System::Call '$PLUGINSDIR\setup_helper.dll::RefusalText(w .r1) ? u'
        ${If} ${Cmd} `MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$1" /SD IDCANCEL IDCANCEL`
            SetErrorLevel ${EXIT_RUNNING}
            Quit
        ${EndIf}
    ${Loop}
FunctionEnd
!macroend
!insertmacro SharedFunctions ""
!insertmacro SharedFunctions "un."

Function .onInit
    Call Prepare
    System::Call '$PLUGINSDIR\setup_helper.dll::OldWindowsText(w .r1) ? u'
    ${If} $1 != ""
        !insertmacro Refuse "$1" ${EXIT_NOT_POSSIBLE}
    ${EndIf}
    System::Call 'msi::MsiEnumRelatedProductsW(w "{${UPGRADE_CODE}}", i 0, i 0, w .r1) i .r0'
    ${If} $0 == 0
        !insertmacro Refuse "Keystride was installed on this machine from its MSI package. Use the new MSI package, or remove Keystride first. Nothing has been changed." ${EXIT_OTHER_INSTALLER}
    ${EndIf}
    ReadRegStr $0 HKLM "${UNINSTALL_KEY}" "DisplayVersion"
    ${If} $0 != ""
        ${VersionCompare} "$0" "${VERSION}" $1
        ${If} $1 == 1
            !insertmacro Refuse "Keystride $0 is installed, which is newer than ${VERSION}. To go back to ${VERSION}, remove Keystride first. Nothing has been changed." ${EXIT_NEWER}
        ${EndIf}
    ${EndIf}
    Call WaitForEnd
FunctionEnd

# Goes on when $0 is no error number, else leaves with the sentence in $1.
Function StopOnTrouble
    ${If} $0 != 0
        DetailPrint "$1"
        MessageBox MB_OK|MB_ICONSTOP "$1 Keystride is not set up completely. When the cause is gone, run Setup again." /SD IDOK
        SetErrorLevel ${EXIT_FILE}
        Abort
    ${EndIf}
FunctionEnd

Section "Keystride"
    !include "${STAGED_FILES}"
    ReadRegStr $2 HKLM "${UNINSTALL_KEY}" "InstallLocation"

    # Before the first file comes in: each takes its rights from the folder.
    SetOutPath "$Data"
    System::Call '$PLUGINSDIR\setup_helper.dll::ProtectFolder(w "$Data") i .r0 ? u'
    StrCpy $1 "The rights of $Data could not be set (error $0)."
    Call StopOnTrouble

    SetOutPath "$INSTDIR"
    System::Call '$PLUGINSDIR\setup_helper.dll::PutFiles(w "$PLUGINSDIR\files", w r2, w "$INSTDIR", w "$Data", w .r1) i .r0 ? u'
    Call StopOnTrouble
    StrCpy $3 $1
    ClearErrors
    WriteUninstaller "$INSTDIR\Uninstall.exe"
    ${If} ${Errors}
        StrCpy $0 1
        StrCpy $1 "$INSTDIR\Uninstall.exe could not be written."
        Call StopOnTrouble
    ${EndIf}

    ClearErrors
    CreateDirectory "${MENU_FOLDER}"
    CreateShortcut "${MENU_FOLDER}\Keystride.lnk" "$INSTDIR\keystride.exe" "" "" "" SW_SHOWNORMAL "" "Typing tutor"
    CreateShortcut "${MENU_FOLDER}\Keystride Guide.lnk" "$INSTDIR\guide\index.html" "" "" "" SW_SHOWNORMAL "" "How to use Keystride"

    WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayName" "Keystride"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "Publisher" "${VENDOR}"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\keystride.exe"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\Uninstall.exe"'
    WriteRegStr HKLM "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\Uninstall.exe" /S'
    WriteRegDWORD HKLM "${UNINSTALL_KEY}" "EstimatedSize" ${SIZE_KB}
    WriteRegDWORD HKLM "${UNINSTALL_KEY}" "NoModify" 1
    WriteRegDWORD HKLM "${UNINSTALL_KEY}" "NoRepair" 1
    ${If} ${Errors}
        StrCpy $0 1
        StrCpy $1 "The entries in the Start menu and in the list of programs could not be written."
        Call StopOnTrouble
    ${EndIf}

    ${If} $3 != ""
        StrCpy $3 "$\r$\nThese files had been edited and are kept beside the new ones: $3."
    ${EndIf}
    MessageBox MB_OK|MB_ICONINFORMATION "Keystride ${VERSION} is ready. You find it and its guide in the Start menu under Keystride.$3" /SD IDOK
SectionEnd

Function un.onInit
    Call un.Prepare
    Call un.WaitForEnd
FunctionEnd

Section "Uninstall"
    # Windows does not remove a folder that somebody stands in.
    SetOutPath "$TEMP"
    System::Call '$PLUGINSDIR\setup_helper.dll::RemoveFiles(w "$INSTDIR", w "$Data", w .r1) i .r0 ? u'
    DetailPrint "$1"
    ${If} $0 != 0
        MessageBox MB_OK|MB_ICONSTOP "$1 Keystride is not removed completely. When the cause is gone, remove it again." /SD IDOK
        SetErrorLevel ${EXIT_FILE}
        Abort
    ${EndIf}
    Delete "${MENU_FOLDER}\Keystride.lnk"
    Delete "${MENU_FOLDER}\Keystride Guide.lnk"
    RMDir "${MENU_FOLDER}"
    DeleteRegKey HKLM "${UNINSTALL_KEY}"
    MessageBox MB_OK|MB_ICONINFORMATION "$1" /SD IDOK
SectionEnd
