/// \file
/// CBinaryData: an owning byte block with Base64 and binhex text forms.
#ifndef VESK_BASE_BINARYDATA_H
#define VESK_BASE_BINARYDATA_H

#include "vesk/base/Base.h"
#include "vesk/base/String.h"
#include "vesk/base/UnicodeString.h"

namespace vesk {
namespace base {

/// An owning byte block with a length. Copies are deep. The static members
/// convert raw bytes to and from Base64 and binhex (two upper-case hex digits
/// per byte), each in a narrow and a 16-bit form.
///
/// Blocks handed out by the Parse... functions belong to the caller, who
/// frees them with the library's block free (vesk::platform::Free). A failed
/// decode leaves no block behind and sets the outputs to null and 0.
class VESK_API CBinaryData : public CBase {
 public:
  /// Empty: no block, length 0.
  CBinaryData();
  /// length zero-filled bytes; 0 allocates nothing.
  explicit CBinaryData(unsigned int length);
  /// Copies length bytes from data. Throws CIllegalArgumentException
  /// "Invalid binary data." for null data.
  CBinaryData(const char* data, unsigned int length);
  /// Deep copy of other's bytes.
  CBinaryData(const CBinaryData& other);
  /// Replaces the contents by a deep copy of other's bytes.
  CBinaryData& operator=(const CBinaryData& other);
  /// Frees the block.
  ~CBinaryData();

  ///@{
  /// The block (null when empty).
  char* GetData() { return m_data; }
  const char* GetData() const { return m_data; }
  ///@}
  /// Length in bytes.
  unsigned int GetDataLength() const { return m_length; }

  /// Shortens the logical length; 0 frees the block. A length beyond the
  /// current one throws CIllegalArgumentException "Invalid new data length.".
  void Truncate(unsigned int length);

  /// Same length and same bytes.
  bool operator==(const CBinaryData& other) const;
  /// Differs in length or in a byte.
  bool operator!=(const CBinaryData& other) const { return !(*this == other); }
  /// Shorter is less; equal lengths compare as unsigned bytes. <0, 0 or >0.
  int Compare(const CBinaryData& other) const;

  /// Replaces the contents by the decoded binhex text (zero-terminated).
  void FromBinHexString(const char* text);
  /// Replaces the contents by length characters of binhex text.
  void FromBinHexString(const char* text, unsigned int length);
  ///@{
  /// 16-bit twins of FromBinHexString.
  void FromBinHexUnicodeString(const unsigned short* text);
  void FromBinHexUnicodeString(const unsigned short* text, unsigned int length);
  ///@}

  ///@{
  /// Binhex text of the contents (empty for an empty object).
  void ToBinHexString(CString& out) const;
  CString ToBinHexString() const;
  void ToBinHexUnicodeString(CUnicodeString& out) const;
  CUnicodeString ToBinHexUnicodeString() const;
  ///@}

  // --- Base64 ------------------------------------------------------------

  ///@{
  /// Base64 text of length bytes at data, with padding and without line
  /// breaks. Null data throws CIllegalArgumentException "Illegal data pointer.".
  static void ToBase64String(const char* data, unsigned int length, CString& out);
  static CString ToBase64String(const char* data, unsigned int length);
  static void ToBase64UnicodeString(const char* data, unsigned int length, CUnicodeString& out);
  static CUnicodeString ToBase64UnicodeString(const char* data, unsigned int length);
  ///@}

  ///@{
  /// Decodes Base64 text into a new caller-owned block. The reported length
  /// is the number of four-character groups in the text, whatever the
  /// padding; the block holds every decoded byte. A padded group may stand
  /// anywhere, no whitespace is skipped. Throws CNumberFormatException
  /// "Invalid base64 encoded binary data." for a text length that is not a
  /// multiple of 4 and "Invalid base 64 char found." for a bad group.
  static void ParseBase64String(const CString& text, char*& data, unsigned int& length);
  static void ParseBase64UnicodeString(const CUnicodeString& text, char*& data,
                                       unsigned int& length);
  ///@}

  // --- binhex ------------------------------------------------------------

  ///@{
  /// Two upper-case hex digits per byte, high nibble first. Null data throws
  /// CIllegalArgumentException "Illegal data pointer.".
  static void ToBinHexString(const char* data, unsigned int length, CString& out);
  static CString ToBinHexString(const char* data, unsigned int length);
  static void ToBinHexUnicodeString(const char* data, unsigned int length, CUnicodeString& out);
  static CUnicodeString ToBinHexUnicodeString(const char* data, unsigned int length);
  ///@}

  ///@{
  /// Decodes binhex text into a new caller-owned block of length / 2 bytes.
  /// Only 0-9 and A-F are digits. Throws CIllegalArgumentException
  /// "Invalid value buffer." for a null text and "Invalid value buffer
  /// length." for an explicit length of 0; CNumberFormatException "Invalid
  /// binhex encoded binary data." for an odd length and "Invalid binhex
  /// digit." for any other character.
  static void ParseBinHexString(const CString& text, char*& data, unsigned int& length);
  static void ParseBinHexString(const char* text, char*& data, unsigned int& length);
  static void ParseBinHexString(const char* text, unsigned int textLength, char*& data,
                                unsigned int& length);
  static void ParseBinHexUnicodeString(const CUnicodeString& text, char*& data,
                                       unsigned int& length);
  static void ParseBinHexUnicodeString(const unsigned short* text, char*& data,
                                       unsigned int& length);
  static void ParseBinHexUnicodeString(const unsigned short* text, unsigned int textLength,
                                       char*& data, unsigned int& length);
  ///@}

 private:
  char* m_data;
  unsigned int m_length;
};

}  // namespace base
}  // namespace vesk

#endif
