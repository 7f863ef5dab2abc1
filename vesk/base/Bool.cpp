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

// Defined once more here so that the DLL exports them: a client that binds the
// constants to a reference (EXPECT_EQ does) imports them on Windows.
constexpr unsigned int CBool::CC_TRUE;
constexpr unsigned int CBool::CC_FALSE;
constexpr unsigned int CBool::WCC_TRUE;
constexpr unsigned int CBool::WCC_FALSE;

}  // namespace base
}  // namespace vesk
