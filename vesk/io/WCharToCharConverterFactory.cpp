#include "vesk/io/WCharToCharConverterFactory.h"

#include "vesk/base/IllegalArgumentException.h"
#include "vesk/base/MemoryException.h"
#include "vesk/platform/Throw.h"

namespace vesk {
namespace io {

using vesk::base::CIllegalArgumentException;
using vesk::base::CString;

namespace {

typedef vesk::util::CHashtable<CString, CWCharToCharConverterFactory*> CFactoryTable;

// Built on first use: the first factory to register may be a static object
// of any translation unit or module. The table is finished before that
// factory's constructor is, so it is destroyed after every static factory
// that registered in it.
CFactoryTable& Factories() {
  static CFactoryTable table;
  return table;
}

}  // namespace

CFactoryTable& CWCharToCharConverterFactory::m_theConverterFactories = Factories();

CWCharToCharConverterFactory::CWCharToCharConverterFactory(const char* encoding)
    : m_encoding(encoding) {
  if (!encoding || !*encoding) {
    VESK_THROW("vesk/io/WCharToCharConverterFactory", CIllegalArgumentException,
               "Invalid encoding.");
  }
  RegisterConverterFactory(this);
}

CWCharToCharConverterFactory::~CWCharToCharConverterFactory() { UnregisterConverterFactory(this); }

CWCharToCharConverterFactory* CWCharToCharConverterFactory::GetConverterFactory(const char* name) {
  if (!name || !*name) {
    VESK_THROW("vesk/io/WCharToCharConverterFactory", CIllegalArgumentException,
               "Invalid encoding.");
  }
  CWCharToCharConverterFactory* const* found = Factories().Find(name);
  return found ? *found : nullptr;
}

CWCharToCharConverterFactory* CWCharToCharConverterFactory::GetConverterFactory(
    const CString& name) {
  CWCharToCharConverterFactory* const* found = Factories().Find(name);
  return found ? *found : nullptr;
}

bool CWCharToCharConverterFactory::RegisterConverterFactory(CWCharToCharConverterFactory* factory) {
  if (!factory) return false;
  try {
    Factories().Put(CString(factory->m_encoding), factory);
  } catch (vesk::base::CMemoryException&) {
    return false;
  }
  return true;
}

bool CWCharToCharConverterFactory::UnregisterConverterFactory(
    CWCharToCharConverterFactory* factory) {
  if (!factory) return false;
  return Factories().Remove(factory->m_encoding);
}

}  // namespace io
}  // namespace vesk
