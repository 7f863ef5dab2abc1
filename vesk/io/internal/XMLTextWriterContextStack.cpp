#include "vesk/io/internal/XMLTextWriterContextStack.h"

#include "vesk/platform/Throw.h"
#include "vesk/util/NoSuchElementException.h"
#include "vesk/util/internal/SlotArray.h"

namespace vesk {
namespace io {
namespace internal {

using vesk::base::CUnicodeString;
using vesk::util::CNoSuchElementException;

namespace {

const char kSource[] = "vesk/io/XMLTextWriterContextStack";
const unsigned int kInitialCapacity = 10;
const unsigned int kGrowthStep = 5;
// The prefix map of a context that declares one: capacity 10, step 5.
const unsigned int kPrefixCapacity = 10;

}  // namespace

CXMLTextWriterContextStack::CXMLTextWriterContextStack()
    : m_contexts(nullptr), m_size(0), m_made(0), m_capacity(0) {
  util::internal::AllocSlots(m_contexts, m_capacity, kInitialCapacity, kGrowthStep, kSource,
                             __LINE__);
}

CXMLTextWriterContextStack::~CXMLTextWriterContextStack() {
  for (unsigned int i = 0; i < m_made; ++i) delete m_contexts[i];
  util::internal::FreeSlots(m_contexts, m_capacity);
}

CXMLTextWriterContext& CXMLTextWriterContextStack::Push(const unsigned short* qualifiedName,
                                                        unsigned int length) {
  if (m_size == m_made) {
    util::internal::EnsureSlots(m_contexts, m_capacity, m_made + 1, kGrowthStep, kSource, __LINE__);
    m_contexts[m_made] = new CXMLTextWriterContext();
    ++m_made;
  }
  CXMLTextWriterContext& context = *m_contexts[m_size];
  context.qualifiedName.Set(qualifiedName, length);
  ++m_size;
  return context;
}

CXMLTextWriterContext& CXMLTextWriterContextStack::Peek() {
  if (m_size == 0) VESK_THROW(kSource, CNoSuchElementException);
  return *m_contexts[m_size - 1];
}

void CXMLTextWriterContextStack::Pop() {
  CXMLTextWriterContext& context = Peek();
  --m_size;
  bool declared = context.HasDeclarations();
  context.defaultNamespace.Empty();
  context.hasDefaultNamespace = false;
  context.prefixes.RemoveAll();
  // A context without declarations changed neither cached string.
  if (declared) Refresh();
}

void CXMLTextWriterContextStack::DeclareDefaultNamespace(const unsigned short* namespaceURI) {
  CXMLTextWriterContext& context = Peek();
  CUnicodeString uri(namespaceURI);
  context.defaultNamespace = uri;
  context.hasDefaultNamespace = true;
  Refresh();
}

void CXMLTextWriterContextStack::BindPrefix(const unsigned short* prefix,
                                            const unsigned short* namespaceURI) {
  CXMLTextWriterContext& context = Peek();
  if (context.prefixes.GetCapacity() == 0) context.prefixes.EnsureCapacity(kPrefixCapacity);
  context.prefixes.Put(prefix, namespaceURI);
  Refresh();
}

void CXMLTextWriterContextStack::UndeclareDefaultNamespace() {
  CXMLTextWriterContext& context = Peek();
  context.defaultNamespace.Empty();
  context.hasDefaultNamespace = false;
  Refresh();
}

void CXMLTextWriterContextStack::UnbindPrefix(const unsigned short* prefix) {
  Peek().prefixes.Remove(prefix);
  Refresh();
}

void CXMLTextWriterContextStack::Refresh() {
  // Copies share buffers: nothing here allocates.
  CUnicodeString innermost;
  CUnicodeString defaultNamespace;
  bool innermostFound = false;
  for (unsigned int i = m_size; i-- > 0;) {
    const CXMLTextWriterContext& context = *m_contexts[i];
    if (!innermostFound && context.HasDeclarations()) {
      innermost =
          context.hasDefaultNamespace ? context.defaultNamespace : context.prefixes.GetAt(0);
      innermostFound = true;
    }
    if (context.hasDefaultNamespace) {
      defaultNamespace = context.defaultNamespace;
      break;
    }
  }
  m_namespace = innermost;
  m_defaultNamespace = defaultNamespace;
}

const CUnicodeString* CXMLTextWriterContextStack::FindPrefix(
    const unsigned short* namespaceURI) const {
  for (unsigned int i = m_size; i-- > 0;) {
    const util::CUnicodeStringMap& prefixes = m_contexts[i]->prefixes;
    for (unsigned int k = 0; k < prefixes.GetSize(); ++k) {
      if (prefixes.GetAt(k) != namespaceURI) continue;
      const CUnicodeString& prefix = prefixes.GetKeyAt(k);
      bool shadowed = false;
      for (unsigned int j = i + 1; j < m_size && !shadowed; ++j)
        shadowed = m_contexts[j]->prefixes.ContainsKey(prefix);
      if (!shadowed) return &prefix;
    }
  }
  return nullptr;
}

const CUnicodeString& CXMLTextWriterContextStack::GetPrefix(
    const unsigned short* namespaceURI) const {
  const CUnicodeString* prefix = FindPrefix(namespaceURI);
  if (!prefix) VESK_THROW(kSource, CNoSuchElementException);
  return *prefix;
}

const CUnicodeString* CXMLTextWriterContextStack::FindNamespaceOfPrefix(
    const unsigned short* prefix) const {
  for (unsigned int i = m_size; i-- > 0;) {
    const util::CUnicodeStringMap& prefixes = m_contexts[i]->prefixes;
    int index = prefixes.GetIndexOfKey(prefix);
    if (index >= 0) return &prefixes.GetAt(static_cast<unsigned int>(index));
  }
  return nullptr;
}

}  // namespace internal
}  // namespace io
}  // namespace vesk
