#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "TestStreams.h"
#include "vesk/base/IllegalArgumentException.h"
#include "vesk/base/String.h"
#include "vesk/io/ConcreteWCharToCharConverterFactory.h"
#include "vesk/io/WCharToCharUTF8.h"
#include "vesk/platform/Memory.h"

using namespace vesk::base;
using namespace vesk::io;

namespace {

using vesk_test::Bytes;

typedef std::basic_string<unsigned short> U16String;

/// Converts units in one call into a generous buffer; the bytes as a string.
std::string Encode(CWCharToCharConverter& c, const U16String& units) {
  std::vector<char> out(units.size() * 3 + 8, 'x');
  int n = c.Convert(units.data(), 0, static_cast<unsigned int>(units.size()), out.data(), 0,
                    static_cast<unsigned int>(out.size()));
  EXPECT_GE(n, 0);
  return std::string(out.data(), n < 0 ? 0 : n);
}

/// The encoding rules unit by unit, without any of the converter's speed-ups:
/// the bytes one call produces, the pending unit it leaves.
std::string ReferenceEncode(const U16String& in, unsigned short& pending) {
  std::string out;
  size_t i = 0;
  if (pending != 48 && !in.empty()) {
    if (in[0] >= 0xDC00 && in[0] <= 0xDFFF) {
      unsigned cp = 0x10000 + ((pending - 0xD800u) << 10) + (in[0] - 0xDC00u);
      out += Bytes({0xF0 | int(cp >> 18), 0x80 | int((cp >> 12) & 0x3F),
                    0x80 | int((cp >> 6) & 0x3F), 0x80 | int(cp & 0x3F)});
      i = 1;
    } else {
      out += '?';
    }
    pending = 48;
  }
  for (; i < in.size(); ++i) {
    unsigned c = in[i];
    if (c < 0x80) {
      out += char(c);
    } else if (c < 0x800) {
      out += Bytes({0xC0 | int(c >> 6), 0x80 | int(c & 0x3F)});
    } else if (c >= 0xD800 && c <= 0xDBFF) {
      if (i + 1 == in.size()) {
        pending = static_cast<unsigned short>(c);
      } else {
        out += '?';
        ++i;
      }
    } else {
      out += Bytes({0xE0 | int(c >> 12), 0x80 | int((c >> 6) & 0x3F), 0x80 | int(c & 0x3F)});
    }
  }
  return out;
}

TEST(ConverterRegistryTest, Utf8IsRegisteredBeforeMainUnderItsExactName) {
  CWCharToCharConverterFactory* factory =
      CWCharToCharConverterFactory::GetConverterFactory("UTF-8");
  ASSERT_NE(factory, nullptr);
  EXPECT_STREQ(factory->GetEncoding(), "UTF-8");
  EXPECT_EQ(CWCharToCharConverterFactory::GetConverterFactory(CString("UTF-8")), factory);
  EXPECT_TRUE(CWCharToCharConverterFactory::m_theConverterFactories.ContainsKey("UTF-8"));

  CRef<CWCharToCharConverter> c = CWCharToCharConverter::GetConverter("UTF-8");
  ASSERT_FALSE(c.IsNull());
  EXPECT_TRUE(c->GetEncoding() == "UTF-8");
  EXPECT_TRUE(c->IsInstanceOf(&CWCharToCharUTF8::m_classCWCharToCharUTF8));
  // Each call makes a new converter.
  EXPECT_NE(CWCharToCharConverter::GetConverter(CString("UTF-8")).Get(), c.Get());

  for (const char* name : {"utf-8", "UTF8", "UTF-8 ", "Utf-8"}) {
    EXPECT_EQ(CWCharToCharConverterFactory::GetConverterFactory(name), nullptr) << name;
    vesk_test::ExpectUnsupportedEncoding([&] { CWCharToCharConverter::GetConverter(name); }, name);
  }
}

TEST(ConverterRegistryTest, EmptyNamesAreRejectedByTheNarrowFormsOnly) {
  vesk_test::ExpectEachThrows<CIllegalArgumentException>(
      {[] { CWCharToCharConverter::GetConverter(""); },
       [] { CWCharToCharConverter::GetConverter(static_cast<const char*>(nullptr)); },
       [] { CWCharToCharConverterFactory::GetConverterFactory(""); },
       [] { CConcreteWCharToCharConverterFactory<CWCharToCharUTF8> f(""); }},
      "Invalid encoding.");
  EXPECT_EQ(CWCharToCharConverterFactory::GetConverterFactory(CString()), nullptr);
  vesk_test::ExpectUnsupportedEncoding([] { CWCharToCharConverter::GetConverter(CString()); }, "");
  EXPECT_FALSE(CWCharToCharConverterFactory::RegisterConverterFactory(nullptr));
  EXPECT_FALSE(CWCharToCharConverterFactory::UnregisterConverterFactory(nullptr));
}

/// A converter of a made-up encoding: every unit becomes its low byte.
class CLowByteConverter : public CWCharToCharConverter {
 public:
  CLowByteConverter() : CWCharToCharConverter("X-LOW") {}
  int Convert(const unsigned short* units, unsigned int offset, unsigned int length, char* bytes,
              unsigned int byteOffset, unsigned int byteLength) override {
    if (length > byteLength) return -1;
    for (unsigned int i = 0; i < length; ++i) bytes[byteOffset + i] = char(units[offset + i]);
    return static_cast<int>(length);
  }
  unsigned short Reset() override { return 0; }
  void GetByteOrderMark(char*, unsigned int* size) override { *size = 0; }
};

TEST(ConverterRegistryTest, FactoriesComeAndGoWithTheirObjects) {
  unsigned int before = CWCharToCharConverterFactory::m_theConverterFactories.GetSize();
  {
    CConcreteWCharToCharConverterFactory<CLowByteConverter> factory("X-LOW");
    EXPECT_EQ(CWCharToCharConverterFactory::GetConverterFactory("X-LOW"), &factory);
    CRef<CWCharToCharConverter> c = CWCharToCharConverter::GetConverter("X-LOW");
    EXPECT_EQ(Encode(*c, U16String{0x141, 'b'}), "Ab");

    // A second factory of the same name replaces the first.
    {
      CConcreteWCharToCharConverterFactory<CLowByteConverter> other("X-LOW");
      EXPECT_EQ(CWCharToCharConverterFactory::GetConverterFactory("X-LOW"), &other);
    }
    // Removal goes by name: the first factory's entry went with the second.
    EXPECT_EQ(CWCharToCharConverterFactory::GetConverterFactory("X-LOW"), nullptr);
    EXPECT_FALSE(CWCharToCharConverterFactory::UnregisterConverterFactory(&factory));
    EXPECT_TRUE(CWCharToCharConverterFactory::RegisterConverterFactory(&factory));
  }
  EXPECT_EQ(CWCharToCharConverterFactory::GetConverterFactory("X-LOW"), nullptr);
  EXPECT_EQ(CWCharToCharConverterFactory::m_theConverterFactories.GetSize(), before);
  EXPECT_NE(CWCharToCharConverterFactory::GetConverterFactory("UTF-8"), nullptr);
}

TEST(ConverterRegistryTest, RegistrationReportsMemoryFailure) {
  CConcreteWCharToCharConverterFactory<CLowByteConverter> factory("X-MEMORY-TEST-NAME");
  ASSERT_TRUE(CWCharToCharConverterFactory::UnregisterConverterFactory(&factory));
  long live = vesk::platform::LiveAllocations();
  vesk::platform::FailAllocationAt(1, true);
  bool registered = CWCharToCharConverterFactory::RegisterConverterFactory(&factory);
  vesk::platform::FailAllocationAt(0);
  EXPECT_FALSE(registered);
  EXPECT_EQ(CWCharToCharConverterFactory::GetConverterFactory("X-MEMORY-TEST-NAME"), nullptr);
  EXPECT_EQ(vesk::platform::LiveAllocations(), live);
  EXPECT_TRUE(CWCharToCharConverterFactory::RegisterConverterFactory(&factory));
}

// The one- to three-byte forms of other units are checked against ICU by the
// writer's tests; the surrogate rules are this converter's own.
TEST(Utf8ConverterTest, SurrogatePairsEncodeOnlyWhenSplitAcrossCalls) {
  CWCharToCharUTF8 c;
  EXPECT_EQ(c.GetPendingHighSurrogate(), CWCharToCharUTF8::kNoPendingSurrogate);
  EXPECT_EQ(CWCharToCharUTF8::kNoPendingSurrogate, 48);
  // One call after another on one converter: the units, their bytes, the
  // unit left pending.
  const struct {
    U16String units;
    std::string bytes;
    unsigned short pending;
  } calls[] = {
      {{0xDC00, 'a'}, Bytes({0xED, 0xB0, 0x80, 'a'}), 48},  // a lone low half: like any unit
      {{0xD83D, 0xDE00}, "?", 48},  // a pair in one call: one '?'
      {{0xD800, 'A', 'B'}, "?B", 48},  // the unit after a high half is swallowed
      {{'x', 0xD83D}, "x", 0xD83D},  // split: the high half waits ...
      {{}, "", 0xD83D},  // ... through an empty call ...
      {{0xDE00, 'y'}, Bytes({0xF0, 0x9F, 0x98, 0x80, 'y'}), 48},  // ... and the pair is 4 bytes
      {{0xDBFF}, "", 0xDBFF},
      {{0xDFFF}, Bytes({0xF4, 0x8F, 0xBF, 0xBF}), 48},
      {{0xD800}, "", 0xD800},
      {{0xE9}, Bytes({'?', 0xC3, 0xA9}), 48},  // an orphan: '?', and the next unit
      {{0xD800}, "", 0xD800},
      {{0xD801}, "?", 0xD801},  // a new high half: '?', and the new one waits
  };
  for (const auto& call : calls) {
    EXPECT_EQ(Encode(c, call.units), call.bytes);
    EXPECT_EQ(c.GetPendingHighSurrogate(), call.pending);
  }
  // Reset drops it and reports the idle value; copies carry it.
  CWCharToCharUTF8 copy(c);
  EXPECT_EQ(copy.GetPendingHighSurrogate(), 0xD801);
  EXPECT_EQ(c.Reset(), 48);
  EXPECT_EQ(Encode(c, U16String{0xDC00}), Bytes({0xED, 0xB0, 0x80}));
  EXPECT_EQ(Encode(copy, U16String{0xDC00}), Bytes({0xF0, 0x90, 0x90, 0x80}));
  copy = c;
  EXPECT_EQ(copy.GetPendingHighSurrogate(), 48);
  // The pending pair needs four bytes; the pending unit stays when they do
  // not fit.
  char four[4];
  const unsigned short low = 0xDE00;
  Encode(c, U16String{0xD83D});
  EXPECT_EQ(c.Convert(&low, 0, 1, four, 0, 3), -1);
  EXPECT_EQ(c.Convert(&low, 0, 1, four, 0, 4), 4);
}

TEST(Utf8ConverterTest, ByteOrderMark) {
  CWCharToCharUTF8 c;
  char mark[4] = {'x', 'x', 'x', 'x'};
  // Room for: the mark's size when asked with no area, nothing when too small.
  for (unsigned int room : {0u, 2u, 4u}) {
    unsigned int size = room;
    c.GetByteOrderMark(room ? mark : nullptr, &size);
    EXPECT_EQ(size, room == 2 ? 0u : 3u) << room;
    EXPECT_EQ(std::string(mark, 4), room < 4 ? "xxxx" : Bytes({0xEF, 0xBB, 0xBF, 'x'}));
  }
}

TEST(Utf8ConverterTest, AgreesWithTheUnitRulesForAnyTextAndRoom) {
  // Random text rich in surrogates, random output room at random offsets:
  // either the bytes of the rules, or -1 exactly when they do not fit, with
  // the bytes of the units before the one that did not fit left in the area,
  // and nothing written outside it.
  std::mt19937 rng(7);
  const unsigned short pool[] = {'a',    0x7F,   0xE9,   0x7FF,  0x20AC, 0xD800,
                                 0xD83D, 0xDBFF, 0xDC00, 0xDE00, 0xDFFF, 0xFFFF};
  CWCharToCharUTF8 c;
  unsigned short pending = 48;
  for (int round = 0; round < 20000; ++round) {
    U16String text(rng() % 40, 0);
    for (auto& u : text) u = pool[rng() % (sizeof pool / sizeof pool[0])];
    unsigned short after = pending;
    std::string expected = ReferenceEncode(text, after);
    unsigned int room = static_cast<unsigned int>(rng() % (expected.size() + 3));
    unsigned int at = rng() % 3, from = rng() % 3;  // byte and unit offsets
    std::vector<char> area(at + room + 1, '\x01');
    char* out = area.data() + at;
    text.insert(0, from, 0xD800);  // units before the offset are never read
    int n = c.Convert(text.data(), from, static_cast<unsigned int>(text.size()) - from,
                      area.data(), at, room);
    ASSERT_EQ(std::string(area.data(), at) + area.back(), std::string(at + 1, '\x01'));
    if (expected.size() > room) {
      ASSERT_EQ(n, -1) << "round " << round;
      size_t written = std::string(out, room).find('\x01');
      if (written == std::string::npos) written = room;
      ASSERT_EQ(std::string(out, written), expected.substr(0, written)) << "round " << round;
      ASSERT_GT(written + 4, room) << "round " << round;  // only the unit that did not fit is missing
      c.Reset();
      pending = 48;
    } else {
      ASSERT_EQ(n, static_cast<int>(expected.size())) << "round " << round;
      ASSERT_EQ(std::string(out, n), expected) << "round " << round;
      ASSERT_EQ(c.GetPendingHighSurrogate(), after);
      pending = after;
    }
  }
}

}  // namespace
