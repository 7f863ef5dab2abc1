/// \file
/// The open elements of an XML text writer and their namespace scopes.
#ifndef VESK_IO_INTERNAL_XMLTEXTWRITERCONTEXTSTACK_H
#define VESK_IO_INTERNAL_XMLTEXTWRITERCONTEXTSTACK_H

#include "vesk/base/Base.h"
#include "vesk/base/UnicodeString.h"
#include "vesk/util/UnicodeStringMap.h"

namespace vesk {
namespace io {
namespace internal {

/// One open element: the name its end tag prints and the namespaces its
/// start tag declared.
class CXMLTextWriterContext : public vesk::base::CBase {
 public:
  CXMLTextWriterContext() : hasDefaultNamespace(false) {}

  bool HasDeclarations() const { return hasDefaultNamespace || !prefixes.IsEmpty(); }

  vesk::base::CUnicodeString qualifiedName;
  vesk::base::CUnicodeString defaultNamespace;
  bool hasDefaultNamespace;
  /// Prefix to namespace URI, as declared on this element.
  vesk::util::CUnicodeStringMap prefixes;
};

/// The contexts of the open elements, innermost last, and two cached
/// strings: the namespace of the innermost element and the default
/// namespace in scope. After a pop both are recomputed from the remaining
/// contexts, innermost outward: the first default declaration gives the
/// default namespace; the first context that declares anything gives the
/// innermost namespace (its default declaration, else its first prefix);
/// what is not found is empty. Popped contexts are kept for the next push,
/// so a document of steady depth allocates nothing per element.
///
/// Lookups that find nothing throw CNoSuchElementException (source
/// "vesk/io/XMLTextWriterContextStack"); allocation failures throw
/// CMemoryException and leave the stack as it was.
class CXMLTextWriterContextStack : public vesk::base::CBase {
 public:
  CXMLTextWriterContextStack();
  ~CXMLTextWriterContextStack();

  unsigned int GetSize() const { return m_size; }
  bool IsEmpty() const { return m_size == 0; }

  /// A new innermost context with this name and no declarations.
  CXMLTextWriterContext& Push(const unsigned short* qualifiedName, unsigned int length);
  /// The innermost context.
  CXMLTextWriterContext& Peek();
  /// Removes the innermost context.
  void Pop();

  const vesk::base::CUnicodeString& GetNamespace() const { return m_namespace; }
  const vesk::base::CUnicodeString& GetDefaultNamespace() const { return m_defaultNamespace; }

  /// Declares the default namespace on the innermost context.
  void DeclareDefaultNamespace(const unsigned short* namespaceURI);
  /// Binds prefix to namespaceURI on the innermost context.
  void BindPrefix(const unsigned short* prefix, const unsigned short* namespaceURI);
  /// Undo the two declarations above on the innermost context (after a
  /// print that failed).
  void UndeclareDefaultNamespace();
  void UnbindPrefix(const unsigned short* prefix);

  /// The prefix bound to namespaceURI in the innermost scope that binds it
  /// (a prefix rebound further in does not count); null when none.
  const vesk::base::CUnicodeString* FindPrefix(const unsigned short* namespaceURI) const;
  /// FindPrefix, throwing when there is none.
  const vesk::base::CUnicodeString& GetPrefix(const unsigned short* namespaceURI) const;
  /// The namespace prefix is bound to in the innermost scope that binds
  /// it; null when none.
  const vesk::base::CUnicodeString* FindNamespaceOfPrefix(const unsigned short* prefix) const;

 private:
  CXMLTextWriterContextStack(const CXMLTextWriterContextStack&);
  CXMLTextWriterContextStack& operator=(const CXMLTextWriterContextStack&);
  void Refresh();

  CXMLTextWriterContext** m_contexts;
  unsigned int m_size;
  /// Contexts made so far (the ones above m_size wait for reuse).
  unsigned int m_made;
  unsigned int m_capacity;
  vesk::base::CUnicodeString m_namespace;
  vesk::base::CUnicodeString m_defaultNamespace;
};

}  // namespace internal
}  // namespace io
}  // namespace vesk

#endif
