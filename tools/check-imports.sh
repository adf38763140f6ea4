#!/usr/bin/env bash
# tools/check-imports.sh EXE...: fails if a program would not start on Windows 7 because it imports a DLL or function
# that Windows 7 lacks. Look up such functions at run time.
# --list EXE prints "dll function" lines. --self-test builds programs that must be refused and checks that they are.
set -euo pipefail

triplet=x86_64-w64-mingw32

# DLLs in the system folder of every Windows 7. The api-ms-win-* sets and ucrtbase.dll came later.
system_dlls='advapi32 bcrypt comctl32 comdlg32 crypt32 dwmapi gdi32 gdiplus imm32 kernel32 msimg32 msvcrt ntdll ole32
    oleacc oleaut32 psapi rpcrt4 secur32 shell32 shlwapi user32 uxtheme version winhttp wininet winmm winspool.drv ws2_32'

# Newer functions that the compiler's headers declare for Windows 7 anyway, or not at all.
newer_by_hand='AddDllDirectory RemoveDllDirectory SetDefaultDllDirectories GetSystemTimePreciseAsFileTime
    GetOverlappedResultEx WaitOnAddress WakeByAddressSingle WakeByAddressAll InitializeSynchronizationBarrier
    EnterSynchronizationBarrier DeleteSynchronizationBarrier SetThreadDescription GetThreadDescription
    CreateFile2 CopyFile2 CreateFile3 ReadDirectoryChangesExW GetTempPath2A GetTempPath2W
    CreateFileMappingFromApp MapViewOfFileFromApp MapViewOfFile2 MapViewOfFile3 VirtualAlloc2 UnmapViewOfFile2
    CreatePseudoConsole ResizePseudoConsole ClosePseudoConsole QueryInterruptTime QueryInterruptTimePrecise
    QueryUnbiasedInterruptTimePrecise IsProcessCritical GetSystemCpuSetInformation SetThreadSelectedCpuSets
    GetUserDefaultGeoName SetUserGeoName GetCurrentPackageFullName GetCurrentPackageFamilyName GetPackageFamilyName
    SetCoalescableTimer GetAutoRotationState GetDisplayAutoRotationPreferences SetDisplayAutoRotationPreferences
    RegisterSuspendResumeNotification UnregisterSuspendResumeNotification IsImmersiveProcess
    OpenThemeDataForDpi GetDpiAwarenessContextForProcess SetDialogDpiChangeBehavior SetDialogControlDpiChangeBehavior
    CreateSyntheticPointerDevice InjectSyntheticPointerInput BCryptHash SHGetFolderPathEx'

declared_functions() {
    printf '#include <%s>\n' winsock2.h ws2tcpip.h windows.h commctrl.h dwmapi.h ole2.h shellscalingapi.h shlobj.h \
        shlwapi.h uxtheme.h wininet.h |
        "$triplet-gcc-posix" -E -P -D_WIN32_WINNT="$1" -DWINVER="$1" -DNTDDI_VERSION="${1}0000" -x c - |
        grep -oE '\b[A-Za-z_][A-Za-z0-9_]* *\(' | tr -d ' (' | LC_ALL=C sort -u
}

# Functions newer than Windows 7: those that the headers declare only for Windows 10, and those listed above.
newer_functions() {
    LC_ALL=C comm -13 <(declared_functions 0x0601) <(declared_functions 0x0A00)
    tr -s ' \n' '\n' <<<"$newer_by_hand"
}

# Prints "dll function" for each import; a function imported by number appears as #number.
imports() {
    "$triplet-objdump" -p "$1" | tr -d '\r' | awk '
        /^[ \t]*DLL Name: / { dll = tolower($3); sub(/\.dll$/, "", dll); next }
        dll && /^[ \t]+[0-9a-f]+[ \t]+[0-9]+[ \t]+[^ \t]+$/ { print dll, $3; next }
        dll && /^[ \t]+[0-9a-f]+[ \t]+[0-9]+[ \t]+<none>/ { print dll, "#" $2; next }
        /^$/ && inside { dll = "" }
        { inside = dll != "" }'
}

# missing_on_windows7 NEWER: prints those imports on standard input that Windows 7 lacks. All functions that begin with
# PathCch came with Windows 8.
missing_on_windows7() {
    awk -v dlls="$system_dlls" -v newer="$1" '
        BEGIN {
            split(dlls, list, /[ \n]+/); for (i in list) known[list[i]]
            split(newer, names, /[ \n]+/); for (i in names) late[names[i]]
        }
        !($1 in known) { print $1 " (the DLL), for " $2; next }
        $2 in late || $2 ~ /^Path(Cch|AllocC)/ { print $1, $2 }'
}

check() {
    local newer exe list missing failed=0
    newer=$(newer_functions)
    if [ "$(wc -l <<<"$newer")" -lt 150 ]; then
        echo "cannot read the functions from the compiler's headers" >&2
        return 2
    fi
    for exe in "$@"; do
        list=$(imports "$exe")
        if [ -z "$list" ]; then
            echo "$exe: no imports found; not a Windows program?" >&2
            return 2
        fi
        missing=$(missing_on_windows7 "$newer" <<<"$list")
        if [ -n "$missing" ]; then
            printf '%s: Windows 7 lacks\n%s\n' "$exe" "$missing" >&2
            failed=1
        else
            echo "$(basename "$exe"): $(wc -l <<<"$list") imports, all in Windows 7"
        fi
    done
    return "$failed"
}

# must_refuse WORDS SOURCE [LIBRARY]: builds a program that must be refused with a message containing WORDS.
must_refuse() {
    local folder message code=0
    folder=$(mktemp -d)
    printf '%s\n' "#include <windows.h>" "$2" | "$triplet-gcc-posix" -x c - -o "$folder/made-up.exe" ${3:+"$3"}
    message=$(check "$folder/made-up.exe" 2>&1) || code=$?
    rm -rf "$folder"
    if [ "$code" != 1 ] || ! grep -qF "$1" <<<"$message"; then
        echo "not refused for \"$1\" (code $code): $message" >&2
        return 1
    fi
}

self_test() {
    must_refuse 'user32 GetDpiForWindow' 'int main() { return GetDpiForWindow(0); }'
    must_refuse 'kernel32 GetSystemTimePreciseAsFileTime' \
        'int main() { FILETIME t; GetSystemTimePreciseAsFileTime(&t); return 0; }'
    must_refuse 'api-ms-win-core-synch-l1-2-0 (the DLL), for WaitOnAddress' \
        'int main() { return WaitOnAddress(0, 0, 0, 0); }' -lsynchronization
    must_refuse 'ucrtbase' 'int _o_exit(int); int main() { return _o_exit(1); }' -lucrtbase
    echo "self-test: all test programs are refused"
}

case ${1:-} in
    --list) imports "$2" ;;
    --self-test) self_test ;;
    '' | -*)
        echo "usage: check-imports.sh EXE..." >&2
        exit 2
        ;;
    *) check "$@" ;;
esac
