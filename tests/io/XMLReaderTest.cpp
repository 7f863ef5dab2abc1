#include <cfloat>
#include <climits>
#include <functional>
#include <initializer_list>
#include <string>

#include <gtest/gtest.h>

#include "TestStreams.h"
#include "TestSupport.h"
#include "vesk/io/XMLException.h"
#include "vesk/platform/Memory.h"

using namespace vesk::io;
using vesk::base::CRef;
using vesk::testing::W;
using vesk_test::ExpectThrow;
using vesk_test::XMLReaderOn;

namespace {

const char kSource[] = "vesk/io/XMLReader";

// A reader whose current token is the text of <v>text</v>.
CRef<CXMLReader> OnValue(const std::string& text) {
  CRef<CXMLReader> reader = XMLReaderOn("<v>" + text + "</v>");
  reader->ReadStartElement(W(u"v"));
  reader->ReadElementText();
  return reader;
}

// One typed read, its result printed.
typedef std::function<std::string(const CXMLReader&)> Read;

template <typename T>
Read Typed(T (CXMLReader::*read)() const) {
  return [read](const CXMLReader& r) { return std::to_string((r.*read)()); };
}

TEST(XMLReaderTest, TypedReadsAtTheirBoundaries) {
  Read asBool = [](const CXMLReader& r) { return std::string(r.ReadBool() ? "true" : "false"); };
  Read asShort = Typed(&CXMLReader::ReadShort), asLong = Typed(&CXMLReader::ReadLong),
       asULong = Typed(&CXMLReader::ReadUnsignedLong), asInt64 = Typed(&CXMLReader::ReadInt64),
       asUInt64 = Typed(&CXMLReader::ReadUInt64), asFloat = Typed(&CXMLReader::ReadFloat),
       asDouble = Typed(&CXMLReader::ReadDouble);
  // Each text is followed by what it reads as: the value printed, or the
  // message of the refusal.
  auto check = [](const Read& read, std::initializer_list<const char*> pairs) {
    for (const char* const* c = pairs.begin(); c != pairs.end(); c += 2) {
      CRef<CXMLReader> reader = OnValue(c[0]);
      try {
        EXPECT_EQ(read(*reader), c[1]) << '"' << c[0] << '"';
      } catch (const CXMLException& e) {
        EXPECT_STREQ(e.GetErrorDescription(), c[1]) << '"' << c[0] << '"';
        EXPECT_STREQ(e.GetSourceFile(), kSource);
        // A refused value leaves the current token where it was.
        EXPECT_EQ(reader->GetCurrentTokenType(), XMLText);
      }
    }
  };
  check(asBool, {" true ", "true", "false", "false", "True", "Invalid bool literal.", "1",
                 "Invalid bool literal.", "", "Invalid bool literal."});
  check(asShort, {"-32768", "-32768", "32767", "32767", "32768", "Invalid short literal.",
                  "\n\t+7 ", "7", "", "Invalid short literal."});
  check(asLong, {"-2147483648", "-2147483648", "2147483648", "Invalid Int32 literal.", "12 3",
                 "Invalid Int32 literal.", "0x10", "Invalid Int32 literal.", "1.0",
                 "Invalid Int32 literal.", "--1", "Invalid Int32 literal."});
  check(asULong, {"4294967295", "4294967295", "4294967296", "Invalid UInt32 literal.", "-1",
                  "Invalid UInt32 literal."});
  check(asInt64, {"-9223372036854775808", "-9223372036854775808", "9223372036854775808",
                  "Invalid Int64 literal.", "42abc", "Invalid Int64 literal."});
  // The lenient one: the leading number counts, the rest is ignored.
  check(asUInt64,
        {"42abc", "42", "18446744073709551615", "18446744073709551615", "99999999999999999999",
         "18446744073709551615", "abc", "Invalid UInt64 literal.", " ", "Invalid UInt64 literal."});
  check(asFloat, {"2.5", "2.500000", "-1e3", "-1000.000000", "1e39", "Invalid float literal.",
                  "2.5f", "Invalid float literal."});
  check(asDouble, {"1e308", std::to_string(1e308).c_str(), "1e309", "Invalid double literal.",
                   " .5 ", "0.500000", "", "Invalid double literal."});
  EXPECT_TRUE(OnValue(" x ")->ReadString() == " x ");
}

TEST(XMLReaderTest, ReadsWithoutACurrentTokenSayWhichTypeFailed) {
  CRef<CXMLReader> reader = XMLReaderOn("<v/>");
  char* data = nullptr;
  unsigned int length = 0;
  struct Case {
    std::function<void()> read;
    const char* type;
  } cases[] = {{[&] { reader->ReadBool(); }, "bool"},
               {[&] { reader->ReadShort(); }, "short"},
               {[&] { reader->ReadLong(); }, "Int32"},
               {[&] { reader->ReadUnsignedLong(); }, "UInt32"},
               {[&] { reader->ReadInt64(); }, "Int64"},
               {[&] { reader->ReadUInt64(); }, "UInt64"},
               {[&] { reader->ReadFloat(); }, "float"},
               {[&] { reader->ReadDouble(); }, "double"},
               {[&] { reader->ReadBinHex(data, length); }, "binhex encoded binary data"},
               {[&] { reader->ReadBase64(data, length); }, "base64 encoded binary data"}};
  for (const Case& c : cases) {
    std::string message =
        std::string("Failed to read the value of current token as ") + c.type + ".";
    ExpectThrow<CXMLException>(c.read, message.c_str(), kSource);
  }
}

TEST(XMLReaderTest, Attributes) {
  CRef<CXMLReader> reader =
      XMLReaderOn("<r xmlns:p='urn:p' n=' 12 ' b='true' p:d='2.5' f='x'>t</r>");
  ExpectThrow<CXMLException>([&] { reader->HasAttribute(W(u"n")); },
                             "Attributes available only in start element nodes.", kSource);
  reader->ReadStartElement(W(u"r"));
  EXPECT_TRUE(reader->HasAttribute(W(u"n")));
  EXPECT_FALSE(reader->HasAttribute(W(u"d")));
  EXPECT_TRUE(reader->HasAttribute(W(u"d"), W(u"urn:p")));
  EXPECT_TRUE(reader->ReadAttribute(W(u"n")) == " 12 ");
  EXPECT_EQ(reader->ReadAttrLong(W(u"n")), 12);
  EXPECT_EQ(reader->ReadAttrShort(W(u"n")), 12);
  EXPECT_EQ(reader->ReadAttrUnsignedLong(W(u"n")), 12u);
  EXPECT_TRUE(reader->ReadAttrBool(W(u"b")));
  EXPECT_EQ(reader->ReadAttrDouble(W(u"d"), W(u"urn:p")), 2.5);
  EXPECT_EQ(reader->ReadAttrFloat(W(u"p:d")), 2.5f);
  ExpectThrow<CXMLException>([&] { reader->ReadAttrDouble(W(u"f")); }, "Invalid double literal.",
                             kSource);
  ExpectThrow<CXMLException>([&] { reader->ReadAttribute(W(u"zz")); }, "No such attribute.");
  ExpectThrow<CXMLException>([&] { reader->ReadAttribute(W(u"n"), W(u"")); },
                             "Invalid namespace URI.");
  reader->ReadElementText();
  ExpectThrow<CXMLException>([&] { reader->ReadAttribute(W(u"n")); },
                             "Attributes available only in start element nodes.");
}

TEST(XMLReaderTest, ElementReads) {
  CRef<CXMLReader> reader = XMLReaderOn(
      "<r xmlns:p='urn:p'><b> true </b><s>-5</s><l>7</l><u>8</u><i>-9</i><j>10x</j>"
      "<f>1.5</f><d>2.5</d><p:n>3</p:n><e></e><t>a &amp; b</t><c><![CDATA[<x>]]></c>"
      "<h>0AFF</h><x>AQID</x><bad>0G</bad><empty/><n></n><w><y/></w></r>");
  reader->ReadStartElement(W(u"r"));
  EXPECT_TRUE(reader->ReadElementBool(W(u"b")));
  EXPECT_EQ(reader->ReadElementShort(W(u"s")), -5);
  EXPECT_EQ(reader->ReadElementLong(W(u"l")), 7);
  EXPECT_EQ(reader->ReadElementUnsignedLong(W(u"u")), 8u);
  EXPECT_EQ(reader->ReadElementInt64(W(u"i")), -9);
  EXPECT_EQ(reader->ReadElementUInt64(W(u"j")), 10u);
  EXPECT_EQ(reader->ReadElementFloat(W(u"f")), 1.5f);
  EXPECT_EQ(reader->ReadElementDouble(W(u"d")), 2.5);
  EXPECT_EQ(reader->ReadElementLong(W(u"n"), W(u"urn:p")), 3);
  EXPECT_TRUE(reader->ReadElementString(W(u"e")) == "");
  EXPECT_TRUE(reader->ReadElementString(W(u"t")) == "a & b");
  EXPECT_TRUE(reader->ReadElementString(W(u"c")) == "<x>");
  char* data = nullptr;
  unsigned int length = 0;
  reader->ReadElementBinHex(W(u"h"), data, length);
  ASSERT_EQ(length, 2u);
  EXPECT_EQ(static_cast<unsigned char>(data[1]), 0xFF);
  vesk::platform::Free(data);
  reader->ReadElementBase64(W(u"x"), data, length);
  EXPECT_EQ(std::string(data, 3), std::string("\1\2\3", 3));
  vesk::platform::Free(data);
  ExpectThrow<CXMLException>([&] { reader->ReadElementBinHex(W(u"bad"), data, length); },
                             "Invalid binhex encoded string literal.");
  reader->ReadEndElement(W(u"bad"));
  // An element without text reads as empty text.
  ExpectThrow<CXMLException>([&] { reader->ReadElementLong(W(u"empty")); },
                             "Invalid Int32 literal.");
  reader->ReadEndElement(W(u"empty"));
  ExpectThrow<CXMLException>([&] { reader->ReadElementShort(W(u"q")); },
                             "Failed to read the specified start element.");
  reader->ReadEndElement(W(u"n"));
  ExpectThrow<CXMLException>([&] { reader->ReadElementString(W(u"w")); },
                             "Failed to read element with string content.", kSource);
  reader->ReadEndElement(W(u"y"));
  reader->ReadEndElement(W(u"w"));
  ExpectThrow<CXMLException>([&] { reader->ReadCDATA(); }, "Failed to read the CDATA section.",
                             kSource);
  EXPECT_FALSE(reader->ReadToken());
  ExpectThrow<CXMLException>([&] { reader->ReadCDATA(); }, "End of stream reached.", kSource);
}

}  // namespace
