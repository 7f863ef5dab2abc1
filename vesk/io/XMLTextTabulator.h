/// \file
/// CXMLTextTabulator: the indentation of an XML text writer.
#ifndef VESK_IO_XMLTEXTTABULATOR_H
#define VESK_IO_XMLTEXTTABULATOR_H

#include "vesk/base/Object.h"

namespace vesk {
namespace io {

/// Supplies the text an XML text writer puts before the start tags of
/// WriteStartElement(local), the one-name WriteElementString forms and the
/// end tags of WriteEndElement. The writer asks for it each time and passes
/// no depth or context: an implementation that indents by depth keeps its
/// own count. The writer borrows the tabulator and never deletes it.
class VESK_API CXMLTextTabulator : public vesk::base::CObject {
  VESK_DECLARE_CLASS(CXMLTextTabulator);

  /// Nothing to set up.
  CXMLTextTabulator() {}
  /// Copies nothing: the base has no data.
  CXMLTextTabulator(const CXMLTextTabulator& other) : vesk::base::CObject(other) {}
  /// Assigns nothing: the base has no data.
  CXMLTextTabulator& operator=(const CXMLTextTabulator&) { return *this; }
  /// Virtual: tabulators are deleted through the base.
  ~CXMLTextTabulator() override;

  /// The indentation as zero-terminated UTF-16 text; null means none.
  virtual const unsigned short* GetTabString() = 0;
};

}  // namespace io
}  // namespace vesk

#endif
