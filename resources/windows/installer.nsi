; The Windows installer. tools/installer.sh passes the words in ${} that are not defined here, and FILES, a list of the
; files to install.
;
; Options: /S silently, /AllUsers or /CurrentUser, /Associate, /Path, /Chosen (nothing is asked, and no choice is kept from
; before), and /D=FOLDER, which must come last.
; Exit codes: 0 done, 1 cancelled, 2 failed, 3 the editor runs, 4 administrator's rights are needed, 5 Windows is too old.
Target amd64-unicode
SetCompressor /SOLID zlib
!include MUI2.nsh
!include LogicLib.nsh
!include FileFunc.nsh
!include StrFunc.nsh
!include WinVer.nsh
!include WinMessages.nsh
${Using:StrFunc} StrStr

!define PROGRAM "trevandix-editor.exe"
!define UNINSTALL "Software\Microsoft\Windows\CurrentVersion\Uninstall\TrevandixConfigurationEditor"
!define APPLICATION "Software\Classes\Applications\${PROGRAM}"
!define PROGID "VOSKAutomation.TrevandixConfiguration"
!define MENU "$SMPROGRAMS\${PRODUCT}"

Name "${PRODUCT}"
OutFile "${OUT}"
BrandingText "${COMPANY}"
RequestExecutionLevel user
ManifestDPIAware true
ManifestSupportedOS all
ShowInstDetails nevershow
ShowUninstDetails nevershow
VIProductVersion "${NUMBERS}"
VIAddVersionKey ProductName "${PRODUCT}"
VIAddVersionKey CompanyName "${COMPANY}"
VIAddVersionKey FileDescription "${PRODUCT}, installer"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey ProductVersion "${VERSION}"
VIAddVersionKey LegalCopyright "${COMPANY}"

Var everybody   ; 1: for all users
Var associate   ; 1: XML files are opened with the editor
Var path        ; 1: PATH has the folder, or shall have it
Var before      ; the folder of the version installed before
Var givenFolder ; that of /D
Var chosen      ; 1: the options say all, and nothing is asked or kept
Var hive        ; where the key of PATH is
Var environment ; the key of PATH

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_WELCOMEFINISHPAGE_BITMAP "${PICTURE}"
!define MUI_ABORTWARNING
!define MUI_FINISHPAGE_RUN
!define MUI_FINISHPAGE_RUN_TEXT "Start the editor"
!define MUI_FINISHPAGE_RUN_FUNCTION startEditor
Page custom showOptions leaveOptions
!define MUI_PAGE_CUSTOMFUNCTION_LEAVE leaveFolder
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE English

; ---------------------------------------------------------------- both programs

!macro fail CODE TEXT
  MessageBox MB_OK|MB_ICONSTOP "${TEXT}" /SD IDOK
  SetErrorLevel ${CODE}
  Quit
!macroend

; Windows lets nobody write to a program that runs.
!macro refuseWhileRunning FOLDER NAME
  ${Do}
    ${IfNot} ${FileExists} "${FOLDER}\${NAME}"
      ${Break}
    ${EndIf}
    ClearErrors
    FileOpen $0 "${FOLDER}\${NAME}" a
    ${IfNot} ${Errors}
      FileClose $0
      ${Break}
    ${EndIf}
    ${If} ${Cmd} 'MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "The program ${NAME} is running. Close it, then press Retry." /SD IDCANCEL IDCANCEL'
      SetErrorLevel 3
      Quit
    ${EndIf}
  ${Loop}
!macroend

; A sample that was changed since is somebody's configuration, and stays.
!macro removeUnchanged NAME SOURCE
  GetFileTime "$INSTDIR\${NAME}" $0 $1
  GetFileTimeLocal "${SOURCE}" $2 $3
  ${If} "$0 $1" == "$2 $3"
    Delete "$INSTDIR\${NAME}"
  ${EndIf}
!macroend
!include "${FILES}"

!macro functions UN
Function ${UN}useScope
  SetRegView 64
  ${If} $everybody = 1
    SetShellVarContext all
    StrCpy $hive -2147483646 ; HKEY_LOCAL_MACHINE
    StrCpy $environment "SYSTEM\CurrentControlSet\Control\Session Manager\Environment"
  ${Else}
    SetShellVarContext current
    StrCpy $hive -2147483647 ; HKEY_CURRENT_USER
    StrCpy $environment "Environment"
  ${EndIf}
  ReadRegStr $before SHCTX "${UNINSTALL}" InstallLocation
FunctionEnd

Function ${UN}tellOfAssociation
  System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'
FunctionEnd
!macroend
!insertmacro functions ""
!insertmacro functions "un."
!include path.nsh

; ---------------------------------------------------------------- installer

Function .onInit
  ${IfNot} ${AtLeastWin7}
    !insertmacro fail 5 "The editor needs Windows 7 or later."
  ${EndIf}
  StrCpy $givenFolder $INSTDIR
  ; A folder that cannot be, and an option in quotation marks, leave it empty.
  System::Call 'kernel32::GetCommandLineW() t .r0'
  ${StrStr} $0 $0 "/D="
  ${If} $0 != ""
  ${AndIf} $givenFolder == ""
    StrCpy $0 $0 "" 3
    !insertmacro fail 2 "This folder cannot be used: $0"
  ${EndIf}
  ; As it was installed before, for the user at first.
  StrCpy $everybody 0
  Call useScope
  ${If} $before == ""
    StrCpy $everybody 1
    Call useScope
    ${If} $before == ""
      StrCpy $everybody 0
    ${EndIf}
  ${EndIf}
  ${GetParameters} $0
  ${GetOptions} $0 "/AllUsers" $1
  ${IfNot} ${Errors}
    StrCpy $everybody 1
  ${EndIf}
  ${GetOptions} $0 "/CurrentUser" $1
  ${IfNot} ${Errors}
    StrCpy $everybody 0
  ${EndIf}
  Call useScope
  ReadRegDWORD $associate SHCTX "${UNINSTALL}" Associate
  ReadRegDWORD $path SHCTX "${UNINSTALL}" Path
  ${GetOptions} $0 "/Chosen" $1
  ${IfNot} ${Errors}
    StrCpy $chosen 1
    StrCpy $associate 0
    StrCpy $path 0
  ${EndIf}
  ${GetOptions} $0 "/Associate" $1
  ${IfNot} ${Errors}
    StrCpy $associate 1
  ${EndIf}
  ${GetOptions} $0 "/Path" $1
  ${IfNot} ${Errors}
    StrCpy $path 1
  ${EndIf}
  Call proposeFolder
  ${If} ${Silent}
    Call needRights
  ${EndIf}
FunctionEnd

Function proposeFolder
  StrCpy $INSTDIR $givenFolder
  ${If} $INSTDIR == ""
    StrCpy $INSTDIR $before
  ${EndIf}
  ${If} $INSTDIR != ""
    Return
  ${EndIf}
  ${If} $everybody = 1
    StrCpy $INSTDIR "$PROGRAMFILES64\${PRODUCT}"
  ${Else}
    StrCpy $INSTDIR "$LOCALAPPDATA\Programs\${PRODUCT}"
  ${EndIf}
FunctionEnd

; Starts this program once more with an administrator's rights, if they are needed and missing.
Function needRights
  UserInfo::GetAccountType
  Pop $0
  ${If} $everybody <> 1
  ${OrIf} $0 == "Admin"
    Return
  ${EndIf}
  ${If} ${Silent}
    SetErrorLevel 4
    Quit
  ${EndIf}
  StrCpy $1 "/AllUsers /Chosen"
  ${If} $associate = 1
    StrCpy $1 "$1 /Associate"
  ${EndIf}
  ${If} $path = 1
    StrCpy $1 "$1 /Path"
  ${EndIf}
  ${If} $givenFolder != ""
    StrCpy $1 "$1 /D=$givenFolder"
  ${EndIf}
  ClearErrors
  ExecShell "runas" "$EXEPATH" $1
  ${If} ${Errors}
    MessageBox MB_OK|MB_ICONEXCLAMATION "Administrator's rights were not given."
    Abort ; stays on the page
  ${EndIf}
  Quit
FunctionEnd

Var forMe
Var forEverybody
Var associateBox
Var pathBox

Function showOptions
  ${If} $chosen = 1
    Abort
  ${EndIf}
  !insertmacro MUI_HEADER_TEXT "Install ${PRODUCT} ${VERSION}" "For whom, and what else?"
  nsDialogs::Create 1018
  Pop $0
  ${NSD_CreateFirstRadioButton} 0 4u 100% 12u "Only for &me"
  Pop $forMe
  ${NSD_CreateAdditionalRadioButton} 0 20u 100% 12u "For &all users of this computer (needs administrator's rights)"
  Pop $forEverybody
  ${NSD_CreateCheckBox} 0 48u 100% 12u "&Open all XML files (.xml) with the editor"
  Pop $associateBox
  ${NSD_CreateCheckBox} 0 64u 100% 12u "Add the &folder to PATH, so that a command prompt finds trevandix"
  Pop $pathBox
  ${If} $everybody = 1
    ${NSD_Check} $forEverybody
    ${NSD_SetFocus} $forEverybody
  ${Else}
    ${NSD_Check} $forMe
    ${NSD_SetFocus} $forMe
  ${EndIf}
  ${NSD_SetState} $associateBox $associate
  ${NSD_SetState} $pathBox $path
  nsDialogs::Show
FunctionEnd

Function leaveOptions
  ${NSD_GetState} $forEverybody $everybody
  ${NSD_GetState} $associateBox $associate
  ${NSD_GetState} $pathBox $path
  Call useScope
  Call proposeFolder
  Call needRights
FunctionEnd

; Sets $0 to why the folder cannot be used, or to "".
Function checkFolder
  StrCpy $0 ""
  ${If} $before != $INSTDIR
  ${AndIf} ${FileExists} "$INSTDIR\uninstall.exe"
    StrCpy $0 "The folder $INSTDIR already holds an installed program, perhaps the editor of other users. Remove that first, or choose another folder."
    Return
  ${EndIf}
  ClearErrors
  CreateDirectory "$INSTDIR"
  GetTempFileName $1 "$INSTDIR"
  Delete $1
  ${If} ${Errors}
    StrCpy $0 "The folder $INSTDIR cannot be written to."
  ${EndIf}
  RMDir "$INSTDIR" ; if it is empty
FunctionEnd

Function leaveFolder
  Call checkFolder
  ${If} $0 != ""
    MessageBox MB_OK|MB_ICONEXCLAMATION $0
    Abort ; stays on the page
  ${EndIf}
FunctionEnd

; Explorer starts it without the installer's rights.
Function startEditor
  Exec '"$WINDIR\explorer.exe" "$INSTDIR\${PROGRAM}"'
FunctionEnd

Section
  Call checkFolder
  ${If} $0 != ""
    !insertmacro fail 2 $0
  ${EndIf}
  !insertmacro refuseWhileRunning $before "${PROGRAM}"
  !insertmacro refuseWhileRunning $before "trevandix.exe"
  !insertmacro refuseWhileRunning $INSTDIR "${PROGRAM}"
  !insertmacro refuseWhileRunning $INSTDIR "trevandix.exe"
  ; The version before removes what it brought. Its uninstaller stays.
  ${If} ${FileExists} "$before\uninstall.exe"
    ${If} $path = 1
    ${AndIf} $before == $INSTDIR
      DeleteRegValue SHCTX "${UNINSTALL}" Path ; so that the folder keeps its place in PATH
    ${EndIf}
    ExecWait '"$before\uninstall.exe" /S _?=$before' $0
    ${If} $path = 1
      WriteRegDWORD SHCTX "${UNINSTALL}" Path 1
    ${EndIf}
    ${If} $0 <> 0
      !insertmacro fail 2 "The installed version could not be removed."
    ${EndIf}
    Delete "$before\uninstall.exe"
    RMDir "$before"
  ${EndIf}

  ClearErrors
  !insertmacro installFiles
  SetOutPath "$INSTDIR"
  WriteUninstaller "$INSTDIR\uninstall.exe"
  ${If} ${Errors}
    !insertmacro fail 2 "The files could not be written to $INSTDIR."
  ${EndIf}
  CreateDirectory "${MENU}"
  CreateShortcut "${MENU}\${PRODUCT}.lnk" "$INSTDIR\${PROGRAM}"
  CreateShortcut "${MENU}\Manual.lnk" "$INSTDIR\manual\manual.html"
  CreateShortcut "${MENU}\Samples.lnk" "$INSTDIR\samples"

  WriteRegStr SHCTX "${UNINSTALL}" DisplayName "${PRODUCT}"
  WriteRegStr SHCTX "${UNINSTALL}" DisplayVersion "${VERSION}"
  WriteRegStr SHCTX "${UNINSTALL}" DisplayIcon "$INSTDIR\${PROGRAM}"
  WriteRegStr SHCTX "${UNINSTALL}" Publisher "${COMPANY}"
  WriteRegStr SHCTX "${UNINSTALL}" URLInfoAbout "${URL}"
  WriteRegStr SHCTX "${UNINSTALL}" InstallLocation "$INSTDIR"
  WriteRegStr SHCTX "${UNINSTALL}" UninstallString '"$INSTDIR\uninstall.exe"'
  WriteRegStr SHCTX "${UNINSTALL}" QuietUninstallString '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD SHCTX "${UNINSTALL}" NoModify 1
  WriteRegDWORD SHCTX "${UNINSTALL}" NoRepair 1
  ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
  WriteRegDWORD SHCTX "${UNINSTALL}" EstimatedSize $0

  ; "Open with", and the list of recent files on the task bar
  WriteRegStr SHCTX "${APPLICATION}" FriendlyAppName "${PRODUCT}"
  WriteRegStr SHCTX "${APPLICATION}\SupportedTypes" .xml ""
  WriteRegStr SHCTX "${APPLICATION}\shell\open\command" "" '"$INSTDIR\${PROGRAM}" "%1"'
  ${If} $associate = 1
    Call addAssociation
  ${EndIf}
  ${If} $path = 1
    WriteRegDWORD SHCTX "${UNINSTALL}" Path 1
    Call addToPath
  ${EndIf}
  Call tellOfAssociation
SectionEnd

Function addAssociation
  WriteRegStr SHCTX "Software\Classes\${PROGID}" "" "Trevandix configuration"
  WriteRegStr SHCTX "Software\Classes\${PROGID}\DefaultIcon" "" "$INSTDIR\${PROGRAM},0"
  WriteRegStr SHCTX "Software\Classes\${PROGID}\shell\open\command" "" '"$INSTDIR\${PROGRAM}" "%1"'
  ReadRegStr $0 SHCTX "Software\Classes\.xml" ""
  WriteRegStr SHCTX "${UNINSTALL}" AssociatedBefore $0
  WriteRegStr SHCTX "Software\Classes\.xml" "" "${PROGID}"
  WriteRegStr SHCTX "Software\Classes\.xml\OpenWithProgids" "${PROGID}" ""
  WriteRegDWORD SHCTX "${UNINSTALL}" Associate 1
FunctionEnd

; ---------------------------------------------------------------- uninstaller

Function un.onInit
  StrCpy $everybody 1
  Call un.useScope
  ${If} $before != $INSTDIR
    StrCpy $everybody 0
    Call un.useScope
    Return
  ${EndIf}
  UserInfo::GetAccountType
  Pop $0
  ${If} $0 == "Admin"
    Return
  ${EndIf}
  ${If} ${Silent}
    SetErrorLevel 4
  ${Else}
    ExecShell "runas" "$INSTDIR\uninstall.exe"
  ${EndIf}
  Quit
FunctionEnd

Section Uninstall
  !insertmacro refuseWhileRunning $INSTDIR "${PROGRAM}"
  !insertmacro refuseWhileRunning $INSTDIR "trevandix.exe"
  ReadRegDWORD $associate SHCTX "${UNINSTALL}" Associate
  ReadRegDWORD $path SHCTX "${UNINSTALL}" Path
  ${If} $associate = 1
    Call un.removeAssociation
  ${EndIf}
  ${If} $path = 1
    Call un.removeFromPath
  ${EndIf}
  DeleteRegKey SHCTX "${APPLICATION}"
  DeleteRegKey /ifempty SHCTX "Software\Classes\Applications"
  DeleteRegKey SHCTX "${UNINSTALL}"
  Call un.tellOfAssociation
  Delete "${MENU}\${PRODUCT}.lnk"
  Delete "${MENU}\Manual.lnk"
  Delete "${MENU}\Samples.lnk"
  RMDir "${MENU}"
  SetOutPath "$TEMP" ; a current folder cannot be removed
  !insertmacro removeFiles
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR" ; stays if it holds anything else, such as a configuration
SectionEnd

Function un.removeAssociation
  ReadRegStr $0 SHCTX "Software\Classes\.xml" ""
  ReadRegStr $1 SHCTX "${UNINSTALL}" AssociatedBefore
  ${If} $0 == "${PROGID}"
    ${If} $1 == ""
      DeleteRegValue SHCTX "Software\Classes\.xml" ""
    ${Else}
      WriteRegStr SHCTX "Software\Classes\.xml" "" $1
    ${EndIf}
  ${EndIf}
  DeleteRegValue SHCTX "Software\Classes\.xml\OpenWithProgids" "${PROGID}"
  DeleteRegKey /ifempty SHCTX "Software\Classes\.xml\OpenWithProgids"
  DeleteRegKey /ifempty SHCTX "Software\Classes\.xml"
  DeleteRegKey SHCTX "Software\Classes\${PROGID}"
FunctionEnd
