#include "vesk/io/XMLReader.h"

#include <climits>

#include "vesk/base/BinaryData.h"
#include "vesk/base/Bool.h"
#include "vesk/base/MemoryException.h"
#include "vesk/io/IXMLSerializable.h"
#include "vesk/io/IXMLStartElementToken.h"
#include "vesk/io/XMLException.h"
#include "vesk/platform/Memory.h"
#include "vesk/platform/Number.h"
#include "vesk/platform/Throw.h"

namespace vesk {
namespace io {

using vesk::base::CBinaryData;
using vesk::base::CBool;
using vesk::base::CException;
using vesk::base::CMemoryException;
using vesk::base::CRef;
using vesk::base::CUnicodeString;

VESK_IMPLEMENT_CLASS(CXMLReader, CXMLReader, "vesk::io::CXMLReader", "vesk::base::CObject")

namespace {

const char kSource[] = "vesk/io/XMLReader";

// The current token's value, trimmed unless asked otherwise. A missing token
// is reported with the read's own message, an allocation failure as
// "Memory full.".
CUnicodeString FetchValue(const CXMLReader& reader, const char* failure, bool trim = true) {
  try {
    CUnicodeString value = reader.GetCurrentTokenValue();
    if (trim) {
      value.TrimLeft();
      value.TrimRight();
    }
    return value;
  } catch (const CMemoryException&) {
    VESK_THROW(kSource, CIOException, "Memory full.");
  } catch (const CException& e) {
    VESK_THROW(kSource, CXMLException, failure, e.GetErrorDescription());
  }
}

// Conversions of a trimmed value; each refuses with its literal message.
bool ToBool(const CUnicodeString& value) {
  if (value == CBool::WSZ_FALSE) return false;
  if (value == CBool::WSZ_TRUE) return true;
  VESK_THROW(kSource, CXMLException, "Invalid bool literal.");
}

long long ToSigned(const CUnicodeString& value, long long minimum, long long maximum, const char* invalid) {
  long long result = 0;
  if (!platform::ParseSigned(value, minimum, maximum, &result)) VESK_THROW(kSource, CXMLException, invalid);
  return result;
}

short ToShort(const CUnicodeString& value) {
  return static_cast<short>(ToSigned(value, SHRT_MIN, SHRT_MAX, "Invalid short literal."));
}

int ToLong(const CUnicodeString& value) {
  return static_cast<int>(ToSigned(value, INT_MIN, INT_MAX, "Invalid Int32 literal."));
}

long long ToInt64(const CUnicodeString& value) {
  return ToSigned(value, LLONG_MIN, LLONG_MAX, "Invalid Int64 literal.");
}

unsigned int ToUnsignedLong(const CUnicodeString& value) {
  unsigned long long result = 0;
  if (!platform::ParseUnsigned(value, UINT_MAX, &result))
    VESK_THROW(kSource, CXMLException, "Invalid UInt32 literal.");
  return static_cast<unsigned int>(result);
}

unsigned long long ToUInt64(const CUnicodeString& value) {
  unsigned long long result = 0;
  if (!platform::ScanUnsigned64(value, &result)) VESK_THROW(kSource, CXMLException, "Invalid UInt64 literal.");
  return result;
}

float ToFloat(const CUnicodeString& value) {
  float result = 0;
  if (!platform::ParseFloat(value, &result)) VESK_THROW(kSource, CXMLException, "Invalid float literal.");
  return result;
}

double ToDouble(const CUnicodeString& value) {
  double result = 0;
  if (!platform::ParseDouble(value, &result)) VESK_THROW(kSource, CXMLException, "Invalid double literal.");
  return result;
}

template <typename T>
T ReadValue(const CXMLReader& reader, T (*convert)(const CUnicodeString&), const char* failure) {
  return convert(FetchValue(reader, failure));
}

// The attribute list of the current token, which must be a start element.
const CXMLAttributeList& Attributes(const CXMLReader& reader) {
  const CRef<IXMLToken>& token = reader.GetCurrentToken();
  const IXMLStartElementToken* start = nullptr;
  if (!token.IsNull() && token->GetType() == XMLStartElement)
    start = dynamic_cast<const IXMLStartElementToken*>(token.Get());
  if (!start) VESK_THROW(kSource, CXMLException, "Attributes available only in start element nodes.");
  return start->GetAttributes();
}

template <typename T>
T ConvertAttribute(const CUnicodeString& value, T (*convert)(const CUnicodeString&)) {
  CUnicodeString trimmed(value);
  trimmed.TrimLeft();
  trimmed.TrimRight();
  return convert(trimmed);
}

template <typename T>
T AttrValue(const CXMLReader& reader, const unsigned short* localName, const unsigned short* namespaceURI,
            T (*convert)(const CUnicodeString&)) {
  return ConvertAttribute(Attributes(reader).Get(namespaceURI, localName), convert);
}

template <typename T>
T AttrValue(const CXMLReader& reader, const unsigned short* name, T (*convert)(const CUnicodeString&)) {
  return ConvertAttribute(Attributes(reader).Get(name), convert);
}

// The element moves of the one-call reads; a null namespace means the
// one-name overload.
void StartElement(CXMLReader& reader, const unsigned short* localName, const unsigned short* namespaceURI) {
  if (namespaceURI)
    reader.ReadStartElement(localName, namespaceURI);
  else
    reader.ReadStartElement(localName);
}

void EndElement(CXMLReader& reader, const unsigned short* localName, const unsigned short* namespaceURI) {
  if (namespaceURI)
    reader.ReadEndElement(localName, namespaceURI);
  else
    reader.ReadEndElement(localName);
}

template <typename T>
T ElementValue(CXMLReader& reader, const unsigned short* localName, const unsigned short* namespaceURI,
               T (CXMLReader::*read)() const) {
  StartElement(reader, localName, namespaceURI);
  reader.ReadElementText();
  T value = (reader.*read)();
  EndElement(reader, localName, namespaceURI);
  return value;
}

void ElementData(CXMLReader& reader, const unsigned short* localName, const unsigned short* namespaceURI,
                 void (CXMLReader::*read)(char*&, unsigned int&) const, char*& data, unsigned int& length) {
  StartElement(reader, localName, namespaceURI);
  reader.ReadElementText();
  char* block = nullptr;
  unsigned int size = 0;
  (reader.*read)(block, size);
  try {
    EndElement(reader, localName, namespaceURI);
  } catch (...) {
    platform::Free(block);
    throw;
  }
  data = block;
  length = size;
}

CUnicodeString ElementString(CXMLReader& reader, const unsigned short* localName,
                             const unsigned short* namespaceURI) {
  try {
    StartElement(reader, localName, namespaceURI);
    CUnicodeString text;
    if (reader.ReadElementTextIfAvailable()) text = reader.GetCurrentTokenValue();
    EndElement(reader, localName, namespaceURI);
    return text;
  } catch (const CException& e) {
    VESK_THROW(kSource, CXMLException, "Failed to read element with string content.", e.GetErrorDescription());
  }
}

}  // namespace

CXMLReader::~CXMLReader() {}

XMLTokenType CXMLReader::GetCurrentTokenType() const {
  const CRef<IXMLToken>& token = GetCurrentToken();
  return token.IsNull() ? static_cast<XMLTokenType>(0) : token->GetType();
}

CUnicodeString CXMLReader::GetCurrentTokenValue() const { return GetCurrentToken()->GetValue(); }

bool CXMLReader::ReadBool() const {
  return ReadValue(*this, ToBool, "Failed to read the value of current token as bool.");
}

short CXMLReader::ReadShort() const {
  return ReadValue(*this, ToShort, "Failed to read the value of current token as short.");
}

int CXMLReader::ReadLong() const {
  return ReadValue(*this, ToLong, "Failed to read the value of current token as Int32.");
}

unsigned int CXMLReader::ReadUnsignedLong() const {
  return ReadValue(*this, ToUnsignedLong, "Failed to read the value of current token as UInt32.");
}

long long CXMLReader::ReadInt64() const {
  return ReadValue(*this, ToInt64, "Failed to read the value of current token as Int64.");
}

unsigned long long CXMLReader::ReadUInt64() const {
  return ReadValue(*this, ToUInt64, "Failed to read the value of current token as UInt64.");
}

float CXMLReader::ReadFloat() const {
  return ReadValue(*this, ToFloat, "Failed to read the value of current token as float.");
}

double CXMLReader::ReadDouble() const {
  return ReadValue(*this, ToDouble, "Failed to read the value of current token as double.");
}

CUnicodeString CXMLReader::ReadString() const { return GetCurrentTokenValue(); }

void CXMLReader::ReadBinHex(char*& data, unsigned int& length) const {
  CUnicodeString text =
      FetchValue(*this, "Failed to read the value of current token as binhex encoded binary data.");
  try {
    CBinaryData::ParseBinHexUnicodeString(text, data, length);
  } catch (const CMemoryException&) {
    VESK_THROW(kSource, CIOException, "Memory full.");
  } catch (const CException&) {
    VESK_THROW(kSource, CXMLException, "Invalid binhex encoded string literal.");
  }
}

void CXMLReader::ReadBase64(char*& data, unsigned int& length) const {
  CUnicodeString text =
      FetchValue(*this, "Failed to read the value of current token as base64 encoded binary data.");
  try {
    CBinaryData::ParseBase64UnicodeString(text, data, length);
  } catch (const CMemoryException&) {
    VESK_THROW(kSource, CIOException, "Memory full.");
  } catch (const CException&) {
    VESK_THROW(kSource, CXMLException, "Invalid base64 encoded string literal.");
  }
}

bool CXMLReader::HasAttribute(const unsigned short* localName, const unsigned short* namespaceURI) const {
  return Attributes(*this).Contains(namespaceURI, localName);
}

bool CXMLReader::HasAttribute(const unsigned short* name) const { return Attributes(*this).Contains(name); }

CUnicodeString CXMLReader::ReadAttribute(const unsigned short* localName,
                                         const unsigned short* namespaceURI) const {
  return Attributes(*this).Get(namespaceURI, localName);
}

CUnicodeString CXMLReader::ReadAttribute(const unsigned short* name) const {
  return Attributes(*this).Get(name);
}

bool CXMLReader::ReadAttrBool(const unsigned short* localName, const unsigned short* namespaceURI) const {
  return AttrValue(*this, localName, namespaceURI, ToBool);
}

bool CXMLReader::ReadAttrBool(const unsigned short* name) const { return AttrValue(*this, name, ToBool); }

short CXMLReader::ReadAttrShort(const unsigned short* localName, const unsigned short* namespaceURI) const {
  return AttrValue(*this, localName, namespaceURI, ToShort);
}

short CXMLReader::ReadAttrShort(const unsigned short* name) const { return AttrValue(*this, name, ToShort); }

int CXMLReader::ReadAttrLong(const unsigned short* localName, const unsigned short* namespaceURI) const {
  return AttrValue(*this, localName, namespaceURI, ToLong);
}

int CXMLReader::ReadAttrLong(const unsigned short* name) const { return AttrValue(*this, name, ToLong); }

unsigned int CXMLReader::ReadAttrUnsignedLong(const unsigned short* localName,
                                              const unsigned short* namespaceURI) const {
  return AttrValue(*this, localName, namespaceURI, ToUnsignedLong);
}

unsigned int CXMLReader::ReadAttrUnsignedLong(const unsigned short* name) const {
  return AttrValue(*this, name, ToUnsignedLong);
}

float CXMLReader::ReadAttrFloat(const unsigned short* localName, const unsigned short* namespaceURI) const {
  return AttrValue(*this, localName, namespaceURI, ToFloat);
}

float CXMLReader::ReadAttrFloat(const unsigned short* name) const { return AttrValue(*this, name, ToFloat); }

double CXMLReader::ReadAttrDouble(const unsigned short* localName, const unsigned short* namespaceURI) const {
  return AttrValue(*this, localName, namespaceURI, ToDouble);
}

double CXMLReader::ReadAttrDouble(const unsigned short* name) const { return AttrValue(*this, name, ToDouble); }

void CXMLReader::ReadCDATA(CUnicodeString& text) {
  if (!ReadToken()) VESK_THROW(kSource, CXMLException, "End of stream reached.");
  if (GetCurrentTokenType() != XMLCDATA) VESK_THROW(kSource, CXMLException, "Failed to read the CDATA section.");
  text = GetCurrentTokenValue();
}

CUnicodeString CXMLReader::ReadCDATA() {
  CUnicodeString text;
  ReadCDATA(text);
  return text;
}

bool CXMLReader::ReadElementBool(const unsigned short* localName, const unsigned short* namespaceURI) {
  return ElementValue(*this, localName, namespaceURI, &CXMLReader::ReadBool);
}

bool CXMLReader::ReadElementBool(const unsigned short* localName) {
  return ElementValue(*this, localName, nullptr, &CXMLReader::ReadBool);
}

short CXMLReader::ReadElementShort(const unsigned short* localName, const unsigned short* namespaceURI) {
  return ElementValue(*this, localName, namespaceURI, &CXMLReader::ReadShort);
}

short CXMLReader::ReadElementShort(const unsigned short* localName) {
  return ElementValue(*this, localName, nullptr, &CXMLReader::ReadShort);
}

int CXMLReader::ReadElementLong(const unsigned short* localName, const unsigned short* namespaceURI) {
  return ElementValue(*this, localName, namespaceURI, &CXMLReader::ReadLong);
}

int CXMLReader::ReadElementLong(const unsigned short* localName) {
  return ElementValue(*this, localName, nullptr, &CXMLReader::ReadLong);
}

unsigned int CXMLReader::ReadElementUnsignedLong(const unsigned short* localName,
                                                 const unsigned short* namespaceURI) {
  return ElementValue(*this, localName, namespaceURI, &CXMLReader::ReadUnsignedLong);
}

unsigned int CXMLReader::ReadElementUnsignedLong(const unsigned short* localName) {
  return ElementValue(*this, localName, nullptr, &CXMLReader::ReadUnsignedLong);
}

long long CXMLReader::ReadElementInt64(const unsigned short* localName, const unsigned short* namespaceURI) {
  return ElementValue(*this, localName, namespaceURI, &CXMLReader::ReadInt64);
}

long long CXMLReader::ReadElementInt64(const unsigned short* localName) {
  return ElementValue(*this, localName, nullptr, &CXMLReader::ReadInt64);
}

unsigned long long CXMLReader::ReadElementUInt64(const unsigned short* localName,
                                                 const unsigned short* namespaceURI) {
  return ElementValue(*this, localName, namespaceURI, &CXMLReader::ReadUInt64);
}

unsigned long long CXMLReader::ReadElementUInt64(const unsigned short* localName) {
  return ElementValue(*this, localName, nullptr, &CXMLReader::ReadUInt64);
}

float CXMLReader::ReadElementFloat(const unsigned short* localName, const unsigned short* namespaceURI) {
  return ElementValue(*this, localName, namespaceURI, &CXMLReader::ReadFloat);
}

float CXMLReader::ReadElementFloat(const unsigned short* localName) {
  return ElementValue(*this, localName, nullptr, &CXMLReader::ReadFloat);
}

double CXMLReader::ReadElementDouble(const unsigned short* localName, const unsigned short* namespaceURI) {
  return ElementValue(*this, localName, namespaceURI, &CXMLReader::ReadDouble);
}

double CXMLReader::ReadElementDouble(const unsigned short* localName) {
  return ElementValue(*this, localName, nullptr, &CXMLReader::ReadDouble);
}

CUnicodeString CXMLReader::ReadElementString(const unsigned short* localName,
                                             const unsigned short* namespaceURI) {
  return ElementString(*this, localName, namespaceURI);
}

CUnicodeString CXMLReader::ReadElementString(const unsigned short* localName) {
  return ElementString(*this, localName, nullptr);
}

void CXMLReader::ReadElementBinHex(const unsigned short* localName, const unsigned short* namespaceURI,
                                   char*& data, unsigned int& length) {
  ElementData(*this, localName, namespaceURI, &CXMLReader::ReadBinHex, data, length);
}

void CXMLReader::ReadElementBinHex(const unsigned short* localName, char*& data, unsigned int& length) {
  ElementData(*this, localName, nullptr, &CXMLReader::ReadBinHex, data, length);
}

void CXMLReader::ReadElementBase64(const unsigned short* localName, const unsigned short* namespaceURI,
                                   char*& data, unsigned int& length) {
  ElementData(*this, localName, namespaceURI, &CXMLReader::ReadBase64, data, length);
}

void CXMLReader::ReadElementBase64(const unsigned short* localName, char*& data, unsigned int& length) {
  ElementData(*this, localName, nullptr, &CXMLReader::ReadBase64, data, length);
}

void CXMLReader::ReadObject(IXMLSerializable& object) { object.ReadXML(*this); }

}  // namespace io
}  // namespace vesk
