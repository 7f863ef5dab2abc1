#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "HostSupport.h"
#include "TestSupport.h"
#include "io/TestStreams.h"
#include "vesk/base/BinaryData.h"
#include "vesk/base/Bool.h"
#include "vesk/base/IllegalArgumentException.h"
#include "vesk/base/MemoryException.h"
#include "vesk/base/NumberFormatException.h"
#include "vesk/platform/Memory.h"

using namespace vesk::base;
using vesk::testing::FailEachAllocationInTurn;
using vesk::testing::Units;
using vesk_test::U16;
namespace platform = vesk::platform;

namespace {

std::string Narrow(const CUnicodeString& s) {
  std::string out;
  const unsigned short* p = s;
  for (unsigned int i = 0; i < s.GetLength(); ++i) out.push_back(static_cast<char>(p[i]));
  return out;
}

std::string Bytes(const char* data, unsigned int length) {
  return data ? std::string(data, length) : std::string();
}

std::string Bytes(const CBinaryData& d) { return Bytes(d.GetData(), d.GetDataLength()); }

/// Expects an E from vesk/base/BinaryData with the given description.
template <class E>
void ExpectThrow(const std::function<void()>& call, const char* description) {
  vesk::testing::ExpectThrow<E>(call, description, "vesk/base/BinaryData");
}

typedef std::function<void(char*&, unsigned int&)> Decode;

/// A decoder call that must fail: checks the exception, that the outputs
/// come back null and 0 even when they held something, and that nothing
/// stays allocated.
template <class E>
void ExpectDecodeFailure(const Decode& decode, const char* description) {
  long before = vesk::testing::Outstanding();
  char sentinel = 'x';
  char* data = &sentinel;
  unsigned int length = 77;
  ExpectThrow<E>([&] { decode(data, length); }, description);
  EXPECT_EQ(data, nullptr);
  EXPECT_EQ(length, 0u);
  EXPECT_EQ(vesk::testing::Outstanding(), before);
}

Decode Base64(const char* text) {
  return [text](char*& d, unsigned int& n) { CBinaryData::ParseBase64String(CString(text), d, n); };
}

Decode Base64(const Units& text) {
  return [text](char*& d, unsigned int& n) {
    CBinaryData::ParseBase64UnicodeString(CUnicodeString(text.c_str()), d, n);
  };
}

/// Runs decode and hands back the first size bytes it produced (all of
/// them when size is -1); length receives the reported length.
std::string Decoded(const Decode& decode, unsigned int& length, int size = -1) {
  char* data = nullptr;
  decode(data, length);
  std::string bytes = Bytes(data, size < 0 ? length : static_cast<unsigned int>(size));
  platform::Free(data);
  return bytes;
}

// --- the block ----------------------------------------------------------------

TEST(BinaryData, ConstructionCopyAssignmentAndTruncate) {
  CBinaryData empty;
  EXPECT_EQ(empty.GetData(), nullptr);
  EXPECT_EQ(CBinaryData(0u).GetData(), nullptr);
  EXPECT_EQ(Bytes(CBinaryData(5)), std::string(5, '\0'));

  CBinaryData a("a\0bc", 4);
  CBinaryData copy(a);
  EXPECT_EQ(Bytes(copy), std::string("a\0bc", 4));
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
  EXPECT_EQ(CBinaryData(empty).GetData(), nullptr);

  ExpectThrow<CIllegalArgumentException>([] { CBinaryData bad(nullptr, 3); },
                                         "Invalid binary data.");

  CBinaryData d("0123456789", 10);
  ExpectThrow<CIllegalArgumentException>([&] { d.Truncate(11); }, "Invalid new data length.");
  d.Truncate(4);
  EXPECT_EQ(Bytes(d), "0123");
  long live = platform::LiveAllocations();
  d.Truncate(0);  // frees the block
  EXPECT_EQ(d.GetData(), nullptr);
  EXPECT_EQ(platform::LiveAllocations(), live - 1);
}

TEST(BinaryData, CompareRanksLengthFirstThenUnsignedBytes) {
  CBinaryData a("\x01\x02", 2), c("\x01\x03", 2), longer("\x00\x00\x00", 3), high("\xFF\x00", 2);
  EXPECT_TRUE(a == CBinaryData("\x01\x02", 2) && a != c && CBinaryData() == CBinaryData(0u));
  EXPECT_EQ(a.Compare(CBinaryData("\x01\x02", 2)), 0);
  EXPECT_LT(a.Compare(c), 0);
  EXPECT_LT(high.Compare(longer), 0);
  EXPECT_GT(longer.Compare(high), 0);
  EXPECT_GT(high.Compare(a), 0);
  EXPECT_LT(CBinaryData().Compare(a), 0);
}

TEST(BinaryData, AllocationFailuresLeaveNothing) {
  CBinaryData source("abcdef", 6), target("xy", 2);
  EXPECT_EQ(FailEachAllocationInTurn([] { CBinaryData d("abc", 3); }), 1);
  FailEachAllocationInTurn([&] { CBinaryData d(source); });
  FailEachAllocationInTurn([&] { target = source; });
  EXPECT_TRUE(target == source);

  std::string bytes(50, 'q');
  EXPECT_GE(FailEachAllocationInTurn([&] { CBinaryData::ToBase64String(bytes.data(), 50); }), 1);
  FailEachAllocationInTurn([&] { CBinaryData::ToBase64UnicodeString(bytes.data(), 50); });
  CString text = CBinaryData::ToBase64String(bytes.data(), 50);
  EXPECT_GE(FailEachAllocationInTurn([&] {
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
            }),
            1);
}

// --- Base64 -----------------------------------------------------------------------

TEST(Base64, KnownEncodingsWithoutLineBreaks) {
  struct {
    const char* bytes;
    const char* text;
  } rows[] = {{"", ""}, {"M", "TQ=="}, {"Ma", "TWE="}, {"Man", "TWFu"}, {"\xFB\xFF\xBF", "+/+/"}};
  for (const auto& row : rows) {
    unsigned int n = static_cast<unsigned int>(std::strlen(row.bytes));
    EXPECT_STREQ(CBinaryData::ToBase64String(row.bytes, n), row.text);
    EXPECT_EQ(Narrow(CBinaryData::ToBase64UnicodeString(row.bytes, n)), row.text);
  }
  CString out("previous");
  CBinaryData::ToBase64String("x", 0, out);
  EXPECT_TRUE(out.IsEmpty());

  ExpectThrow<CIllegalArgumentException>([] { CBinaryData::ToBase64String(nullptr, 3); },
                                         "Illegal data pointer.");
  ExpectThrow<CIllegalArgumentException>([] { CBinaryData::ToBase64UnicodeString(nullptr, 0); },
                                         "Illegal data pointer.");
}

TEST(Base64, DecodedLengthIsTheNumberOfGroups) {
  unsigned int length = 0;
  EXPECT_EQ(Decoded(Base64("TWFu"), length, 3), "Man");
  EXPECT_EQ(length, 1u);
  // A padded group in mid-text is accepted and decoding carries on.
  EXPECT_EQ(Decoded(Base64("TQ==TWFu"), length, 4), "MMan");
  EXPECT_EQ(length, 2u);
  EXPECT_EQ(Decoded(Base64(U16("TWE=TQ==")), length, 3), "MaM");
  EXPECT_EQ(length, 2u);

  long live = platform::LiveAllocations();
  char* data = nullptr;
  CBinaryData::ParseBase64String(CString(), data, length);
  EXPECT_EQ(data, nullptr);
  EXPECT_EQ(length, 0u);
  EXPECT_EQ(platform::LiveAllocations(), live);
}

TEST(Base64, CorruptTextIsRejectedWithoutLeaks) {
  for (const char* text : {"TWE", "TWFuT", "A", "TWFu\n"}) {
    SCOPED_TRACE(text);
    ExpectDecodeFailure<CNumberFormatException>(Base64(text),
                                                "Invalid base64 encoded binary data.");
    ExpectDecodeFailure<CNumberFormatException>(Base64(U16(text)),
                                                "Invalid base64 encoded binary data.");
  }
  // Whitespace is not skipped; "=" only closes a group; the third
  // character may not be padding when the fourth is not.
  for (const char* text : {"TWFuTW\nu", "TWF ", "T===", "====", "TW=u", "TWFu-_==", "TWE=TW.u",
                           "TWFu\x80WFu", "TWFuTWFuTWFuTWF*"}) {
    SCOPED_TRACE(text);
    ExpectDecodeFailure<CNumberFormatException>(Base64(text), "Invalid base 64 char found.");
  }
  // 16-bit units of 256 and more, including those whose low byte is a
  // letter of the alphabet or "=", fail their group.
  for (unsigned short unit : {0x141, 0xFF41, 0x13D, 0x100}) {
    ExpectDecodeFailure<CNumberFormatException>(Base64(U16("TWFuTWF") + unit),
                                                "Invalid base 64 char found.");
  }
  ExpectDecodeFailure<CNumberFormatException>(Base64(U16("TQ=") + Units{0x13D}),
                                              "Invalid base 64 char found.");
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

// The six forms: narrow and 16-bit, each as a string, a terminated text and
// a text with a length.
void ParseBinHexForm(int form, const char* t, char*& d, unsigned int& n) {
  Units w = U16(t);
  unsigned int length = static_cast<unsigned int>(w.size());
  switch (form) {
    case 0:
      return CBinaryData::ParseBinHexString(CString(t), d, n);
    case 1:
      return CBinaryData::ParseBinHexString(t, d, n);
    case 2:
      return CBinaryData::ParseBinHexString(t, length, d, n);
    case 3:
      return CBinaryData::ParseBinHexUnicodeString(CUnicodeString(w.c_str()), d, n);
    case 4:
      return CBinaryData::ParseBinHexUnicodeString(w.c_str(), d, n);
    default:
      return CBinaryData::ParseBinHexUnicodeString(w.c_str(), length, d, n);
  }
}

TEST(BinHex, DecodesEveryForm) {
  for (int i = 0; i < 6; ++i) {
    SCOPED_TRACE("form " + std::to_string(i));
    auto on = [&](const char* text) -> Decode {
      return [i, text](char*& d, unsigned int& n) { ParseBinHexForm(i, text, d, n); };
    };
    unsigned int length = 0;
    EXPECT_EQ(Decoded(on("0AFF9C"), length), "\x0A\xFF\x9C");
    EXPECT_EQ(length, 3u);
    // Lower case is rejected deliberately.
    for (const char* text : {"0aff", "0AFg", "0A F", "0A-1", "G0"}) {
      SCOPED_TRACE(text);
      ExpectDecodeFailure<CNumberFormatException>(on(text), "Invalid binhex digit.");
    }
    ExpectDecodeFailure<CNumberFormatException>(on("ABC"), "Invalid binhex encoded binary data.");
  }

  // Pointer forms reject null text and an explicit zero length.
  Units ab = U16("AB");
  std::pair<Decode, const char*> refused[] = {
      {[](char*& d, unsigned int& n) { CBinaryData::ParseBinHexString(nullptr, d, n); },
       "Invalid value buffer."},
      {[](char*& d, unsigned int& n) { CBinaryData::ParseBinHexString(nullptr, 2, d, n); },
       "Invalid value buffer."},
      {[](char*& d, unsigned int& n) { CBinaryData::ParseBinHexString("AB", 0, d, n); },
       "Invalid value buffer length."},
      {[](char*& d, unsigned int& n) { CBinaryData::ParseBinHexUnicodeString(nullptr, d, n); },
       "Invalid value buffer."},
      {[&](char*& d, unsigned int& n) {
         CBinaryData::ParseBinHexUnicodeString(ab.c_str(), 0, d, n);
       },
       "Invalid value buffer length."},
  };
  for (const auto& row : refused) {
    ExpectDecodeFailure<CIllegalArgumentException>(row.first, row.second);
  }
  // A 16-bit unit whose low byte is a digit is not a digit.
  Units wide = U16("0") + Units{0x141};
  ExpectDecodeFailure<CNumberFormatException>(
      [&](char*& d, unsigned int& n) { CBinaryData::ParseBinHexUnicodeString(wide.c_str(), d, n); },
      "Invalid binhex digit.");
  // The explicit length bounds the text: digits after it are not read.
  unsigned int length = 0;
  EXPECT_EQ(
      Decoded([](char*& d, unsigned int& n) { CBinaryData::ParseBinHexString("12zz", 2, d, n); },
              length),
      "\x12");
}

TEST(BinHex, FromBinHexReplacesTheContents) {
  CBinaryData d("old", 3);
  d.FromBinHexString("CAFE");
  EXPECT_EQ(Bytes(d), "\xCA\xFE");
  d.FromBinHexString("0102FF", 4);
  EXPECT_EQ(Bytes(d), "\x01\x02");
  Units s = U16("7F80");
  d.FromBinHexUnicodeString(s.c_str());
  EXPECT_EQ(Bytes(d), "\x7F\x80");
  d.FromBinHexUnicodeString(s.c_str(), 2);
  EXPECT_EQ(Bytes(d), "\x7F");

  // The old block is dropped before decoding: a failure leaves it empty.
  long live = platform::LiveAllocations();
  ExpectThrow<CNumberFormatException>([&] { d.FromBinHexString("zz"); }, "Invalid binhex digit.");
  EXPECT_EQ(d.GetData(), nullptr);
  EXPECT_EQ(d.GetDataLength(), 0u);
  EXPECT_EQ(platform::LiveAllocations(), live - 1);
  ExpectThrow<CIllegalArgumentException>([&] { d.FromBinHexString(nullptr); },
                                         "Invalid value buffer.");
  ExpectThrow<CIllegalArgumentException>([&] { d.FromBinHexUnicodeString(s.c_str(), 0); },
                                         "Invalid value buffer length.");
}

// --- against an independent implementation --------------------------------------------

/// Random blocks of every length 0..300, encoded here and by Python's
/// base64.b64encode and binascii.hexlify(...).upper(); both must agree and
/// both decoders must give the bytes back.
TEST(BinaryDataInterop, MatchesPythonOnEveryLengthUpTo300) {
  if (vesk_test::NoPeerReason()) GTEST_SKIP() << vesk_test::NoPeerReason();
  if (std::system("python3 -c 'import base64, binascii' >/dev/null 2>&1") != 0) {
    GTEST_SKIP() << "python3 with base64/binascii is not installed; interop check skipped";
  }
  std::mt19937 random(20240601);
  std::string all;
  for (int i = 0; i < 301 * 150; ++i) all.push_back(static_cast<char>(random()));
  std::filesystem::path dataPath = vesk_test::MakeTempDir("vesk_b64") / "blocks";
  std::ofstream(dataPath, std::ios::binary) << all;
  // Block n is the n bytes starting at p = n * (n - 1) / 2.
  int status = -1;
  std::istringstream out(vesk_test::CommandOutput(
      "python3 -c \"import sys, base64, binascii\n"
      "d = open(sys.argv[1], 'rb').read()\n"
      "for n in range(301):\n"
      "    b = d[n * (n - 1) // 2:][:n]\n"
      "    print(base64.b64encode(b).decode() + ' ' + binascii.hexlify(b).upper().decode())\n"
      "\" " +
          dataPath.string(),
      &status));
  std::filesystem::remove_all(dataPath.parent_path());
  ASSERT_EQ(status, 0);
  std::vector<std::string> lines;
  for (std::string line; std::getline(out, line);) lines.push_back(line);
  ASSERT_EQ(lines.size(), 301u);

  for (int n = 0; n <= 300; ++n) {
    SCOPED_TRACE("length " + std::to_string(n));
    std::string b = all.substr(n * (n - 1) / 2, n);
    // " " separates the two forms (a trailing blank when both are empty).
    size_t blank = lines[n].find(' ');
    std::string pyBase64 = lines[n].substr(0, blank);
    std::string pyHex = lines[n].substr(blank + 1);

    EXPECT_EQ(std::string(CBinaryData::ToBase64String(b.data(), n)), pyBase64);
    EXPECT_EQ(Narrow(CBinaryData::ToBase64UnicodeString(b.data(), n)), pyBase64);
    EXPECT_EQ(std::string(CBinaryData::ToBinHexString(b.data(), n)), pyHex);
    EXPECT_EQ(Narrow(CBinaryData::ToBinHexUnicodeString(b.data(), n)), pyHex);

    // The decoders' forms are alike (DecodesEveryForm): one of each kind.
    unsigned int length = 0;
    EXPECT_EQ(Decoded(Base64(U16(pyBase64.c_str())), length, n), b);
    EXPECT_EQ(length, (n + 2) / 3);
    auto hex = [&](char*& d, unsigned int& k) {
      CBinaryData::ParseBinHexString(pyHex.c_str(), d, k);
    };
    if (n > 0) EXPECT_EQ(Decoded(hex, length), b);
  }
}

// --- CBool -------------------------------------------------------------------------------

TEST(Bool, TextsAndPublishedCounts) {
  EXPECT_STREQ(CBool::ToString(true), "true");
  EXPECT_EQ(CBool::ToString(false), CBool::SZ_FALSE);
  EXPECT_EQ(CBool::CC_TRUE, 4u);
  EXPECT_EQ(CBool::CC_FALSE, 5u);
  // Published as 5 although "true" has four characters.
  EXPECT_EQ(CBool::WCC_TRUE, 5u);
  EXPECT_EQ(CBool::WCC_FALSE, 5u);
  EXPECT_EQ(CBool::ToUnicodeString(true), CBool::WSZ_TRUE);
  EXPECT_EQ(Units(CBool::WSZ_TRUE), U16("true"));
  EXPECT_EQ(Units(CBool::ToUnicodeString(false)), U16("false"));
  EXPECT_STREQ(CBool::m_classCBool.GetQualifiedName(), "vesk::base::CBool");
}

}  // namespace
