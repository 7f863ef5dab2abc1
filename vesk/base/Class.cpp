#include "vesk/base/Class.h"

#include <cstring>

#include "vesk/base/ClassManager.h"
#include "vesk/base/InstantiationException.h"
#include "vesk/base/MemoryException.h"
#include "vesk/base/Object.h"
#include "vesk/platform/Throw.h"

namespace vesk {
namespace base {

CClass::CClass(const char* qualifiedName, const char* baseName1, const char* baseName2,
               const char* baseName3, unsigned int size, Constructor constructor)
    : m_qualifiedName(qualifiedName),
      m_size(size),
      m_constructor(constructor),
      m_previous(nullptr),
      m_next(nullptr) {
  m_baseName[0] = baseName1;
  m_baseName[1] = baseName2;
  m_baseName[2] = baseName3;
  m_baseClass[0] = m_baseClass[1] = m_baseClass[2] = nullptr;
  if (IClassManager* manager = CClassManager::GetInstance()) manager->Register(this);
}

CClass::~CClass() {
  if (IClassManager* manager = CClassManager::GetInstance()) manager->Unregister(this);
}

const char* CClass::GetName() const {
  if (!m_qualifiedName) return nullptr;
  const char* colon = std::strrchr(m_qualifiedName, ':');
  return colon ? colon + 1 : m_qualifiedName;
}

const CClass* CClass::ResolveBase(int index) const {
  if (m_baseName[index] && !m_baseClass[index]) m_baseClass[index] = FindClass(m_baseName[index]);
  return m_baseClass[index];
}

bool CClass::IsInstanceOf(const CClass* cls) const {
  if (!cls) return false;
  if (cls == this) return true;
  for (int i = 0; i < 3; ++i) {
    const CClass* base = ResolveBase(i);
    if (base && base->IsInstanceOf(cls)) return true;
  }
  return false;
}

CObject* CClass::CreateNewInstance() const {
  if (!m_constructor)
    VESK_THROW("vesk/base/Class", CInstantiationException,
               "Attempt to instantiate an interface or an abstract class.", nullptr,
               m_qualifiedName);
  CObject* object = m_constructor();
  if (!object) VESK_THROW("vesk/base/Class", CMemoryException);
  return object;
}

const CClass* CClass::FindClass(const char* name) {
  IClassManager* manager = CClassManager::GetInstance();
  return manager ? manager->FindClass(name) : nullptr;
}

}  // namespace base
}  // namespace vesk
