// The exception report. Kept apart from Exception.cpp: it is the one part of
// the exception tree that needs the stream classes.
#include "vesk/base/Exception.h"
#include "vesk/io/PrintStream.h"

namespace vesk {
namespace base {

void CException::Print(vesk::io::CPrintStream& out) const {
  // Both rules are 80 characters wide.
  out.Println("--- Exception occured ----------------------------------------------------------");
  out.Print('\t');
  out.Println(GetClass()->GetQualifiedName());
  bool hasLocation = m_sourceFile != nullptr && m_sourceLine != 0;
  if (hasLocation || m_errorDescription || m_message) {
    out.Println("--- Details --------------------------------------------------------------------");
  }
  if (hasLocation) {
    out.Println("\tLocation :");
    out.Print("\t\t");
    out.Print(m_sourceFile);
    out.Print("(");
    out.Print(static_cast<int>(m_sourceLine));
    out.Println(")");
  }
  if (m_errorDescription) {
    out.Println("\tError description :");
    out.Print("\t\t");
    out.Println(m_errorDescription);
  }
  if (m_message) {
    out.Println("\tMessage : ");
    out.Print("\t\t");
    out.Println(m_message);
  }
}

}  // namespace base
}  // namespace vesk
