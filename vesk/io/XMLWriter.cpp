#include "vesk/io/XMLWriter.h"

#include "vesk/base/BinaryData.h"
#include "vesk/base/Bool.h"
#include "vesk/base/UnicodeString.h"
#include "vesk/io/IXMLSerializable.h"
#include "vesk/platform/Format16.h"

namespace vesk {
namespace io {

using vesk::base::CBinaryData;
using vesk::base::CBool;
using vesk::base::CUnicodeString;

VESK_IMPLEMENT_CLASS(CXMLWriter, CXMLWriter, "vesk::io::CXMLWriter", "vesk::base::CObject")

CXMLWriter::~CXMLWriter() {}

namespace {

// The default texts. The historic "%ld" / "%lu" of a 32-bit long are "%d" /
// "%u" here; "%lf" is "%f".
const unsigned short kFormatD[] = {'%', 'd', 0};
const unsigned short kFormatU[] = {'%', 'u', 0};
const unsigned short kFormatF[] = {'%', 'f', 0};

/// A value formatted into a buffer of 256 units.
class CValueText {
 public:
  template <class T>
  CValueText(const unsigned short* format, T value) {
    m_text[0] = 0;
    platform::Utf16Format(m_text, kSize, format, value);
  }
  explicit CValueText(bool value) {
    const unsigned short* text = value ? CBool::WSZ_TRUE : CBool::WSZ_FALSE;
    unsigned int i = 0;
    for (; text[i]; ++i) m_text[i] = text[i];
    m_text[i] = 0;
  }
  operator const unsigned short*() const { return m_text; }

 private:
  static const unsigned int kSize = 256;
  unsigned short m_text[kSize];
};

CUnicodeString Base64Text(const char* data, unsigned int offset, unsigned int length) {
  return CBinaryData::ToBase64UnicodeString(data ? data + offset : nullptr, length);
}

CUnicodeString BinHexText(const char* data, unsigned int offset, unsigned int length) {
  return CBinaryData::ToBinHexUnicodeString(data ? data + offset : nullptr, length);
}

}  // namespace

// --- elements ---------------------------------------------------------------

void CXMLWriter::WriteElementBool(const unsigned short* localName,
                                  const unsigned short* namespaceURI, bool value) {
  WriteElementString(localName, namespaceURI, CValueText(value));
}

void CXMLWriter::WriteElementBool(const unsigned short* localName, bool value) {
  WriteElementString(localName, CValueText(value));
}

void CXMLWriter::WriteElementShort(const unsigned short* localName,
                                   const unsigned short* namespaceURI, short value) {
  WriteElementString(localName, namespaceURI, CValueText(kFormatD, static_cast<int>(value)));
}

void CXMLWriter::WriteElementShort(const unsigned short* localName, short value) {
  WriteElementString(localName, CValueText(kFormatD, static_cast<int>(value)));
}

void CXMLWriter::WriteElementLong(const unsigned short* localName,
                                  const unsigned short* namespaceURI, int value) {
  WriteElementString(localName, namespaceURI, CValueText(kFormatD, value));
}

void CXMLWriter::WriteElementLong(const unsigned short* localName, int value) {
  WriteElementString(localName, CValueText(kFormatD, value));
}

void CXMLWriter::WriteElementUnsignedLong(const unsigned short* localName,
                                          const unsigned short* namespaceURI, unsigned int value) {
  WriteElementString(localName, namespaceURI, CValueText(kFormatU, value));
}

void CXMLWriter::WriteElementUnsignedLong(const unsigned short* localName, unsigned int value) {
  WriteElementString(localName, CValueText(kFormatU, value));
}

void CXMLWriter::WriteElementFloat(const unsigned short* localName,
                                   const unsigned short* namespaceURI, float value) {
  WriteElementString(localName, namespaceURI, CValueText(kFormatF, static_cast<double>(value)));
}

void CXMLWriter::WriteElementFloat(const unsigned short* localName, float value) {
  WriteElementString(localName, CValueText(kFormatF, static_cast<double>(value)));
}

void CXMLWriter::WriteElementDouble(const unsigned short* localName,
                                    const unsigned short* namespaceURI, double value) {
  WriteElementString(localName, namespaceURI, CValueText(kFormatF, value));
}

void CXMLWriter::WriteElementDouble(const unsigned short* localName, double value) {
  WriteElementString(localName, CValueText(kFormatF, value));
}

void CXMLWriter::WriteElementBinHex(const unsigned short* localName,
                                    const unsigned short* namespaceURI, const char* data,
                                    unsigned int offset, unsigned int length) {
  WriteElementString(localName, namespaceURI, BinHexText(data, offset, length));
}

void CXMLWriter::WriteElementBinHex(const unsigned short* localName, const char* data,
                                    unsigned int offset, unsigned int length) {
  WriteElementString(localName, BinHexText(data, offset, length));
}

void CXMLWriter::WriteElementBase64(const unsigned short* localName,
                                    const unsigned short* namespaceURI, const char* data,
                                    unsigned int offset, unsigned int length) {
  WriteElementString(localName, namespaceURI, Base64Text(data, offset, length));
}

void CXMLWriter::WriteElementBase64(const unsigned short* localName, const char* data,
                                    unsigned int offset, unsigned int length) {
  WriteElementString(localName, Base64Text(data, offset, length));
}

// --- attributes -------------------------------------------------------------

void CXMLWriter::WriteAttrBool(const unsigned short* localName, const unsigned short* namespaceURI,
                               bool value) {
  WriteAttribute(localName, namespaceURI, CValueText(value));
}

void CXMLWriter::WriteAttrBool(const unsigned short* localName, bool value) {
  WriteAttribute(localName, CValueText(value));
}

void CXMLWriter::WriteAttrShort(const unsigned short* localName, const unsigned short* namespaceURI,
                                short value) {
  WriteAttribute(localName, namespaceURI, CValueText(kFormatD, static_cast<int>(value)));
}

void CXMLWriter::WriteAttrShort(const unsigned short* localName, short value) {
  WriteAttribute(localName, CValueText(kFormatD, static_cast<int>(value)));
}

void CXMLWriter::WriteAttrLong(const unsigned short* localName, const unsigned short* namespaceURI,
                               int value) {
  WriteAttribute(localName, namespaceURI, CValueText(kFormatD, value));
}

void CXMLWriter::WriteAttrLong(const unsigned short* localName, int value) {
  WriteAttribute(localName, CValueText(kFormatD, value));
}

void CXMLWriter::WriteAttrUnsignedLong(const unsigned short* localName,
                                       const unsigned short* namespaceURI, unsigned int value) {
  WriteAttribute(localName, namespaceURI, CValueText(kFormatU, value));
}

void CXMLWriter::WriteAttrUnsignedLong(const unsigned short* localName, unsigned int value) {
  WriteAttribute(localName, CValueText(kFormatU, value));
}

void CXMLWriter::WriteAttrFloat(const unsigned short* localName, const unsigned short* namespaceURI,
                                float value) {
  WriteAttribute(localName, namespaceURI, CValueText(kFormatF, static_cast<double>(value)));
}

void CXMLWriter::WriteAttrFloat(const unsigned short* localName, float value) {
  WriteAttribute(localName, CValueText(kFormatF, static_cast<double>(value)));
}

void CXMLWriter::WriteAttrDouble(const unsigned short* localName,
                                 const unsigned short* namespaceURI, double value) {
  WriteAttribute(localName, namespaceURI, CValueText(kFormatF, value));
}

void CXMLWriter::WriteAttrDouble(const unsigned short* localName, double value) {
  WriteAttribute(localName, CValueText(kFormatF, value));
}

// --- content ----------------------------------------------------------------

void CXMLWriter::WriteBool(bool value) { WriteString(CValueText(value)); }

void CXMLWriter::WriteShort(short value) {
  WriteString(CValueText(kFormatD, static_cast<int>(value)));
}

void CXMLWriter::WriteLong(int value) { WriteString(CValueText(kFormatD, value)); }

void CXMLWriter::WriteUnsignedLong(unsigned int value) { WriteString(CValueText(kFormatU, value)); }

void CXMLWriter::WriteFloat(float value) {
  WriteString(CValueText(kFormatF, static_cast<double>(value)));
}

void CXMLWriter::WriteDouble(double value) { WriteString(CValueText(kFormatF, value)); }

void CXMLWriter::WriteBase64(const char* data, unsigned int offset, unsigned int length) {
  WriteString(Base64Text(data, offset, length));
}

void CXMLWriter::WriteBinHex(const char* data, unsigned int offset, unsigned int length) {
  WriteString(BinHexText(data, offset, length));
}

void CXMLWriter::WriteObject(const IXMLSerializable& object) { object.WriteXML(*this); }

}  // namespace io
}  // namespace vesk
