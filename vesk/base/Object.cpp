#include "vesk/base/Object.h"

#include <cstdint>

namespace vesk {
namespace base {

CClass CObject::m_classCObject("vesk::base::CObject", nullptr, nullptr, nullptr, sizeof(CObject),
                               nullptr);

CObject::~CObject() {}

const CClass* CObject::GetClass() const { return &m_classCObject; }

int CObject::GetHashCode() const {
  std::uint64_t address = reinterpret_cast<std::uintptr_t>(this);
  return static_cast<int>(static_cast<std::uint32_t>((address >> 32) + address));
}

bool CObject::Equals(const CObject* other) const { return this == other; }

CObject* CObject::Clone() const { return nullptr; }

bool CObject::IsInstanceOf(const CClass* cls) const {
  const CClass* mine = GetClass();
  return mine ? mine->IsInstanceOf(cls) : false;
}

}  // namespace base
}  // namespace vesk
