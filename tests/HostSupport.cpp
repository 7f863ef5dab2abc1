#include "HostSupport.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <random>

#if defined(_WIN32)
#define WIN32_LEAN_AND_MEAN
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
// After windows.h, whose types it uses.
#include <psapi.h>
#else
#include <dlfcn.h>
#include <time.h>
#include <unicode/ustring.h>
#include <unicode/utf8.h>
#include <unistd.h>
#endif

namespace vesk_test {

unsigned long ProcessId() {
#if defined(_WIN32)
  return GetCurrentProcessId();
#else
  return static_cast<unsigned long>(getpid());
#endif
}

std::filesystem::path MakeTempDir(const char* stem) {
  std::random_device seed;
  for (;;) {
    std::filesystem::path dir = std::filesystem::temp_directory_path() /
                                (std::string(stem) + "-" + std::to_string(ProcessId()) + "-" +
                                 std::to_string(seed() % 1000000));
    if (std::filesystem::create_directory(dir)) return dir;
  }
}

const char* NullDevice() {
#if defined(_WIN32)
  return "NUL";
#else
  return "/dev/null";
#endif
}

void* LoadModule(const char* path) {
#if defined(_WIN32)
  return reinterpret_cast<void*>(LoadLibraryA(path));
#else
  return dlopen(path, RTLD_NOW | RTLD_LOCAL);
#endif
}

bool UnloadModule(void* module) {
#if defined(_WIN32)
  return FreeLibrary(reinterpret_cast<HMODULE>(module)) != FALSE;
#else
  return dlclose(module) == 0;
#endif
}

#if defined(_WIN32)
void* HoldFile(const char* path) {
  HANDLE file = CreateFileA(path, GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
  return file == INVALID_HANDLE_VALUE ? nullptr : file;
}

void ReleaseFile(void* held) { CloseHandle(held); }

bool NamedObjectExists(const char* name) {
  HANDLE mutex = CreateMutexA(nullptr, FALSE, name);
  DWORD error = GetLastError();
  if (mutex) CloseHandle(mutex);
  // Either the name was a mutex already, or it names another kind of object.
  return mutex ? error == ERROR_ALREADY_EXISTS : error == ERROR_INVALID_HANDLE;
}

int RunTestsInChildProcess(const char* filter, const char* name, const std::string& value) {
  wchar_t self[MAX_PATH];
  if (GetModuleFileNameW(nullptr, self, MAX_PATH) == 0) return -1;
  std::wstring command = L"\"" + std::wstring(self) + L"\" --gtest_filter=";
  for (const char* p = filter; *p; ++p) command += static_cast<wchar_t>(*p);
  SetEnvironmentVariableA(name, value.c_str());
  STARTUPINFOW startup = {};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION process = {};
  BOOL started = CreateProcessW(self, &command[0], nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                                &startup, &process);
  SetEnvironmentVariableA(name, nullptr);
  if (!started) return -1;
  DWORD code = static_cast<DWORD>(-1);
  if (WaitForSingleObject(process.hProcess, 60000) != WAIT_OBJECT_0 ||
      !GetExitCodeProcess(process.hProcess, &code)) {
    TerminateProcess(process.hProcess, 1);
    code = static_cast<DWORD>(-1);
  }
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  return static_cast<int>(code);
}
#endif

const char* NoPeerReason() {
#if defined(_WIN32)
  return "the peer is a Linux program, which a Windows test under Wine cannot start";
#else
  return nullptr;
#endif
}

bool UnderWine() {
#if defined(_WIN32)
  HMODULE ntdll = GetModuleHandleA("ntdll.dll");
  return ntdll != nullptr && GetProcAddress(ntdll, "wine_get_version") != nullptr;
#else
  return false;
#endif
}

long ResidentBytes() {
#if defined(_WIN32)
  PROCESS_MEMORY_COUNTERS counters;
  if (!GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters)) return -1;
  return static_cast<long>(counters.WorkingSetSize);
#else
  long pages = 0, resident = 0;
  FILE* f = std::fopen("/proc/self/statm", "r");
  if (!f) return -1;
  if (std::fscanf(f, "%ld %ld", &pages, &resident) != 2) resident = -1;
  std::fclose(f);
  return resident * sysconf(_SC_PAGESIZE);
#endif
}

double ThreadCpuMs() {
#if defined(_WIN32)
  FILETIME created, exited, kernel, user;
  if (!GetThreadTimes(GetCurrentThread(), &created, &exited, &kernel, &user)) return 0;
  auto ticks = [](const FILETIME& t) {
    return (static_cast<unsigned long long>(t.dwHighDateTime) << 32) | t.dwLowDateTime;
  };
  return static_cast<double>(ticks(kernel) + ticks(user)) / 1e4;  // 100 ns units
#else
  timespec t;
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
  return t.tv_sec * 1e3 + t.tv_nsec / 1e6;
#endif
}

std::string SystemMessage(unsigned long code) {
#if defined(_WIN32)
  char text[1024] = {};
  FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                 static_cast<DWORD>(code), 0, text, sizeof text, nullptr);
  return text;
#else
  return std::strerror(static_cast<int>(code));
#endif
}

unsigned long FileNotFoundCode() {
#if defined(_WIN32)
  return ERROR_FILE_NOT_FOUND;
#else
  return ENOENT;
#endif
}

std::string ReferenceUtf8(const unsigned short* text, std::size_t n, char sub) {
#if defined(_WIN32)
  // The system converter turns unpaired surrogates into U+FFFD: it is handed
  // one character at a time, and sub stands for each unpaired surrogate.
  std::string out;
  for (std::size_t i = 0; i < n; ++i) {
    bool high = text[i] >= 0xD800 && text[i] <= 0xDBFF;
    bool low = text[i] >= 0xDC00 && text[i] <= 0xDFFF;
    int count = high && i + 1 < n && text[i + 1] >= 0xDC00 && text[i + 1] <= 0xDFFF ? 2 : 1;
    if ((high || low) && count == 1) {
      out += sub;
      continue;
    }
    char bytes[8];
    int k = WideCharToMultiByte(CP_UTF8, 0, reinterpret_cast<const wchar_t*>(text + i), count,
                                bytes, sizeof bytes, nullptr, nullptr);
    out.append(bytes, static_cast<std::size_t>(k > 0 ? k : 0));
    i += static_cast<std::size_t>(count - 1);
  }
  return out;
#else
  std::string out(n * 3 + 1, '\0');
  int32_t length = 0;
  UErrorCode status = U_ZERO_ERROR;
  u_strToUTF8WithSub(&out[0], static_cast<int32_t>(out.size()), &length,
                     reinterpret_cast<const UChar*>(text), static_cast<int32_t>(n),
                     static_cast<unsigned char>(sub), nullptr, &status);
  out.resize(U_SUCCESS(status) ? static_cast<std::size_t>(length) : 0);
  return out;
#endif
}

std::u16string ReferenceUtf16(const char* utf8) {
#if defined(_WIN32)
  int units = MultiByteToWideChar(CP_UTF8, 0, utf8, -1, nullptr, 0);
  std::u16string out(units > 0 ? static_cast<std::size_t>(units) : 1, u'\0');
  MultiByteToWideChar(CP_UTF8, 0, utf8, -1, reinterpret_cast<wchar_t*>(&out[0]), units);
  out.resize(out.size() - 1);
  return out;
#else
  std::u16string out(std::strlen(utf8) + 1, u'\0');
  int32_t length = 0;
  UErrorCode status = U_ZERO_ERROR;
  u_strFromUTF8(reinterpret_cast<UChar*>(&out[0]), static_cast<int32_t>(out.size()), &length, utf8,
                -1, &status);
  out.resize(U_SUCCESS(status) ? static_cast<std::size_t>(length) : 0);
  return out;
#endif
}

int ReferenceUtf8Next(const char* bytes, int i, int n, int* next) {
#if defined(_WIN32)
  unsigned char lead = static_cast<unsigned char>(bytes[i]);
  int length = lead < 0x80   ? 1
               : lead < 0xC2 ? 0
               : lead < 0xE0 ? 2
               : lead < 0xF0 ? 3
               : lead < 0xF5 ? 4
                             : 0;
  *next = i + 1;
  if (length == 0 || n - i < length) return -1;
  wchar_t units[2];
  int count = MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, bytes + i, length, units, 2);
  if (count == 1 && (units[0] < 0xD800 || units[0] > 0xDFFF)) {
    *next = i + length;
    return units[0];
  }
  if (count == 2) {
    *next = i + length;
    return 0x10000 + ((units[0] - 0xD800) << 10) + (units[1] - 0xDC00);
  }
  return -1;
#else
  int32_t at = i;
  UChar32 c;
  U8_NEXT(reinterpret_cast<const uint8_t*>(bytes), at, n, c);
  *next = at;
  return c < 0 ? -1 : c;
#endif
}

}  // namespace vesk_test
