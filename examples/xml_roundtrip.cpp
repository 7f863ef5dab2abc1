// XML both ways: write a small order document to a file with the XML text
// writer, then read it back with the XML text reader and typed reads.
//
// The writer ends a line after every start tag; those line breaks are text
// inside the root element. Reading through a push-back reader lets the
// program step over them and give back the token that follows.
#include <cstdio>
#include <string>

#include <IO/Location.h>
#include <vesk/Library.h>
#include <vesk/base/Exception.h>
#include <vesk/base/Ref.h>
#include <vesk/base/String.h>
#include <vesk/io/FileOutputStream.h>
#include <vesk/io/XMLPushbackReader.h>
#include <vesk/io/XMLTextReader.h>
#include <vesk/io/XMLTextWriter.h>

using vesk::base::CException;
using vesk::base::CRef;
using vesk::base::CUnicodeString;
using namespace vesk::io;

namespace {

const unsigned short* U(const char16_t* text) { return reinterpret_cast<const unsigned short*>(text); }

std::string Narrow(const CUnicodeString& text) { return static_cast<const char*>(text.ToUTF8()); }

void Write(const IO::Location& file) {
  CFileOutputStream out(file, false);
  CXMLTextWriter writer(&out, "UTF-8", 4096, nullptr, U(u"\n"), false);
  writer.WriteStartDocument();
  writer.WriteStartElement(U(u"order"));
  writer.WriteAttrLong(U(u"id"), 1042);
  writer.WriteAttribute(U(u"customer"), U(u"Smith & Sons"));
  writer.WriteElementString(U(u"item"), U(u"Tea <green>"));
  writer.WriteElementLong(U(u"quantity"), 12);
  writer.WriteElementDouble(U(u"price"), 4.25);
  writer.WriteElementBool(U(u"paid"), true);
  writer.WriteEndDocument();
  writer.Close();
}

// Steps over the writer's line breaks and gives back the token after them.
void SkipLineBreaks(CXMLPushbackReader& reader) {
  while (reader.ReadToken() && reader.GetCurrentTokenType() == XMLText && reader.GetCurrentTokenValue() == "\n") {
  }
  reader.UnreadToken();
}

void Read(const IO::Location& file) {
  CXMLPushbackReader reader(CRef<CXMLReader>(new CXMLTextReader(file)), 1);
  reader.ReadStartElement(U(u"order"));
  int id = reader.ReadAttrLong(U(u"id"));
  std::string customer = Narrow(reader.ReadAttribute(U(u"customer")));
  SkipLineBreaks(reader);
  std::string item = Narrow(reader.ReadElementString(U(u"item")));
  SkipLineBreaks(reader);
  int quantity = reader.ReadElementLong(U(u"quantity"));
  SkipLineBreaks(reader);
  double price = reader.ReadElementDouble(U(u"price"));
  SkipLineBreaks(reader);
  bool paid = reader.ReadElementBool(U(u"paid"));
  SkipLineBreaks(reader);
  reader.ReadEndElement(U(u"order"));
  reader.Close();
  std::printf("order %d for %s: %d x %s at %.2f, %s\n", id, customer.c_str(), quantity, item.c_str(), price,
              paid ? "paid" : "open");
}

}  // namespace

int main(int argc, char** argv) {
  vesk::Initialize();
  int status = 0;
  try {
    IO::Location file(argc > 1 ? argv[1] : "order.xml");
    Write(file);
    Read(file);
  } catch (const CException& e) {
    std::printf("failed: %s: %s\n", e.GetErrorDescription() ? e.GetErrorDescription() : "",
                e.GetMessage() ? e.GetMessage() : "");
    status = 1;
  }
  vesk::Terminate();
  return status;
}
