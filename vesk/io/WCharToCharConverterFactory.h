/// \file
/// CWCharToCharConverterFactory: the process-wide registry of converter
/// factories, keyed by encoding name.
#ifndef VESK_IO_WCHARTOCHARCONVERTERFACTORY_H
#define VESK_IO_WCHARTOCHARCONVERTERFACTORY_H

#include "vesk/base/Base.h"
#include "vesk/base/Ref.h"
#include "vesk/base/String.h"
#include "vesk/io/WCharToCharConverter.h"
#include "vesk/util/Hashtable.h"

namespace vesk {
namespace io {

/// Creates converters of one encoding. A factory registers itself under its
/// name when constructed and removes itself when destroyed, so a static
/// factory object makes an encoding available for the life of its module.
/// Names match exactly, byte for byte ("UTF-8" is not "utf-8").
///
/// The registry has no lock: register while no other thread looks names up
/// (in practice, during static initialisation and unload).
class VESK_API CWCharToCharConverterFactory : public vesk::base::CBase {
 public:
  /// The registry: encoding name to factory. It is the same table that the
  /// static operations use and is built on first use, so factories of any
  /// module may register during static initialisation in any order.
  static vesk::util::CHashtable<vesk::base::CString, CWCharToCharConverterFactory*>&
      m_theConverterFactories;

  /// Unregisters the factory.
  virtual ~CWCharToCharConverterFactory();

  /// A new converter of the factory's encoding.
  virtual vesk::base::CRef<CWCharToCharConverter> CreateConverter() = 0;

  /// The name the factory is registered under (the caller's pointer).
  const char* GetEncoding() const { return m_encoding; }

  /// The factory registered under name, or null. Throws
  /// CIllegalArgumentException "Invalid encoding." for a null or empty name.
  static CWCharToCharConverterFactory* GetConverterFactory(const char* name);
  /// The factory registered under name, or null (also for an empty name).
  static CWCharToCharConverterFactory* GetConverterFactory(const vesk::base::CString& name);
  /// Registers factory under its name, replacing an earlier factory of the
  /// same name. False for null or when memory runs out.
  static bool RegisterConverterFactory(CWCharToCharConverterFactory* factory);
  /// Removes the entry under factory's name. False for null or when no
  /// factory is registered under that name.
  static bool UnregisterConverterFactory(CWCharToCharConverterFactory* factory);

 protected:
  /// Keeps the pointer encoding (it is not copied: pass a string that
  /// outlives the factory, such as a literal) and registers the factory.
  /// Throws CIllegalArgumentException "Invalid encoding." for a null or
  /// empty name.
  explicit CWCharToCharConverterFactory(const char* encoding);

 private:
  CWCharToCharConverterFactory(const CWCharToCharConverterFactory&);
  CWCharToCharConverterFactory& operator=(const CWCharToCharConverterFactory&);

  const char* m_encoding;
};

}  // namespace io
}  // namespace vesk

#endif
