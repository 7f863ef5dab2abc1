#include "vesk/io/XMLStartElementToken.h"

namespace vesk {
namespace io {

using vesk::base::CUnicodeString;

VESK_IMPLEMENT_CLASS(CXMLStartElementToken, CXMLStartElementToken,
                     "vesk::io::CXMLStartElementToken", "vesk::io::CXMLElementToken")

CXMLStartElementToken::~CXMLStartElementToken() {}

}  // namespace io
}  // namespace vesk
