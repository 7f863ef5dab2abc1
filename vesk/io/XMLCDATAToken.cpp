#include "vesk/io/XMLCDATAToken.h"

namespace vesk {
namespace io {

using vesk::base::CUnicodeString;

VESK_IMPLEMENT_CLASS(CXMLCDATAToken, CXMLCDATAToken, "vesk::io::CXMLCDATAToken",
                     "vesk::io::CXMLToken")

CXMLCDATAToken::~CXMLCDATAToken() {}

}  // namespace io
}  // namespace vesk
