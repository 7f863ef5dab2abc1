#include <string>

#include <gtest/gtest.h>

#include "TestStreams.h"
#include "TestSupport.h"
#include "vesk/io/XMLException.h"
#include "vesk/io/XMLPushbackReader.h"
#include "vesk/io/XMLTextToken.h"

using namespace vesk::io;
using vesk::base::CRef;
using vesk::testing::W;
using namespace vesk_test;

namespace {

const char kSource[] = "vesk/io/XMLPushbackReader";

CRef<IXMLToken> Text(const char16_t* text) { return CRef<IXMLToken>(new CXMLTextToken(W(text))); }

TEST(XMLPushbackReaderTest, ConstructionAndCapacity) {
  ExpectThrow<CXMLException>([] { CXMLPushbackReader r(CRef<CXMLReader>(), 2); }, "Invalid XML reader.", kSource);
  ExpectThrow<CXMLException>([] { CXMLPushbackReader r(XMLReaderOn("<a/>"), 0); }, "Invalid pushback buffer size.",
                             kSource);
  CXMLPushbackReader reader(XMLReaderOn("<a/>"), 2);
  ExpectThrow<CXMLException>([&] { reader.UnreadToken(); }, "There is no valid token.", kSource);
  reader.UnreadToken(Text(u"A"));
  reader.UnreadToken(Text(u"B"));
  ExpectThrow<CIOException>([&] { reader.UnreadToken(Text(u"C")); }, "Pushback buffer is full.", kSource);
  // Last in, first out, then the wrapped reader.
  EXPECT_EQ(DumpTokens(reader), "'B' 'A' <a> </a>");
  // A whole element needs three slots; nothing goes back when they are not there.
  ExpectThrow<CIOException>([&] { reader.UnreadElementLong(W(u"n"), 5); }, "Pushback buffer is full.");
  EXPECT_FALSE(reader.ReadToken());
}

TEST(XMLPushbackReaderTest, GivenBackElementsReadInDocumentOrder) {
  CXMLPushbackReader reader(XMLReaderOn("<r><v>1</v></r>"), 16);
  reader.ReadStartElement(W(u"r"));
  reader.UnreadToken();
  reader.ReadStartElement(W(u"r"));
  EXPECT_EQ(reader.ReadElementLong(W(u"v")), 1);
  reader.UnreadElementLong(W(u"v"), -7);
  EXPECT_EQ(reader.ReadElementLong(W(u"v")), -7);
  reader.UnreadElementShort(W(u"s"), W(u"urn:x"), 12);
  EXPECT_EQ(reader.ReadElementShort(W(u"s"), W(u"urn:x")), 12);
  reader.UnreadElementDouble(W(u"d"), 0.1);
  reader.UnreadElementFloat(W(u"f"), 2.5f);
  reader.UnreadElementBool(W(u"b"), false);
  reader.UnreadElementString(W(u"e"), W(u""));
  reader.UnreadElementString(W(u"t"), W(u"x y"));
  EXPECT_EQ(DumpTokens(reader), "<t> 'x y' </t> <e> </e> <b> 'false' </b> <f> '2.5' </f> <d> '0.1' </d> </r>");
  // Reading ahead and not finding text gives the token back.
  reader.UnreadEndElement(W(u"z"));
  EXPECT_FALSE(reader.ReadElementTextIfAvailable());
  reader.UnreadElementText(W(u"tx"));
  EXPECT_TRUE(reader.ReadElementText() == "tx");
  EXPECT_TRUE(reader.ReadElementText() == "");
  reader.ReadEndElement(W(u"z"));
}

TEST(XMLPushbackReaderTest, ArgumentsAreCheckedBeforeTheClosedState) {
  CXMLPushbackReader reader(XMLReaderOn("<a/>"), 4);
  reader.Close();
  ExpectThrow<CXMLException>([&] { reader.UnreadElementText(W(u"")); }, "Invalid element text.", kSource);
  ExpectThrow<CXMLException>([&] { reader.UnreadElementText(nullptr); }, "Invalid element text.");
  ExpectThrow<CXMLException>([&] { reader.UnreadStartElement(W(u"")); }, "Invalid local name.");
  ExpectThrow<CXMLException>([&] { reader.UnreadElementLong(nullptr, 1); }, "Invalid local name.");
  ExpectThrow<CIOException>([&] { reader.UnreadElementText(W(u"t")); }, "Reader closed.", kSource);
  ExpectThrow<CIOException>([&] { reader.ReadToken(); }, "Reader closed.");
  ExpectThrow<CIOException>([&] { reader.UnreadEndElement(W(u"a")); }, "Reader closed.");
}

}  // namespace
