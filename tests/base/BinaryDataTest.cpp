#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "vesk/base/BinaryData.h"
#include "vesk/base/Bool.h"
#include "vesk/base/IllegalArgumentException.h"
#include "vesk/base/MemoryException.h"
#include "vesk/base/NumberFormatException.h"
#include "vesk/platform/Memory.h"

using vesk::base::CBinaryData;
using vesk::base::CBool;
using vesk::base::CException;
using vesk::base::CIllegalArgumentException;
using vesk::base::CMemoryException;
using vesk::base::CNumberFormatException;
using vesk::base::CString;
using vesk::base::CUnicodeString;
namespace platform = vesk::platform;

namespace {

std::u16string U16(const std::string& ascii) { return std::u16string(ascii.begin(), ascii.end()); }

const unsigned short* P16(const std::u16string& s) {
  return reinterpret_cast<const unsigned short*>(s.c_str());
}

std::string Narrow(const CUnicodeString& s) {
  std::string out;
  const unsigned short* p = s;
  for (unsigned int i = 0; i < s.GetLength(); ++i) out.push_back(static_cast<char>(p[i]));
  return out;
}

std::string Bytes(const char* data, unsigned int length) {
  return data ? std::string(data, length) : std::string();
}

/// Runs call, expects an exception of type E from vesk/base/BinaryData with
/// the given description, and returns it for further checks.
template <class E>
void ExpectThrow(const std::function<void()>& call, const char* description) {
  try {
    call();
    ADD_FAILURE() << "no exception, expected \"" << (description ? description : "") << "\"";
  } catch (const E& e) {
    EXPECT_STREQ(e.GetSourceFile(), "vesk/base/BinaryData");
    EXPECT_NE(e.GetSourceLine(), 0u);
    if (description) {
      EXPECT_STREQ(e.GetErrorDescription(), description);
    } else {
      EXPECT_EQ(e.GetErrorDescription(), nullptr);
    }
    EXPECT_EQ(e.GetMessage(), nullptr);
  }
}

/// A decoder call that must fail: checks the exception, that the outputs
/// come back null and 0 even when they held something, and that nothing
/// stays allocated.
template <class E>
void ExpectDecodeFailure(const std::function<void(char*&, unsigned int&)>& decode,
                         const char* description) {
  {
    // A first run fills the string pools the call may draw on; their
    // blocks stay for later use and are not the call's to free.
    char* data = nullptr;
    unsigned int length = 0;
    try {
      decode(data, length);
    } catch (const CException&) {
    }
    platform::Free(data);
  }
  long live = platform::LiveAllocations();
  char sentinel = 'x';
  char* data = &sentinel;
  unsigned int length = 77;
  ExpectThrow<E>([&] { decode(data, length); }, description);
  EXPECT_EQ(data, nullptr);
  EXPECT_EQ(length, 0u);
  EXPECT_EQ(platform::LiveAllocations(), live);
}

/// Makes each allocation of call fail in turn, until call gets through.
/// Every failure must be a CMemoryException that leaves nothing allocated.
/// A first run fills the string pools, whose blocks stay for later use.
void SweepAllocationFailures(const std::function<void()>& call) {
  call();
  for (unsigned long n = 1; n < 50; ++n) {
    long live = platform::LiveAllocations();
    platform::FailAllocationAt(n);
    bool failed = false;
    try {
      call();
    } catch (const CMemoryException&) {
      failed = true;
    }
    platform::FailAllocationAt(0);
    EXPECT_EQ(platform::LiveAllocations(), live) << "after failing allocation " << n;
    if (!failed) return;
  }
  ADD_FAILURE() << "call never succeeded";
}

// --- the block ----------------------------------------------------------------

TEST(BinaryData, ConstructionCopyAndAssignmentAreDeep) {
  CBinaryData empty;
  EXPECT_EQ(empty.GetData(), nullptr);
  EXPECT_EQ(empty.GetDataLength(), 0u);
  EXPECT_EQ(CBinaryData(0u).GetData(), nullptr);

  CBinaryData zeros(5);
  ASSERT_EQ(zeros.GetDataLength(), 5u);
  EXPECT_EQ(Bytes(zeros.GetData(), 5), std::string(5, '\0'));

  const char raw[] = "a\0bc";
  CBinaryData a(raw, 4);
  CBinaryData copy(a);
  EXPECT_NE(copy.GetData(), a.GetData());
  EXPECT_EQ(Bytes(copy.GetData(), copy.GetDataLength()), std::string(raw, 4));
  copy.GetData()[0] = 'z';
  EXPECT_EQ(a.GetData()[0], 'a');

  CBinaryData target(3);
  target = a;
  EXPECT_TRUE(target == a);
  target = target;
  EXPECT_TRUE(target == a);
  target = empty;
  EXPECT_EQ(target.GetData(), nullptr);
  EXPECT_EQ(target.GetDataLength(), 0u);
  CBinaryData fromEmpty(empty);
  EXPECT_EQ(fromEmpty.GetData(), nullptr);

  ExpectThrow<CIllegalArgumentException>([] { CBinaryData bad(nullptr, 3); },
                                         "Invalid binary data.");
}

TEST(BinaryData, EqualityAndCompare) {
  CBinaryData a("\x01\x02", 2), b("\x01\x02", 2), c("\x01\x03", 2);
  CBinaryData longer("\x00\x00\x00", 3), high("\xFF\x00", 2);
  EXPECT_TRUE(a == b);
  EXPECT_TRUE(a != c);
  EXPECT_TRUE(CBinaryData() == CBinaryData(0u));
  EXPECT_EQ(a.Compare(b), 0);
  EXPECT_LT(a.Compare(c), 0);
  EXPECT_GT(c.Compare(a), 0);
  // Length ranks first, whatever the bytes.
  EXPECT_LT(high.Compare(longer), 0);
  EXPECT_GT(longer.Compare(high), 0);
  // Bytes compare unsigned.
  EXPECT_GT(high.Compare(a), 0);
  EXPECT_LT(CBinaryData().Compare(a), 0);
}

TEST(BinaryData, Truncate) {
  CBinaryData d("0123456789", 10);
  ExpectThrow<CIllegalArgumentException>([&] { d.Truncate(11); }, "Invalid new data length.");
  d.Truncate(4);
  EXPECT_EQ(Bytes(d.GetData(), d.GetDataLength()), "0123");
  long live = platform::LiveAllocations();
  d.Truncate(0);
  EXPECT_EQ(d.GetData(), nullptr);
  EXPECT_EQ(d.GetDataLength(), 0u);
  EXPECT_EQ(platform::LiveAllocations(), live - 1);
}

TEST(BinaryData, AllocationFailuresLeaveNothing) {
  SweepAllocationFailures([] { CBinaryData d(100); });
  SweepAllocationFailures([] { CBinaryData d("abc", 3); });
  CBinaryData source("abcdef", 6);
  SweepAllocationFailures([&] { CBinaryData d(source); });
  CBinaryData target("xy", 2);
  SweepAllocationFailures([&] { target = source; });
  EXPECT_TRUE(target == source);
}

// --- Base64 -----------------------------------------------------------------------

TEST(Base64, KnownEncodings) {
  EXPECT_STREQ(CBinaryData::ToBase64String("M", 1), "TQ==");
  EXPECT_STREQ(CBinaryData::ToBase64String("Ma", 2), "TWE=");
  EXPECT_STREQ(CBinaryData::ToBase64String("Man", 3), "TWFu");
  EXPECT_STREQ(CBinaryData::ToBase64String("\xFB\xFF\xBF", 3), "+/+/");
  EXPECT_TRUE(CBinaryData::ToBase64String("", 0).IsEmpty());
  CString out("previous");
  CBinaryData::ToBase64String("x", 0, out);
  EXPECT_TRUE(out.IsEmpty());
  EXPECT_EQ(Narrow(CBinaryData::ToBase64UnicodeString("Ma", 2)), "TWE=");

  // No line breaks, however long.
  std::string big(1000, '\x5A');
  CString text = CBinaryData::ToBase64String(big.data(), 1000);
  EXPECT_EQ(text.GetLength(), 1336u);
  EXPECT_EQ(std::strchr(text, '\n'), nullptr);

  ExpectThrow<CIllegalArgumentException>([] { CBinaryData::ToBase64String(nullptr, 3); },
                                         "Illegal data pointer.");
  ExpectThrow<CIllegalArgumentException>([] { CBinaryData::ToBase64UnicodeString(nullptr, 0); },
                                         "Illegal data pointer.");
}

TEST(Base64, DecodedLengthIsTheNumberOfGroups) {
  char* data = nullptr;
  unsigned int length = 0;
  CBinaryData::ParseBase64String(CString("TWFu"), data, length);
  EXPECT_EQ(length, 1u);
  EXPECT_EQ(std::string(data, 3), "Man");
  platform::Free(data);

  // A padded group in mid-text is accepted and decoding carries on.
  CBinaryData::ParseBase64String(CString("TQ==TWFu"), data, length);
  EXPECT_EQ(length, 2u);
  EXPECT_EQ(std::string(data, 4), "MMan");
  platform::Free(data);

  CBinaryData::ParseBase64UnicodeString(CUnicodeString(P16(U16("TWE=TQ=="))), data, length);
  EXPECT_EQ(length, 2u);
  EXPECT_EQ(std::string(data, 3), "MaM");
  platform::Free(data);

  long live = platform::LiveAllocations();
  CBinaryData::ParseBase64String(CString(), data, length);
  EXPECT_EQ(data, nullptr);
  EXPECT_EQ(length, 0u);
  EXPECT_EQ(platform::LiveAllocations(), live);
}

TEST(Base64, CorruptTextIsRejectedWithoutLeaks) {
  const char* badLength[] = {"TWE", "TWFuT", "A", "TWFu\n"};
  for (const char* text : badLength) {
    SCOPED_TRACE(text);
    ExpectDecodeFailure<CNumberFormatException>(
        [&](char*& d, unsigned int& n) { CBinaryData::ParseBase64String(CString(text), d, n); },
        "Invalid base64 encoded binary data.");
    ExpectDecodeFailure<CNumberFormatException>(
        [&](char*& d, unsigned int& n) {
          CBinaryData::ParseBase64UnicodeString(CUnicodeString(P16(U16(text))), d, n);
        },
        "Invalid base64 encoded binary data.");
  }
  // Whitespace is not skipped; "=" only closes a group; the third
  // character may not be padding when the fourth is not.
  const char* badGroup[] = {
      "TWFuTW\nu",       "TWF ", "T===", "====", "TW=u", "TWFu-_==", "TWE=TW.u", "TWFu\x80WFu",
      "TWFuTWFuTWFuTWF*"};
  for (const char* text : badGroup) {
    SCOPED_TRACE(text);
    ExpectDecodeFailure<CNumberFormatException>(
        [&](char*& d, unsigned int& n) { CBinaryData::ParseBase64String(CString(text), d, n); },
        "Invalid base 64 char found.");
  }
  // 16-bit units of 256 and more, including those whose low byte is a
  // letter of the alphabet, fail their group.
  for (unsigned short unit : {0x0141, 0xFF41, 0x013D, 0x0100}) {
    std::u16string text = U16("TWFuTWF");
    text.push_back(static_cast<char16_t>(unit));
    ExpectDecodeFailure<CNumberFormatException>(
        [&](char*& d, unsigned int& n) {
          CBinaryData::ParseBase64UnicodeString(CUnicodeString(P16(text)), d, n);
        },
        "Invalid base 64 char found.");
  }
  std::u16string padded = U16("TQ=");
  padded.push_back(u'\u013D');
  ExpectDecodeFailure<CNumberFormatException>(
      [&](char*& d, unsigned int& n) {
        CBinaryData::ParseBase64UnicodeString(CUnicodeString(P16(padded)), d, n);
      },
      "Invalid base 64 char found.");
}

TEST(Base64, AllocationFailures) {
  std::string bytes(50, 'q');
  SweepAllocationFailures([&] { CBinaryData::ToBase64String(bytes.data(), 50); });
  SweepAllocationFailures([&] { CBinaryData::ToBase64UnicodeString(bytes.data(), 50); });
  CString text = CBinaryData::ToBase64String(bytes.data(), 50);
  SweepAllocationFailures([&] {
    char* data = reinterpret_cast<char*>(1);
    unsigned int length = 5;
    try {
      CBinaryData::ParseBase64String(text, data, length);
    } catch (const CMemoryException&) {
      EXPECT_EQ(data, nullptr);
      EXPECT_EQ(length, 0u);
      throw;
    }
    platform::Free(data);
  });
}

// --- binhex ------------------------------------------------------------------------

TEST(BinHex, EncodesUpperCaseHighNibbleFirst) {
  EXPECT_STREQ(CBinaryData::ToBinHexString("\x0A\xFF", 2), "0AFF");
  EXPECT_EQ(Narrow(CBinaryData::ToBinHexUnicodeString("\x0A\xFF\x10", 3)), "0AFF10");
  EXPECT_TRUE(CBinaryData::ToBinHexString("", 0).IsEmpty());
  ExpectThrow<CIllegalArgumentException>([] { CBinaryData::ToBinHexString(nullptr, 1); },
                                         "Illegal data pointer.");

  CBinaryData d("\x01\xAB", 2);
  EXPECT_STREQ(d.ToBinHexString(), "01AB");
  EXPECT_EQ(Narrow(d.ToBinHexUnicodeString()), "01AB");
  // An empty object has no bytes to point at and gives the empty text.
  EXPECT_TRUE(CBinaryData().ToBinHexString().IsEmpty());
  EXPECT_TRUE(CBinaryData().ToBinHexUnicodeString().IsEmpty());
}

TEST(BinHex, DecodesEveryForm) {
  using Decoder = std::function<void(const char*, char*&, unsigned int&)>;
  std::vector<Decoder> decoders = {
      [](const char* t, char*& d, unsigned int& n) {
        CBinaryData::ParseBinHexString(CString(t), d, n);
      },
      [](const char* t, char*& d, unsigned int& n) { CBinaryData::ParseBinHexString(t, d, n); },
      [](const char* t, char*& d, unsigned int& n) {
        CBinaryData::ParseBinHexString(t, static_cast<unsigned int>(std::strlen(t)), d, n);
      },
      [](const char* t, char*& d, unsigned int& n) {
        CBinaryData::ParseBinHexUnicodeString(CUnicodeString(P16(U16(t))), d, n);
      },
      [](const char* t, char*& d, unsigned int& n) {
        std::u16string s = U16(t);
        CBinaryData::ParseBinHexUnicodeString(P16(s), d, n);
      },
      [](const char* t, char*& d, unsigned int& n) {
        std::u16string s = U16(t);
        CBinaryData::ParseBinHexUnicodeString(P16(s), static_cast<unsigned int>(s.size()), d, n);
      },
  };
  for (size_t i = 0; i < decoders.size(); ++i) {
    SCOPED_TRACE("decoder " + std::to_string(i));
    char* data = nullptr;
    unsigned int length = 0;
    decoders[i]("0AFF9C", data, length);
    EXPECT_EQ(length, 3u);
    EXPECT_EQ(std::string(data, length), "\x0A\xFF\x9C");
    platform::Free(data);

    // Lower case is rejected deliberately.
    for (const char* text : {"0aff", "0AFg", "0A F", "0A-1", "G0"}) {
      SCOPED_TRACE(text);
      ExpectDecodeFailure<CNumberFormatException>(
          [&](char*& d, unsigned int& n) { decoders[i](text, d, n); }, "Invalid binhex digit.");
    }
    ExpectDecodeFailure<CNumberFormatException>(
        [&](char*& d, unsigned int& n) { decoders[i]("ABC", d, n); },
        "Invalid binhex encoded binary data.");
  }

  // Pointer forms reject null text and an explicit zero length.
  ExpectDecodeFailure<CIllegalArgumentException>(
      [](char*& d, unsigned int& n) { CBinaryData::ParseBinHexString(nullptr, d, n); },
      "Invalid value buffer.");
  ExpectDecodeFailure<CIllegalArgumentException>(
      [](char*& d, unsigned int& n) { CBinaryData::ParseBinHexString(nullptr, 2, d, n); },
      "Invalid value buffer.");
  ExpectDecodeFailure<CIllegalArgumentException>(
      [](char*& d, unsigned int& n) { CBinaryData::ParseBinHexString("AB", 0, d, n); },
      "Invalid value buffer length.");
  ExpectDecodeFailure<CIllegalArgumentException>(
      [](char*& d, unsigned int& n) { CBinaryData::ParseBinHexUnicodeString(nullptr, d, n); },
      "Invalid value buffer.");
  std::u16string ab = U16("AB");
  ExpectDecodeFailure<CIllegalArgumentException>(
      [&](char*& d, unsigned int& n) { CBinaryData::ParseBinHexUnicodeString(P16(ab), 0, d, n); },
      "Invalid value buffer length.");
  // A 16-bit unit whose low byte is a digit is not a digit.
  std::u16string wide = U16("0");
  wide.push_back(u'\u0141');
  ExpectDecodeFailure<CNumberFormatException>(
      [&](char*& d, unsigned int& n) { CBinaryData::ParseBinHexUnicodeString(P16(wide), d, n); },
      "Invalid binhex digit.");
  // The explicit length bounds the text: digits after it are not read.
  char* data = nullptr;
  unsigned int length = 0;
  CBinaryData::ParseBinHexString("12zz", 2, data, length);
  EXPECT_EQ(length, 1u);
  EXPECT_EQ(data[0], '\x12');
  platform::Free(data);
}

TEST(BinHex, FromBinHexReplacesTheContents) {
  CBinaryData d("old", 3);
  d.FromBinHexString("CAFE");
  EXPECT_EQ(Bytes(d.GetData(), d.GetDataLength()), "\xCA\xFE");
  d.FromBinHexString("0102FF", 4);
  EXPECT_EQ(Bytes(d.GetData(), d.GetDataLength()), "\x01\x02");
  std::u16string s = U16("7F80");
  d.FromBinHexUnicodeString(P16(s));
  EXPECT_EQ(Bytes(d.GetData(), d.GetDataLength()), "\x7F\x80");
  d.FromBinHexUnicodeString(P16(s), 2);
  EXPECT_EQ(Bytes(d.GetData(), d.GetDataLength()), "\x7F");

  // The old block is dropped before decoding: a failure leaves it empty.
  long live = platform::LiveAllocations();
  ExpectThrow<CNumberFormatException>([&] { d.FromBinHexString("zz"); }, "Invalid binhex digit.");
  EXPECT_EQ(d.GetData(), nullptr);
  EXPECT_EQ(d.GetDataLength(), 0u);
  EXPECT_EQ(platform::LiveAllocations(), live - 1);
  ExpectThrow<CIllegalArgumentException>([&] { d.FromBinHexString(nullptr); },
                                         "Invalid value buffer.");
  ExpectThrow<CIllegalArgumentException>([&] { d.FromBinHexUnicodeString(P16(s), 0); },
                                         "Invalid value buffer length.");
}

// --- against an independent implementation --------------------------------------------

/// Random blocks of every length 0..300, encoded here and by Python's
/// base64.b64encode and binascii.hexlify(...).upper(); both must agree and
/// both decoders must give the bytes back.
TEST(BinaryDataInterop, MatchesPythonOnEveryLengthUpTo300) {
  if (std::system("python3 -c 'import base64, binascii' >/dev/null 2>&1") != 0) {
    GTEST_SKIP() << "python3 with base64/binascii is not installed; interop check skipped";
  }
  std::mt19937 random(20240601);
  std::vector<std::string> blocks;
  std::string all;
  for (int n = 0; n <= 300; ++n) {
    std::string b(n, '\0');
    for (char& c : b) c = static_cast<char>(random());
    blocks.push_back(b);
    all += b;
  }
  char dataPath[] = "/tmp/vesk_b64_XXXXXX";
  int fd = mkstemp(dataPath);
  ASSERT_GE(fd, 0);
  FILE* f = fdopen(fd, "wb");
  ASSERT_EQ(std::fwrite(all.data(), 1, all.size(), f), all.size());
  std::fclose(f);

  std::string command =
      "python3 -c \"import sys, base64, binascii\n"
      "d = open(sys.argv[1], 'rb').read(); p = 0\n"
      "for n in range(301):\n"
      "    b = d[p:p + n]; p += n\n"
      "    print(base64.b64encode(b).decode() + ' ' + binascii.hexlify(b).upper().decode())\n"
      "\" ";
  command += dataPath;
  FILE* py = popen(command.c_str(), "r");
  ASSERT_NE(py, nullptr);
  std::vector<std::string> lines;
  char line[1024];
  while (std::fgets(line, sizeof line, py)) {
    std::string s(line);
    if (!s.empty() && s.back() == '\n') s.pop_back();
    lines.push_back(s);
  }
  ASSERT_EQ(pclose(py), 0);
  std::remove(dataPath);
  ASSERT_EQ(lines.size(), 301u);

  for (int n = 0; n <= 300; ++n) {
    SCOPED_TRACE("length " + std::to_string(n));
    const std::string& b = blocks[n];
    // " " separates the two forms (a trailing blank when both are empty).
    size_t blank = lines[n].find(' ');
    ASSERT_NE(blank, std::string::npos);
    std::string pyBase64 = lines[n].substr(0, blank), pyHex = lines[n].substr(blank + 1);

    const char* bytes = b.data();
    EXPECT_EQ(std::string(CBinaryData::ToBase64String(bytes, n)), pyBase64);
    EXPECT_EQ(Narrow(CBinaryData::ToBase64UnicodeString(bytes, n)), pyBase64);
    EXPECT_EQ(std::string(CBinaryData::ToBinHexString(bytes, n)), pyHex);
    EXPECT_EQ(Narrow(CBinaryData::ToBinHexUnicodeString(bytes, n)), pyHex);

    char* data = nullptr;
    unsigned int length = 0;
    CBinaryData::ParseBase64String(CString(pyBase64.c_str()), data, length);
    EXPECT_EQ(length, (n + 2) / 3);
    EXPECT_EQ(Bytes(data, n), b);
    platform::Free(data);
    CBinaryData::ParseBase64UnicodeString(CUnicodeString(P16(U16(pyBase64))), data, length);
    EXPECT_EQ(Bytes(data, n), b);
    platform::Free(data);
    CBinaryData::ParseBinHexString(CString(pyHex.c_str()), data, length);
    EXPECT_EQ(length, static_cast<unsigned int>(n));
    EXPECT_EQ(Bytes(data, length), b);
    platform::Free(data);
    CBinaryData::ParseBinHexUnicodeString(CUnicodeString(P16(U16(pyHex))), data, length);
    EXPECT_EQ(Bytes(data, length), b);
    platform::Free(data);
  }
}

// --- CBool -------------------------------------------------------------------------------

TEST(Bool, TextsAndPublishedCounts) {
  EXPECT_STREQ(CBool::ToString(true), "true");
  EXPECT_STREQ(CBool::ToString(false), "false");
  EXPECT_EQ(CBool::ToString(true), CBool::SZ_TRUE);
  EXPECT_EQ(CBool::CC_TRUE, 4u);
  EXPECT_EQ(CBool::CC_FALSE, 5u);
  // Published as 5 although "true" has four characters.
  EXPECT_EQ(CBool::WCC_TRUE, 5u);
  EXPECT_EQ(CBool::WCC_FALSE, 5u);
  EXPECT_EQ(CBool::ToUnicodeString(true), CBool::WSZ_TRUE);
  EXPECT_EQ(std::u16string(reinterpret_cast<const char16_t*>(CBool::WSZ_TRUE)), u"true");
  EXPECT_EQ(std::u16string(reinterpret_cast<const char16_t*>(CBool::ToUnicodeString(false))),
            u"false");
  EXPECT_STREQ(CBool::m_classCBool.GetQualifiedName(), "vesk::base::CBool");
}

}  // namespace
