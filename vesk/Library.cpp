#include "vesk/Library.h"

#include "IO/IO.h"

namespace vesk {

namespace {
unsigned int g_initCount = 0;
}

int Initialize() {
  if (g_initCount == 0x7FFFFFFFu) return 0x7FFFFFFF;
  if (++g_initCount == 1) IO::Init(true, nullptr);
  return static_cast<int>(g_initCount);
}

int Terminate() {
  if (g_initCount == 0) return 0;
  if (--g_initCount == 0) IO::End();
  return static_cast<int>(g_initCount);
}

}  // namespace vesk
