// Writing XML: an XML text writer on a file writes a small order document
// with attributes, typed values, a namespace and escaped text, then closes.
// The file name is the first argument (orders.xml by default); the program
// prints what it wrote.
#include <cstdio>

#include <IO/Location.h>
#include <vesk/Library.h>
#include <vesk/io/IOException.h>
#include <vesk/io/XMLTextTabulator.h>
#include <vesk/io/XMLTextWriter.h>

using vesk::io::CIOException;
using vesk::io::CXMLTextTabulator;
using vesk::io::CXMLTextWriter;

namespace {

// Names and texts are UTF-16.
const unsigned short* T(const char16_t* text) {
  return reinterpret_cast<const unsigned short*>(text);
}

// The writer asks for the indentation before start and end tags; a
// tabulator that wants depth keeps its own count.
class CIndent : public CXMLTextTabulator {
 public:
  const unsigned short* GetTabString() override { return T(u"  "); }
};

}  // namespace

int main(int argc, char** argv) {
  const char* path = argc > 1 ? argv[1] : "orders.xml";
  vesk::Initialize();
  int status = 0;
  try {
    CIndent indent;
    const unsigned short lf[] = {'\n', 0};
    // UTF-8, a 4096-unit buffer, LF line ends, no byte-order mark.
    CXMLTextWriter writer(IO::Location(path), "UTF-8", 4096, &indent, lf, false);
    writer.WriteStartDocument();
    writer.WriteComment(T(u"written by examples/xml_write"));
    writer.WriteStartElement(T(u"orders"), T(u"urn:example:orders"));
    writer.WriteAttrLong(T(u"count"), 2);
    writer.WriteStartElement(T(u"order"));
    writer.WriteAttribute(T(u"customer"), T(u"Zoë & Sons"));
    writer.WriteAttrBool(T(u"paid"), true);
    writer.WriteElementString(T(u"item"), T(u"3 < 4 \"boxes\""));
    writer.WriteElementDouble(T(u"total"), 1234.5);
    writer.WriteEndElement();
    writer.WriteStartElement(T(u"order"));
    writer.WriteEndElement();  // an empty element: <order/>
    writer.WriteEndDocument();
    writer.Close();
  } catch (const CIOException& e) {  // CXMLException derives from it
    std::printf("failed: %s\n", e.GetErrorDescription() ? e.GetErrorDescription() : "");
    status = 1;
  }
  vesk::Terminate();
  if (status != 0) return status;

  std::FILE* file = std::fopen(path, "rb");
  if (!file) return 1;
  char buffer[4096];
  size_t n = std::fread(buffer, 1, sizeof buffer, file);
  std::fclose(file);
  std::fwrite(buffer, 1, n, stdout);
  return 0;
}
