; Adds the program's folder to PATH and removes it. PATH is changed in memory, because the strings of an installer end
; after ${NSIS_MAX_STRLEN} characters, which would cut it.
!define PATH_LONGEST 2047 ; what Windows' own dialog for environment variables can edit
!define TEXT_UNEXPANDED 0x10000006

Var memory   ; holds ";", PATH and ";" until the program ends; 0 if PATH cannot be read
Var pathType ; of the value in the registry

!macro pathFunctions UN
Function ${UN}readPath
  System::Call 'advapi32::RegGetValueW(p $hive, t "$environment", t "Path", i ${TEXT_UNEXPANDED}, *i .r1, p 0, *i 0 r2) i .r0'
  ${If} $0 = 2 ; there is none
    StrCpy $1 2 ; REG_EXPAND_SZ
    StrCpy $2 2
  ${ElseIf} $0 <> 0
    StrCpy $memory 0
    Return
  ${EndIf}
  StrCpy $pathType $1
  IntOp $3 $2 + ${NSIS_MAX_STRLEN}
  IntOp $3 $3 + ${NSIS_MAX_STRLEN} ; room for a folder: two bytes a character
  System::Alloc $3 ; zeros
  Pop $memory
  System::Call 'kernel32::lstrcpyW(p $memory, t ";")'
  ${If} $0 = 0
    IntPtrOp $3 $memory + 2
    System::Call 'advapi32::RegGetValueW(p $hive, t "$environment", t "Path", i ${TEXT_UNEXPANDED}, p 0, p r3, *i r2) i .r0'
    ${If} $0 <> 0
      StrCpy $memory 0
      Return
    ${EndIf}
  ${EndIf}
  System::Call 'kernel32::lstrcatW(p $memory, t ";")'
FunctionEnd

; Sets $3 to where the folder and its semicolons begin in PATH, or to 0.
Function ${UN}findInPath
  System::Call 'shlwapi::StrStrIW(p $memory, t ";$INSTDIR;") p .r3'
FunctionEnd

; Sets $0 to 0 if it could. Programs that are started from now on see the change.
Function ${UN}writePath
  System::Call 'kernel32::lstrlenW(p $memory) i .r2'
  IntPtrOp $3 $memory + 2
  IntOp $2 $2 - 2
  IntOp $2 $2 * 2 ; bytes between the first semicolon and the last
  StrCpy $0 0
  ${If} $2 <= 0
    DeleteRegValue SHCTX $environment "Path"
  ${Else}
    IntPtrOp $4 $3 + $2
    System::Call '*$4(&i2 0)'
    IntOp $2 $2 + 2
    System::Call 'advapi32::RegSetKeyValueW(p $hive, t "$environment", t "Path", i $pathType, p r3, i r2) i .r0'
  ${EndIf}
  SendMessage ${HWND_BROADCAST} ${WM_SETTINGCHANGE} 0 "STR:Environment" /TIMEOUT=2000
FunctionEnd
!macroend
!insertmacro pathFunctions ""
!insertmacro pathFunctions "un."

Function leavePath
  MessageBox MB_OK|MB_ICONEXCLAMATION "PATH stays as it is: it cannot be changed, or would become longer than ${PATH_LONGEST} characters. If you need it, add this folder yourself: $INSTDIR" /SD IDOK
FunctionEnd

Function addToPath
  Call readPath
  ${If} $memory == 0
    Call leavePath
    Return
  ${EndIf}
  Call findInPath
  ${If} $3 != 0
    Return
  ${EndIf}
  System::Call 'kernel32::lstrlenW(p $memory) i .r2'
  StrLen $4 $INSTDIR
  IntOp $4 $4 + $2
  IntOp $4 $4 - 1 ; one more semicolon, but neither the first nor the last
  ${If} $4 > ${PATH_LONGEST}
    Call leavePath
    Return
  ${EndIf}
  IntOp $2 $2 * 2
  IntPtrOp $4 $memory + $2
  IntPtrOp $3 $4 - 4
  IntPtrOp $4 $4 - 2
  System::Call '*$3(&i2 .r5)'
  ${If} $5 = 59 ; a semicolon at the end of PATH, which stays there
    System::Call 'kernel32::lstrcpyW(p r4, t "$INSTDIR;;")'
  ${Else}
    System::Call 'kernel32::lstrcpyW(p r4, t ";$INSTDIR;")'
  ${EndIf}
  Call writePath
  ${If} $0 <> 0
    Call leavePath
  ${EndIf}
FunctionEnd

Function un.removeFromPath
  Call un.readPath
  StrCpy $0 1
  ${If} $memory != 0
    Call un.findInPath
    ${If} $3 == 0
      Return
    ${EndIf}
    StrLen $4 ";$INSTDIR"
    IntOp $4 $4 * 2
    ${Do}
      IntPtrOp $5 $3 + $4
      System::Call 'kernel32::lstrlenW(p r5) i .r6'
      IntOp $6 $6 * 2
      IntOp $6 $6 + 2
      System::Call 'kernel32::RtlMoveMemory(p r3, p r5, p r6)'
      Call un.findInPath
    ${LoopUntil} $3 == 0
    Call un.writePath
  ${EndIf}
  ${If} $0 <> 0
    MessageBox MB_OK|MB_ICONEXCLAMATION "PATH cannot be changed and stays as it is. It may still hold this folder: $INSTDIR" /SD IDOK
  ${EndIf}
FunctionEnd
