#include "vesk/base/Bool.h"

namespace vesk {
namespace base {

VESK_IMPLEMENT_CLASS(CBool, CBool, "vesk::base::CBool", "vesk::base::CObject")

namespace {
// The 16-bit texts are constant data of the library, ready before any
// client code runs.
const unsigned short kTrue16[] = {'t', 'r', 'u', 'e', 0};
const unsigned short kFalse16[] = {'f', 'a', 'l', 's', 'e', 0};
}  // namespace

const char* const CBool::SZ_TRUE = "true";
const char* const CBool::SZ_FALSE = "false";
const unsigned short* const CBool::WSZ_TRUE = kTrue16;
const unsigned short* const CBool::WSZ_FALSE = kFalse16;

}  // namespace base
}  // namespace vesk
