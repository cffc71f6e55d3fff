#pragma once

// System services: errors, memory, time, files and folders, profile files, processes, modules,
// critical sections, strings.
//
// File names are Windows names: drive C is the whole file system here ("C:\tmp" is /tmp), either
// slash separates, and letter case of existing files and folders does not matter. No other drive
// exists.

#include "winbase_types.h"
#include "windef.h"
#include "winerror.h"

// Errors. The last error belongs to the thread.
WIN32_EXPORT DWORD WINAPI GetLastError();
WIN32_EXPORT void WINAPI SetLastError(DWORD code);
WIN32_EXPORT void WINAPI OutputDebugStringA(LPCSTR text);

// Memory. There is the process heap only; a block knows the size it was asked for.
WIN32_EXPORT HANDLE WINAPI GetProcessHeap();
WIN32_EXPORT LPVOID WINAPI HeapAlloc(HANDLE heap, DWORD flags, SIZE_T size);
WIN32_EXPORT LPVOID WINAPI HeapReAlloc(HANDLE heap, DWORD flags, LPVOID block, SIZE_T size);
WIN32_EXPORT BOOL WINAPI HeapFree(HANDLE heap, DWORD flags, LPVOID block);
WIN32_EXPORT SIZE_T WINAPI HeapSize(HANDLE heap, DWORD flags, LPCVOID block);

// Time. Ticks and local time follow the clock that winbase_hooks.h can take over; Sleep is real.
WIN32_EXPORT DWORD WINAPI GetTickCount();
WIN32_EXPORT void WINAPI GetLocalTime(LPSYSTEMTIME time);
WIN32_EXPORT void WINAPI Sleep(DWORD millis);
WIN32_EXPORT int WINAPI MulDiv(int number, int numerator, int denominator);

// Files and folders.
WIN32_EXPORT BOOL WINAPI DeleteFileA(LPCSTR name);
WIN32_EXPORT BOOL WINAPI CreateDirectoryA(LPCSTR name, LPSECURITY_ATTRIBUTES security);
WIN32_EXPORT DWORD WINAPI GetFileAttributesA(LPCSTR name);
WIN32_EXPORT HANDLE WINAPI FindFirstFileA(LPCSTR pattern, LPWIN32_FIND_DATAA data);
WIN32_EXPORT BOOL WINAPI FindNextFileA(HANDLE search, LPWIN32_FIND_DATAA data);
WIN32_EXPORT BOOL WINAPI FindClose(HANDLE search);
WIN32_EXPORT BOOL WINAPI SetCurrentDirectoryA(LPCSTR name);
WIN32_EXPORT DWORD WINAPI GetCurrentDirectoryA(DWORD size, LPSTR buffer);

// Profile files.
WIN32_EXPORT DWORD WINAPI GetPrivateProfileStringA(LPCSTR section, LPCSTR key, LPCSTR fallback,
                                                   LPSTR buffer, DWORD size, LPCSTR file);
WIN32_EXPORT UINT WINAPI GetPrivateProfileIntA(LPCSTR section, LPCSTR key, INT fallback,
                                               LPCSTR file);
WIN32_EXPORT BOOL WINAPI WritePrivateProfileStringA(LPCSTR section, LPCSTR key, LPCSTR value,
                                                    LPCSTR file);

// The machine.
WIN32_EXPORT BOOL WINAPI GetComputerNameA(LPSTR buffer, LPDWORD size);
WIN32_EXPORT UINT WINAPI GetSystemDirectoryA(LPSTR buffer, UINT size);
WIN32_EXPORT BOOL WINAPI GetVolumeInformationA(LPCSTR root, LPSTR name, DWORD name_size,
                                               LPDWORD serial, LPDWORD component_length,
                                               LPDWORD flags, LPSTR file_system,
                                               DWORD file_system_size);
WIN32_EXPORT BOOL WINAPI GetDiskFreeSpaceExA(LPCSTR folder, PULARGE_INTEGER available,
                                             PULARGE_INTEGER total, PULARGE_INTEGER free);

// Processes, pipes and the handles of both.
WIN32_EXPORT DWORD WINAPI GetCurrentThreadId();
WIN32_EXPORT DWORD WINAPI GetCurrentProcessId();
WIN32_EXPORT BOOL WINAPI CreatePipe(PHANDLE read_end, PHANDLE write_end,
                                    LPSECURITY_ATTRIBUTES security, DWORD size);
WIN32_EXPORT BOOL WINAPI CreateProcessA(LPCSTR program, LPSTR command_line,
                                        LPSECURITY_ATTRIBUTES process_security,
                                        LPSECURITY_ATTRIBUTES thread_security, BOOL inherit_handles,
                                        DWORD flags, LPVOID environment, LPCSTR folder,
                                        LPSTARTUPINFOA startup, LPPROCESS_INFORMATION information);
WIN32_EXPORT DWORD WINAPI WaitForSingleObject(HANDLE object, DWORD millis);
WIN32_EXPORT BOOL WINAPI GetExitCodeProcess(HANDLE process, LPDWORD code);
WIN32_EXPORT BOOL WINAPI ReadFile(HANDLE file, LPVOID buffer, DWORD size, LPDWORD read,
                                  LPOVERLAPPED overlapped);
WIN32_EXPORT BOOL WINAPI WriteFile(HANDLE file, LPCVOID data, DWORD size, LPDWORD written,
                                   LPOVERLAPPED overlapped);
WIN32_EXPORT BOOL WINAPI CloseHandle(HANDLE object);

// Modules. The system's own libraries are found by name and are the layer itself.
WIN32_EXPORT DWORD WINAPI GetModuleFileNameA(HMODULE module, LPSTR buffer, DWORD size);
WIN32_EXPORT HMODULE WINAPI GetModuleHandleA(LPCSTR name);
/// Flags: FROM_ADDRESS with UNCHANGED_REFCOUNT only; `inside` is any address in the module.
WIN32_EXPORT BOOL WINAPI GetModuleHandleExA(DWORD flags, LPCSTR inside, HMODULE* module);
WIN32_EXPORT HMODULE WINAPI LoadLibraryA(LPCSTR name);
WIN32_EXPORT BOOL WINAPI FreeLibrary(HMODULE module);
WIN32_EXPORT FARPROC WINAPI GetProcAddress(HMODULE module, LPCSTR name);

// Critical sections: a thread may enter again what it owns.
WIN32_EXPORT void WINAPI InitializeCriticalSection(LPCRITICAL_SECTION section);
WIN32_EXPORT void WINAPI EnterCriticalSection(LPCRITICAL_SECTION section);
WIN32_EXPORT BOOL WINAPI TryEnterCriticalSection(LPCRITICAL_SECTION section);
WIN32_EXPORT void WINAPI LeaveCriticalSection(LPCRITICAL_SECTION section);
WIN32_EXPORT void WINAPI DeleteCriticalSection(LPCRITICAL_SECTION section);

// Strings. Sizes are bytes; lstrcpyn may cut a character in two.
WIN32_EXPORT int WINAPI lstrlenA(LPCSTR text);
WIN32_EXPORT LPSTR WINAPI lstrcpynA(LPSTR target, LPCSTR source, int size);
WIN32_EXPORT int WINAPI lstrcmpA(LPCSTR left, LPCSTR right);
WIN32_EXPORT int WINAPI lstrcmpiA(LPCSTR left, LPCSTR right);

#define CreateDirectory CreateDirectoryA
#define CreateProcess CreateProcessA
#define DeleteFile DeleteFileA
#define FindFirstFile FindFirstFileA
#define FindNextFile FindNextFileA
#define GetComputerName GetComputerNameA
#define GetCurrentDirectory GetCurrentDirectoryA
#define GetDiskFreeSpaceEx GetDiskFreeSpaceExA
#define GetFileAttributes GetFileAttributesA
#define GetModuleFileName GetModuleFileNameA
#define GetModuleHandle GetModuleHandleA
#define GetPrivateProfileInt GetPrivateProfileIntA
#define GetPrivateProfileString GetPrivateProfileStringA
#define GetSystemDirectory GetSystemDirectoryA
#define GetVolumeInformation GetVolumeInformationA
#define LoadLibrary LoadLibraryA
#define OutputDebugString OutputDebugStringA
#define SetCurrentDirectory SetCurrentDirectoryA
#define WritePrivateProfileString WritePrivateProfileStringA
#define lstrcmp lstrcmpA
#define lstrcmpi lstrcmpiA
#define lstrcpyn lstrcpynA
#define lstrlen lstrlenA
