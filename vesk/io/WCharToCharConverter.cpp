#include "vesk/io/WCharToCharConverter.h"

#include "vesk/base/IllegalArgumentException.h"
#include "vesk/io/UnsupportedEncodingException.h"
#include "vesk/io/WCharToCharConverterFactory.h"
#include "vesk/platform/Throw.h"

namespace vesk {
namespace io {

using vesk::base::CIllegalArgumentException;
using vesk::base::CRef;
using vesk::base::CString;

VESK_IMPLEMENT_CLASS(CWCharToCharConverter, CWCharToCharConverter,
                     "vesk::io::CWCharToCharConverter", "vesk::base::CObject")

CWCharToCharConverter::CWCharToCharConverter(const char* encoding) {
  if (!encoding || !*encoding) {
    VESK_THROW("vesk/io/WCharToCharConverter", CIllegalArgumentException, "Invalid encoding.");
  }
  m_encoding = encoding;
}

CWCharToCharConverter::CWCharToCharConverter(const CString& encoding) {
  if (encoding.GetLength() == 0) {
    VESK_THROW("vesk/io/WCharToCharConverter", CIllegalArgumentException, "Invalid encoding.");
  }
  m_encoding = encoding;
}

CWCharToCharConverter::CWCharToCharConverter(const CWCharToCharConverter& other)
    : vesk::base::CObject(other), m_encoding(other.m_encoding) {}

CWCharToCharConverter& CWCharToCharConverter::operator=(const CWCharToCharConverter& other) {
  if (this != &other) m_encoding = other.m_encoding;
  return *this;
}

CWCharToCharConverter::~CWCharToCharConverter() {}

CRef<CWCharToCharConverter> CWCharToCharConverter::GetConverter(const char* name) {
  if (!name || !*name) {
    VESK_THROW("vesk/io/WCharToCharConverter", CIllegalArgumentException, "Invalid encoding.");
  }
  CWCharToCharConverterFactory* factory = CWCharToCharConverterFactory::GetConverterFactory(name);
  if (!factory) VESK_THROW("vesk/io/WCharToCharConverter", CUnsupportedEncodingException, name);
  return factory->CreateConverter();
}

CRef<CWCharToCharConverter> CWCharToCharConverter::GetConverter(const CString& name) {
  CWCharToCharConverterFactory* factory = CWCharToCharConverterFactory::GetConverterFactory(name);
  if (!factory) {
    VESK_THROW("vesk/io/WCharToCharConverter", CUnsupportedEncodingException,
               static_cast<const char*>(name));
  }
  return factory->CreateConverter();
}

}  // namespace io
}  // namespace vesk
