/// \file
/// CClassManager: the process-wide class registry.
#ifndef VESK_BASE_CLASSMANAGER_H
#define VESK_BASE_CLASSMANAGER_H

#include "vesk/base/IClassManager.h"

namespace vesk {
namespace base {

/// The registry: a list of descriptors, most recently registered first, and
/// a name index that is given up at the first registration (from then on
/// every lookup walks the list by qualified name). One instance per process,
/// created on first use and destroyed when the library is unloaded.
class VESK_API CClassManager : public IClassManager {
 public:
  /// The registry; null once it has been destroyed at unload.
  static IClassManager* GetInstance();

  /// An empty registry, with its name index when the index can be allocated.
  /// Clients use GetInstance.
  CClassManager();
  /// Drops the index; the descriptors themselves are static and stay.
  ~CClassManager() override;

  /// Adds cls at the head of the list; null is ignored. The first
  /// registration gives the name index up.
  void Register(CClass* cls) override;
  /// Removes cls; null or a descriptor not registered here is ignored.
  void Unregister(CClass* cls) override;
  const CClass* FindClass(const char* name) override;
  CObject* CreateInstance(const char* name) override;
  CObject* CreateInstance(const CClass* cls) override;

  /// Number of registered descriptors.
  unsigned int GetCount() const { return m_count; }
  /// 1 while the name index is in use, 0 once lookups walk the list.
  unsigned int GetIndexMode() const { return m_indexMode; }

 private:
  struct Entry;
  CClassManager(const CClassManager&);
  CClassManager& operator=(const CClassManager&);

  bool BuildIndex();
  bool IndexInsert(const char* key, const CClass* value);
  void IndexRemove(const char* key);
  const CClass* IndexFind(const char* key) const;
  bool Rehash();
  void DropIndex();

  CClass* m_head;
  unsigned int m_count;
  unsigned int m_indexMode;
  // Name index: chained hash table keyed by name pointer identity.
  unsigned int m_bucketCount;
  unsigned int m_entryCount;
  unsigned int m_threshold;
  float m_loadFactor;
  Entry** m_buckets;
};

}  // namespace base
}  // namespace vesk

#endif
