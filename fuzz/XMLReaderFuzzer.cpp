// CXMLTextReader on arbitrary bytes: every token is read and put through the
// typed reads and attribute reads; every failure must be an exception of the
// library. Bytes to tokens to typed values, the way a client uses the reader.
#include <cstdint>

#include "FuzzCommon.h"
#include "vesk/base/Exception.h"
#include "vesk/io/IXMLStartElementToken.h"
#include "vesk/io/MemoryInputStream.h"
#include "vesk/io/XMLPushbackReader.h"
#include "vesk/io/XMLTextReader.h"

using vesk::base::CException;
using vesk::base::CRef;
using namespace vesk::io;

namespace {

// Each typed read of the current token; failures are expected, crashes not.
void TypedReads(CXMLReader& reader) {
  char* data = nullptr;
  unsigned int length = 0;
  try { reader.ReadBool(); } catch (const CException&) {}
  try { reader.ReadShort(); } catch (const CException&) {}
  try { reader.ReadLong(); } catch (const CException&) {}
  try { reader.ReadUnsignedLong(); } catch (const CException&) {}
  try { reader.ReadInt64(); } catch (const CException&) {}
  try { reader.ReadUInt64(); } catch (const CException&) {}
  try { reader.ReadFloat(); } catch (const CException&) {}
  try { reader.ReadDouble(); } catch (const CException&) {}
  try {
    reader.ReadBinHex(data, length);
    vesk::platform::Free(data);
  } catch (const CException&) {}
  try {
    reader.ReadBase64(data, length);
    vesk::platform::Free(data);
  } catch (const CException&) {}
}

void Attributes(CXMLReader& reader) {
  const IXMLStartElementToken* start =
      dynamic_cast<const IXMLStartElementToken*>(reader.GetCurrentToken().Get());
  FUZZ_CHECK(start != nullptr);
  const CXMLAttributeList& list = start->GetAttributes();
  for (unsigned int i = 0; i < list.GetCount(); ++i) {
    const CXMLAttribute& a = list.GetAt(i);
    FUZZ_CHECK(reader.HasAttribute(a.GetQualifiedName()));
    FUZZ_CHECK(reader.ReadAttribute(a.GetQualifiedName()) == list.Get(a.GetQualifiedName()));
    try { reader.ReadAttrLong(a.GetQualifiedName()); } catch (const CException&) {}
    try { reader.ReadAttrDouble(a.GetLocalName(), a.GetNamespaceURI()); } catch (const CException&) {}
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* input, size_t size) {
  if (size == 0) return 0;
  // The first byte picks how the tokens are taken: one by one, or through a
  // push-back reader that gives every other token back once.
  bool pushback = input[0] & 1;
  CMemoryInputStream source(reinterpret_cast<const char*>(input + 1), static_cast<unsigned int>(size - 1), false);
  try {
    CRef<CXMLReader> text(new CXMLTextReader(&source));
    CRef<CXMLReader> reader = text;
    CXMLPushbackReader* back = nullptr;
    if (pushback) {
      back = new CXMLPushbackReader(text, 4);
      reader = CRef<CXMLReader>(back);
    }
    unsigned int count = 0;
    while (reader->ReadToken()) {
      if (back && ++count % 2 == 0) {
        back->UnreadToken();
        FUZZ_CHECK(reader->ReadToken());
      }
      if (reader->GetCurrentTokenType() == XMLStartElement) Attributes(*reader);
      TypedReads(*reader);
    }
    FUZZ_CHECK(!reader->ReadToken());
    reader->Close();
  } catch (const CException&) {
  }
  return 0;
}
