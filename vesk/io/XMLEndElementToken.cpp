#include "vesk/io/XMLEndElementToken.h"

namespace vesk {
namespace io {

using vesk::base::CUnicodeString;

VESK_IMPLEMENT_CLASS(CXMLEndElementToken, CXMLEndElementToken, "vesk::io::CXMLEndElementToken",
                     "vesk::io::CXMLElementToken")

CXMLEndElementToken::~CXMLEndElementToken() {}

}  // namespace io
}  // namespace vesk
