/// \file
/// What the tests need from the host they run on, in one place: scratch
/// folders, process ids, the null device, loading a module, starting a second
/// process, files held by another opener, the system's error text, and a
/// reference UTF converter (ICU on POSIX hosts, the system's own converter on
/// Windows, where the library does not use ICU). Host headers stay in
/// HostSupport.cpp, so that <windows.h> and its macros (GetMessage, ...)
/// never meet the library's headers in a test.
#ifndef VESK_TESTS_HOSTSUPPORT_H
#define VESK_TESTS_HOSTSUPPORT_H

#include <cstddef>
#include <filesystem>
#include <string>

namespace vesk_test {

/// The process id, for names no other run uses.
unsigned long ProcessId();
/// A new, empty folder in the temporary folder, named stem-<pid>-<random>.
std::filesystem::path MakeTempDir(const char* stem);
/// The path of the device that swallows everything written to it.
const char* NullDevice();

/// A loaded module (a shared object or DLL), null when it cannot be loaded.
void* LoadModule(const char* path);
/// Unloads a module from LoadModule; true on success.
bool UnloadModule(void* module);

/// Opens path with no sharing at all, so that other opens are refused until
/// ReleaseFile; null when it cannot. (Windows only.)
void* HoldFile(const char* path);
void ReleaseFile(void* held);
/// Whether a named kernel object (mutex, event, semaphore) of that name
/// exists now. (Windows only.)
bool NamedObjectExists(const char* name);
/// Bytes of this process resident in memory now; -1 when unknown.
long ResidentBytes();
/// CPU time the calling thread has used, in milliseconds.
double ThreadCpuMs();
/// Runs the tests of this program that match filter in a second process
/// (CreateProcessW), with the environment variable name set to value there.
/// Returns its exit code (0: its tests passed), -1 when it could not be
/// started or did not end within a minute. (Windows only.)
int RunTestsInChildProcess(const char* filter, const char* name, const std::string& value);

/// The system's message text for an error code (FormatMessageA on Windows).
std::string SystemMessage(unsigned long code);
/// An error code the system knows: "file not found".
unsigned long FileNotFoundCode();

/// Why a peer program of the build machine (python3, the JDK) cannot check
/// this host's output, or null when it can: a Windows test under Wine cannot
/// start the machine's Linux programs.
const char* NoPeerReason();
/// Whether this Windows program runs under Wine rather than on Windows.
bool UnderWine();

/// The UTF-8 form of n UTF-16 units; an unpaired surrogate becomes sub.
std::string ReferenceUtf8(const unsigned short* text, std::size_t n, char sub = '?');
/// The UTF-16 form of a well-formed, NUL-terminated UTF-8 text.
std::u16string ReferenceUtf16(const char* utf8);
/// Decodes the well-formed UTF-8 character at bytes[i] (n bytes in all):
/// its code point, with *next just past it, or -1 when it is malformed.
int ReferenceUtf8Next(const char* bytes, int i, int n, int* next);

}  // namespace vesk_test

#endif
